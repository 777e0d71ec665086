// Workbooks built to cost the reader time or memory: each one opens within the limits or is
// refused with the error the user is shown a message for, before the cost is paid.

#include "package_builder.h"
#include "sample_estimate.h"
#include "scripted_messages.h"
#include "temp_app_folder.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
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

// ---- shapes built to freeze or exhaust the reader -------------------------------------------

namespace {

// A workbook another program could have written: sheet "D" with `upper` + 1 rows whose amount
// cells, and the non-taxable amounts, all show shared string 0.
QByteArray sharedStringEverywhere(const QByteArray &sharedString, int upper)
{
    QByteArray d = "<row r=\"2\"><c r=\"A2\"><v>" + QByteArray::number(upper) + "</v></c></row>";
    for (int r = 6; r <= 6 + upper; ++r) {
        const QByteArray n = QByteArray::number(r);
        d += "<row r=\"" + n + "\">";
        for (const char *column : {"F", "G", "H", "J"})
            d += "<c r=\"" + QByteArray(column) + n + "\" t=\"s\"><v>0</v></c>";
        if (r == 8)
            d += "<c r=\"L8\"><v>98</v></c><c r=\"N8\" t=\"s\"><v>0</v></c>";
        if (r >= 10)
            d += "<c r=\"N" + n + "\" t=\"s\"><v>0</v></c>";
        d += "</row>";
    }
    const QByteArray strings = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><sst xmlns=\"http://schemas.openxmlformats.org/"
                               "spreadsheetml/2006/main\"><si><t xml:space=\"preserve\">" +
                               sharedString + "</t></si></sst>";
    test::Parts parts = test::minimalWorkbook({{QStringLiteral("D"), d}, {QStringLiteral("P"), ""}}, strings);
    parts.append({QStringLiteral("xl/sharedStrings.xml"), strings});
    return test::zipParts(parts);
}

} // namespace

// One long shared string in every amount cell: each cell's number is read from a bounded
// text, so a text longer than any number stays text (blanks and all) instead of costing a
// pass over the whole string per cell.
TEST(HostileShapes, ALongSharedStringInThousandsOfCellsIsNotReadAsANumber)
{
    const QByteArray longNumber = QByteArray(1024 * 1024, ' ') + "1000";
    auto book = Workbook::fromBytes(sharedStringEverywhere(longNumber, 393));
    Session session;
    readEstimate(*book, session);
    ASSERT_EQ(session.rows.size(), 394);
    EXPECT_EQ(session.rows.at(393)[ColLabour].size(), longNumber.size());
    EXPECT_EQ(session.nonTaxable.amounts.size(), 99);
    EXPECT_EQ(session.nonTaxable.amounts.at(98), 0);
    EXPECT_EQ(numberInText(QString::fromLatin1(longNumber)), std::nullopt);
    EXPECT_EQ(numberInText(QStringLiteral(" 1,000 ")), 1000.0);
}

// libzip looks for the end-of-directory record from the end of the file and reads the whole
// directory again for every candidate: thousands of them are refused before libzip sees them.
TEST(HostileShapes, ThousandsOfEndRecordsAreRefusedAsDamaged)
{
    const QByteArray zip = estimateBytes();
    const QByteArray endRecord = zip.right(22);
    ASSERT_TRUE(endRecord.startsWith("PK\x05\x06"));
    for (int copies : {1, 2000}) {
        const QByteArray bytes = zip + endRecord.repeated(copies);
        EXPECT_EQ(readError(bytes), ErrorKind::Damaged) << copies;
    }
    // Entries that share their data (a zip bomb of overlapping files) are refused as well.
    QByteArray overlapping = zip;
    const qsizetype directory = overlapping.indexOf("PK\x01\x02");
    const qsizetype second = overlapping.indexOf("PK\x01\x02", directory + 4);
    overlapping.replace(second + 42, 4, overlapping.mid(directory + 42, 4));
    EXPECT_EQ(readError(overlapping), ErrorKind::Damaged);
}

// Many sheets on one part would parse and keep that part once per sheet: refused at once, on
// opening and as a template (nothing is written then).
TEST(HostileShapes, SheetsSharingOnePartAreRefused)
{
    test::Parts parts = test::unzipParts(estimateBytes());
    for (auto &[name, data] : parts) {
        if (name != QLatin1String("xl/workbook.xml"))
            continue;
        QByteArray sheets;
        const QByteArray sheetD = data.mid(data.indexOf("<sheet name=\"D\""));
        const QByteArray element = sheetD.left(sheetD.indexOf("/>") + 2);
        for (int i = 0; i < 5000; ++i)
            sheets += QByteArray(element).replace("name=\"D\"", "name=\"D" + QByteArray::number(i) + "\"");
        data.insert(data.indexOf("</sheets>"), sheets);
    }
    const QByteArray bytes = test::zipParts(parts);
    EXPECT_EQ(readError(bytes), ErrorKind::Damaged);

    test::TempAppFolder folder;
    QDir().mkpath(QFileInfo(templatePath(folder.path())).absolutePath());
    QFile templ(templatePath(folder.path()));
    ASSERT_TRUE(templ.open(QIODevice::WriteOnly));
    templ.write(bytes);
    templ.close();
    Session s = test::fullEstimate(4);
    s.fileName = QStringLiteral("240105共有.xlsx");
    test::ScriptedMessages messages;
    EXPECT_FALSE(saveEstimateWorkbook(s, messages, folder.path()));
    EXPECT_TRUE(messages.lastText().contains(QStringLiteral("見積書のひな形"))) << messages.lastText().toStdString();
    EXPECT_EQ(QDir(estimatesFolder(folder.path())).entryList(QDir::Files | QDir::Hidden), QStringList());
}

