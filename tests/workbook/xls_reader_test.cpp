// The .xls reader against the .xlsx engine: each committed .xls file was made by LibreOffice
// from an estimate the program saved as .xlsx (tools/make-xls-samples). The same estimate is
// saved again here, and every cell of "D" and "P" must read back with the same value and kind
// from both, and the estimate read from both must be the one saved.

#include "sample_estimate.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"
#include "workbook/xls_book.h"
#include "xls_samples.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace est;
using namespace est::workbook;

namespace {

QString kindAndValue(const CellValue &value)
{
    if (const auto *text = std::get_if<QString>(&value))
        return text->isEmpty() ? QStringLiteral("empty") : QStringLiteral("text ") + *text;
    if (const auto *number = std::get_if<double>(&value))
        return QStringLiteral("number ") + QString::number(*number, 'g', 17);
    if (const auto *flag = std::get_if<bool>(&value))
        return QStringLiteral("boolean ") + (*flag ? QStringLiteral("TRUE") : QStringLiteral("FALSE"));
    if (const auto *error = std::get_if<CellErrorValue>(&value))
        return QStringLiteral("error ") + error->code;
    return QStringLiteral("empty");
}

std::string cellName(const char *sheet, int row, int column)
{
    return std::string(sheet) + "!" + cellAddress(row, column).toStdString();
}

class XlsSampleTest : public testing::TestWithParam<test::XlsSample>
{
protected:
    std::unique_ptr<Workbook> original() const
    {
        return Workbook::fromBytes(estimateWorkbookBytes(test::templateBytes(), GetParam().session));
    }
    QString xlsPath() const { return QDir(test::xlsSampleFolder()).filePath(GetParam().name + QStringLiteral(".xls")); }
};

} // namespace

TEST_P(XlsSampleTest, EveryCellOfTheDataSheetsHasTheSameValueAndKind)
{
    auto xlsx = original();
    auto xls = XlsBook::open(xlsPath());
    for (const char *name : {"D", "P"}) {
        const Worksheet *expected = xlsx->sheet(QString::fromLatin1(name));
        const SheetCells *actual = xls->cells(QString::fromLatin1(name));
        ASSERT_TRUE(expected && actual) << name;
        const auto corner = parseCellAddress(expected->usedRange().split(':').last());
        ASSERT_TRUE(corner);
        // One row and column beyond the used range: nothing may appear there either.
        for (int row = 1; row <= corner->row + 1; ++row)
            for (int column = 1; column <= corner->column + 1; ++column)
                ASSERT_EQ(kindAndValue(actual->value(row, column)), kindAndValue(expected->value(row, column)))
                    << cellName(name, row, column);
    }
}

TEST_P(XlsSampleTest, ReadsBackTheEstimateThatWasSaved)
{
    auto xlsx = original();
    Session fromXlsx;
    readEstimate(*xlsx, fromXlsx);
    auto xls = openForReading(xlsPath());
    Session fromXls;
    readEstimate(*xls, fromXls);
    EXPECT_EQ(test::storedFields(fromXls), test::storedFields(fromXlsx));
    EXPECT_EQ(fromXls.rows.size(), GetParam().session.rows.size());
    EXPECT_EQ(fromXls.paint.rows.size(), GetParam().session.paint.rows.size());
}

INSTANTIATE_TEST_SUITE_P(Samples, XlsSampleTest, testing::ValuesIn(test::xlsSamples()),
                         [](const testing::TestParamInfo<test::XlsSample> &info) { return info.param.name.toStdString(); });

TEST(XlsSamples, CoverTheFullEstimateEveryKindAndTheAwkwardValues)
{
    const auto samples = test::xlsSamples();
    const auto full = std::find_if(samples.begin(), samples.end(), [](const auto &s) { return s.name == "full"; });
    ASSERT_NE(full, samples.end());
    EXPECT_EQ(full->session.rows.size(), 394);
    EXPECT_EQ(full->session.paint.rows.size(), 73);
    QSet<int> kinds;
    for (const auto &s : samples)
        kinds.insert(s.session.header.documentKind);
    EXPECT_EQ(kinds.size(), 7);
}

TEST(XlsReader, TellsTheFormatsApartByTheirFirstBytes)
{
    const QString xls = QDir(test::xlsSampleFolder()).filePath(QStringLiteral("texts.xls"));
    auto book = openForReading(xls);
    EXPECT_NE(dynamic_cast<XlsBook *>(book.get()), nullptr);
    const SheetCells *d = book->cells(QStringLiteral("D"));
    ASSERT_TRUE(d);
    EXPECT_EQ(kindAndValue(d->value(3, 11)), QStringLiteral("text 0012"));
    EXPECT_EQ(kindAndValue(d->value(1, 4)), QStringLiteral("text ﾔﾏﾀﾞ　ﾀﾛｳ \"様\" 'A'"));
}

// The fuzzing seed made by hand (fuzz/corpus/fuzz_xls): a BOOLERR cell and a formula with a
// boolean result, which FreeXL itself reports as the number 1 and not at all.
TEST(XlsReader, HandMadeRecordsKeepTheirKinds)
{
    auto book = XlsBook::open(QStringLiteral(ESTIMATE_FUZZ_CORPUS "/fuzz_xls/small-estimate.xls"));
    EXPECT_EQ(book->sheetNames(), (QStringList{"D", "P"}));
    const SheetCells *d = book->cells(QStringLiteral("D"));
    ASSERT_TRUE(d);
    EXPECT_EQ(kindAndValue(d->value(1, 1)), QStringLiteral("text 123456789"));
    EXPECT_EQ(kindAndValue(d->value(1, 2)), QStringLiteral("text お見積書"));
    EXPECT_EQ(kindAndValue(d->value(1, 12)), QStringLiteral("boolean TRUE"));
    EXPECT_EQ(kindAndValue(d->value(2, 5)), QStringLiteral("boolean FALSE"));
    EXPECT_EQ(kindAndValue(d->value(2, 13)), QStringLiteral("number 2147483647"));
    EXPECT_EQ(kindAndValue(d->value(2, 1)), QStringLiteral("number 3"));
    EXPECT_EQ(kindAndValue(d->value(3, 11)), QStringLiteral("text 0012"));
    EXPECT_EQ(kindAndValue(d->value(13, 1)), QStringLiteral("empty"));
    EXPECT_EQ(kindAndValue(book->cells(QStringLiteral("P"))->value(1, 2)), QStringLiteral("boolean FALSE"));
    EXPECT_EQ(book->cells(QStringLiteral("E")), nullptr);
}
