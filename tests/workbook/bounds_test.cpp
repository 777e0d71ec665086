// Workbooks built to cost the reader time or memory: each one opens within the limits or is
// refused with the error the user is shown a message for, before the cost is paid.

#include "package_builder.h"
#include "sample_estimate.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"

#include <gtest/gtest.h>

using namespace est;
using namespace est::workbook;
using est::test::templateBytes;

namespace {

// Opens the workbook and reads an estimate from it; the error kind, or nothing when read.
std::optional<ErrorKind> readError(const QByteArray &bytes, const Limits &limits = {})
{
    try {
        auto book = Workbook::fromBytes(bytes, limits);
        Session session;
        readEstimate(*book, session);
        return std::nullopt;
    } catch (const WorkbookError &e) {
        return e.kind();
    }
}

QByteArray estimateBytes()
{
    static const QByteArray bytes = [] {
        auto book = Workbook::fromBytes(templateBytes());
        writeEstimate(*book, test::fullEstimate(3));
        return book->toBytes();
    }();
    return bytes;
}

// The saved estimate with one part's text replaced.
QByteArray withPart(const QString &name, const std::function<QByteArray(const QByteArray &)> &change)
{
    test::Parts parts = test::unzipParts(estimateBytes());
    for (auto &[n, data] : parts)
        if (n == name)
            data = change(data);
    return test::zipParts(parts);
}

// Blanks before the closing tag of the root element: the part stays well-formed.
QByteArray padded(const QByteArray &xml, qsizetype bytes)
{
    QByteArray out = xml;
    out.insert(out.lastIndexOf("</"), QByteArray(bytes, ' '));
    return out;
}

constexpr qsizetype kMB = 1024 * 1024;

} // namespace

TEST(Bounds, TheLargestEstimateOpens)
{
    EXPECT_EQ(readError(estimateBytes()), std::nullopt);
}

// A file cut off anywhere is damaged, not "no workbook".
class CutOff : public testing::TestWithParam<int>
{
};

TEST_P(CutOff, IsReportedAsDamaged)
{
    const QByteArray whole = estimateBytes();
    const qsizetype length = GetParam() < 10 ? whole.size() * GetParam() / 10 : whole.size() - (GetParam() - 9);
    const auto error = readError(whole.left(length));
    ASSERT_TRUE(error);
    EXPECT_EQ(*error, ErrorKind::Damaged);
    EXPECT_EQ(describeError(WorkbookError(*error, {})), QStringLiteral("ブックの内容が壊れています。"));
}

INSTANTIATE_TEST_SUITE_P(Bounds, CutOff, testing::Values(1, 3, 5, 7, 9, 10, 11, 30));

// Parts that each stay under the per-part limit add up: the parsed total is limited too.
TEST(Bounds, ManyPartsJustUnderThePartLimitAreRefusedTogether)
{
    const qsizetype justUnder = Limits{}.maxPartBytes - 64 * 1024;
    test::Parts parts = test::unzipParts(estimateBytes());
    for (auto &[name, data] : parts)
        if (name == QLatin1String("xl/workbook.xml") || name == QLatin1String("_rels/.rels") ||
            name == QLatin1String("xl/worksheets/sheet6.xml") || name == QLatin1String("xl/worksheets/sheet7.xml"))
            data = padded(data, justUnder - data.size());
    const QByteArray bytes = test::zipParts(parts);
    EXPECT_LT(bytes.size(), 200 * 1024);
    EXPECT_EQ(readError(bytes), ErrorKind::TooLarge);
}

// Dense markup costs far more parsed than as text: a sheet of empty cells is refused before
// it is parsed.
TEST(Bounds, ADenseSheetIsRefusedBeforeItIsParsed)
{
    const QByteArray bytes = withPart(QStringLiteral("xl/worksheets/sheet7.xml"), [](const QByteArray &xml) {
        QByteArray rows;
        rows.reserve(7 * kMB);
        for (int r = 1000; rows.size() < 7 * kMB; ++r)
            rows += "<row r=\"" + QByteArray::number(r) + "\">" + QByteArray("<c/>").repeated(2000) + "</row>";
        QByteArray out = xml;
        return out.insert(out.indexOf("</sheetData>"), rows);
    });
    EXPECT_EQ(readError(bytes), ErrorKind::TooLarge);
}

// The total limits count, not the parts: a limit below one part's cost refuses it.
TEST(Bounds, TheParsedTotalIsWhatIsLimited)
{
    Limits tight;
    tight.maxParsedBytes = 2 * kMB;
    EXPECT_EQ(readError(estimateBytes(), tight), ErrorKind::TooLarge);
    Limits inflated;
    inflated.maxInflatedBytes = 64 * 1024;
    EXPECT_EQ(readError(estimateBytes(), inflated), ErrorKind::TooLarge);
}