// Only ASCII hexadecimal digits make an "_xHHHH_" escape; anything else is text as it stands.
TEST(HostileShapes, OnlyAsciiHexDigitsFormAnEscape)
{
    const QByteArray d = "<row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t>山田_x００４１_様</t></is></c>"
                         "<c r=\"B1\" t=\"inlineStr\"><is><t>山田_x0041_様</t></is></c>"
                         "<c r=\"C1\" t=\"inlineStr\"><is><t>_x٠٠٤١_</t></is></c></row>";
    auto book = Workbook::fromBytes(test::zipParts(test::minimalWorkbook({{QStringLiteral("D"), d}})));
    Worksheet *sheet = book->sheet(QStringLiteral("D"));
    EXPECT_EQ(cellText(sheet->value(1, 1)), QStringLiteral("山田_x００４１_様"));
    EXPECT_EQ(cellText(sheet->value(1, 2)), QStringLiteral("山田A様"));
    EXPECT_EQ(cellText(sheet->value(1, 3)), QStringLiteral("_x٠٠٤١_"));
    // Written and read back by the program, every such text stays as it was typed.
    for (const QString &text : {QStringLiteral("山田_x００４１_様"), QStringLiteral("_x0041_"), QStringLiteral("a\x01b")}) {
        sheet->setText(2, 1, text);
        auto again = Workbook::fromBytes(book->toBytes());
        EXPECT_EQ(cellText(again->sheet(QStringLiteral("D"))->value(2, 1)), text);
    }
}

namespace {

// The template with the compressed data of one part damaged: the bytes in the middle of the
// part's data are flipped, so inflating it fails or its checksum no longer matches.
QByteArray templateWithDamagedPart(const QString &name)
{
    QByteArray zip = templateBytes();
    const QByteArray raw = test::rawEntry(zip, name);
    const qsizetype at = zip.indexOf(raw);
    if (raw.isEmpty() || at < 0)
        return {};
    for (qsizetype i = raw.size() / 2; i < std::min(raw.size(), raw.size() / 2 + 8); ++i)
        zip[at + i] = char(~zip.at(at + i));
    return zip;
}

QStringList templatePartNames()
{
    QStringList names;
    for (const auto &[name, data] : test::unzipParts(templateBytes()))
        names << name;
    return names;
}

} // namespace

// Every part of the template, the ones the save path copies as they are among them: a
// damaged one is named as a template that cannot be read, and the estimate already saved
// under that name stays as it was.
class DamagedTemplatePart : public testing::TestWithParam<QString>
{};

TEST_P(DamagedTemplatePart, RefusesTheSaveAndKeepsTheSavedEstimate)
{
    test::TempAppFolder folder;
    Session s = test::fullEstimate(5);
    s.fileName = QStringLiteral("240105既存.xlsx");
    s.editExisting = true;
    test::ScriptedMessages messages;
    ASSERT_TRUE(saveEstimateWorkbook(s, messages, folder.path())) << messages.lastText().toStdString();
    const QString saved = QDir(estimatesFolder(folder.path())).filePath(s.fileName);
    QFile savedFile(saved);
    ASSERT_TRUE(savedFile.open(QIODevice::ReadOnly));
    const QByteArray before = savedFile.readAll();
    savedFile.close();

    const QByteArray damaged = templateWithDamagedPart(GetParam());
    ASSERT_FALSE(damaged.isEmpty()) << GetParam().toStdString();
    QFile templ(templatePath(folder.path()));
    ASSERT_TRUE(templ.open(QIODevice::WriteOnly | QIODevice::Truncate));
    templ.write(damaged);
    templ.close();

    s.header.customerName = QStringLiteral("変更後");
    messages.clear();
    EXPECT_FALSE(saveEstimateWorkbook(s, messages, folder.path())) << GetParam().toStdString();
    EXPECT_TRUE(messages.lastText().contains(QStringLiteral("見積書のひな形"))) << messages.lastText().toStdString();
    ASSERT_TRUE(savedFile.open(QIODevice::ReadOnly));
    EXPECT_EQ(savedFile.readAll(), before);
    EXPECT_EQ(QDir(estimatesFolder(folder.path())).entryList(QDir::Files | QDir::Hidden), QStringList({s.fileName}));
}

INSTANTIATE_TEST_SUITE_P(EveryPart, DamagedTemplatePart, testing::ValuesIn(templatePartNames()),
                         [](const testing::TestParamInfo<QString> &info) {
                             QString n = info.param;
                             n.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9]")), QStringLiteral("_"));
                             return n.toStdString();
                         });

// A package whose parts are stored rather than deflated is as readable (some zip tools write
// them so, and the XML fuzzer builds its packages that way).
TEST(Bounds, StoredPartsAreReadLikeDeflatedOnes)
{
    const QByteArray stored = test::zipParts(test::unzipParts(estimateBytes()), test::Compression::Store);
    ASSERT_GT(stored.size(), estimateBytes().size());
    auto book = Workbook::fromBytes(stored);
    Session session;
    readEstimate(*book, session);
    EXPECT_EQ(test::storedFields(session), test::storedFields(test::fullEstimate(3)));
}
