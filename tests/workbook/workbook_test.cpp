// The .xlsx engine on real packages: the default template, hand-made packages in the shapes
// other programs write, and damaged or hostile ones.

#include "package_builder.h"
#include "sample_estimate.h"
#include "workbook/default_template.h"
#include "workbook/workbook.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace est;
using namespace est::workbook;
using est::test::templateBytes;

namespace {

QByteArray partOf(const QByteArray &zip, const QString &name)
{
    for (const auto &[n, data] : test::unzipParts(zip))
        if (n == name)
            return data;
    return {};
}

ErrorKind errorOf(const std::function<void()> &f)
{
    try {
        f();
    } catch (const WorkbookError &e) {
        return e.kind();
    }
    ADD_FAILURE() << "no error";
    return ErrorKind::FileMissing;
}

} // namespace

TEST(CellAddress, ConvertsBothWays)
{
    struct Case
    {
        const char *text;
        int row, column;
    };
    for (const Case &c : {Case{"A1", 1, 1}, Case{"Z9", 9, 26}, Case{"AA10", 10, 27}, Case{"AE2", 2, 31},
                          Case{"XFD1048576", 1048576, 16384}}) {
        const auto a = parseCellAddress(c.text);
        ASSERT_TRUE(a) << c.text;
        EXPECT_EQ(a->row, c.row);
        EXPECT_EQ(a->column, c.column);
        EXPECT_EQ(cellAddress(c.row, c.column), QByteArray(c.text));
    }
    for (const char *bad : {"", "A", "1", "A0", "XFE1", "A1048577", "A-1", "1A", "A1B", "AAAAAAAAAAA1"})
        EXPECT_FALSE(parseCellAddress(bad)) << bad;
}

TEST(Template, HasDataAndPrintSheets)
{
    auto book = Workbook::fromBytes(templateBytes());
    const QStringList names = book->sheetNames();
    for (const char *name : {"D", "P", "PaintA", "PrintMainA", "PaintB", "PrintMain B", "PrintSub"})
        EXPECT_TRUE(names.contains(QString::fromUtf8(name))) << name;
    EXPECT_EQ(cellText(book->sheet(QStringLiteral("P"))->value(12, 1)), QStringLiteral("塗装作業内容"));
    EXPECT_EQ(book->sheet(QStringLiteral("NoSuchSheet")), nullptr);
}

TEST(Cells, TypedValuesSurviveSaveAndReopen)
{
    auto book = Workbook::fromBytes(templateBytes());
    Worksheet *d = book->sheet(QStringLiteral("D"));
    const QStringList texts = {
        QStringLiteral("0012"), QStringLiteral("見積書　全角"), QStringLiteral(" lead and trail "),
        QStringLiteral("<a & b> \"q\" 'x'"), QStringLiteral("line\nbreak"), QStringLiteral("cr\r\nlf"),
        QStringLiteral("ctl\x01\x1f"), QStringLiteral("_x0041_ literal"), QString(), QStringLiteral("1.50"),
        QStringLiteral("double  space"), QStringLiteral("tab\tin"), QStringLiteral("😀 astral"),
    };
    for (int i = 0; i < texts.size(); ++i)
        d->setText(30, i + 1, texts.at(i));
    d->setInt16(31, 1, -32768);
    d->setInt16(31, 2, 32767);
    d->setInt32(31, 3, std::numeric_limits<std::int32_t>::min());
    d->setInt32(31, 4, std::numeric_limits<std::int32_t>::max());
    d->setBool(31, 5, true);
    d->setBool(31, 6, false);
    // Overwriting changes the type.
    d->setText(31, 7, QStringLiteral("was text"));
    d->setInt32(31, 7, 7);

    auto again = Workbook::fromBytes(book->toBytes());
    Worksheet *r = again->sheet(QStringLiteral("D"));
    for (int i = 0; i < texts.size(); ++i)
        EXPECT_EQ(r->value(30, i + 1), CellValue(texts.at(i))) << i;
    EXPECT_EQ(r->value(31, 1), CellValue(-32768.0));
    EXPECT_EQ(r->value(31, 2), CellValue(32767.0));
    EXPECT_EQ(r->value(31, 3), CellValue(-2147483648.0));
    EXPECT_EQ(r->value(31, 4), CellValue(2147483647.0));
    EXPECT_EQ(r->value(31, 5), CellValue(true));
    EXPECT_EQ(r->value(31, 6), CellValue(false));
    EXPECT_EQ(r->value(31, 7), CellValue(7.0));
    EXPECT_EQ(r->value(99, 99), CellValue(std::monostate{}));
}

TEST(Cells, WritesInAnyOrderKeepRowsAndCellsOrdered)
{
    auto book = Workbook::fromBytes(templateBytes());
    Worksheet *d = book->sheet(QStringLiteral("D"));
    d->setInt32(50, 3, 3);
    d->setInt32(7, 2, 2);
    d->setInt32(50, 1, 1);
    d->setInt32(7, 28, 28);
    const QByteArray bytes = book->toBytes();
    // The reader refuses rows or cells out of order, so reading proves the order.
    auto again = Workbook::fromBytes(bytes);
    EXPECT_EQ(cellInt32(again->sheet(QStringLiteral("D"))->value(50, 1)), 1);
    EXPECT_EQ(cellInt32(again->sheet(QStringLiteral("D"))->value(7, 28)), 28);
    const QByteArray sheetXml = partOf(bytes, QStringLiteral("xl/worksheets/sheet6.xml"));
    EXPECT_TRUE(sheetXml.contains("<dimension ref=\"A7:AB50\"/>")) << sheetXml.left(400).constData();
}

TEST(Cells, TextFormatOnlyWhereAsked)
{
    auto book = Workbook::fromBytes(templateBytes());
    Worksheet *d = book->sheet(QStringLiteral("D"));
    d->setNumberFormat(3, 11, QStringLiteral("@"));
    d->setText(3, 11, QStringLiteral("0012"));
    d->setText(3, 12, QStringLiteral("0013"));
    d->setNumberFormat(4, 1, QStringLiteral("0.000"));
    auto again = Workbook::fromBytes(book->toBytes());
    Worksheet *r = again->sheet(QStringLiteral("D"));
    EXPECT_EQ(r->numberFormat(3, 11), QStringLiteral("@"));
    EXPECT_EQ(r->numberFormat(3, 12), QStringLiteral("General"));
    EXPECT_EQ(r->numberFormat(4, 1), QStringLiteral("0.000"));
    EXPECT_EQ(r->value(3, 11), CellValue(QStringLiteral("0012")));
}

TEST(Package, UntouchedPartsAreCopiedByteForByteAndRecalculationIsAsked)
{
    const QByteArray original = templateBytes();
    auto book = Workbook::fromBytes(original);
    book->sheet(QStringLiteral("D"))->setText(1, 1, QStringLiteral("x"));
    const QByteArray saved = book->toBytes();
    int compared = 0;
    for (const auto &[name, data] : test::unzipParts(original)) {
        if (name == QLatin1String("xl/worksheets/sheet6.xml") || name == QLatin1String("xl/workbook.xml"))
            continue;
        EXPECT_EQ(test::rawEntry(saved, name), test::rawEntry(original, name)) << name.toStdString();
        ++compared;
    }
    EXPECT_GT(compared, 8);
    EXPECT_TRUE(partOf(saved, QStringLiteral("xl/workbook.xml")).contains("fullCalcOnLoad=\"1\""));
}

TEST(Package, CalculationChainIsDropped)
{
    test::Parts parts = test::minimalWorkbook({{QStringLiteral("D"), "<row r=\"1\"><c r=\"A1\"><f>1+1</f><v>2</v></c></row>"}});
    parts[0].second.replace("</Types>", "<Override PartName=\"/xl/calcChain.xml\" ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.calcChain+xml\"/></Types>");
    parts[3].second.replace("</Relationships>", "<Relationship Id=\"rIdCalc\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/calcChain\" Target=\"calcChain.xml\"/></Relationships>");
    parts.append({QStringLiteral("xl/calcChain.xml"), "<calcChain xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><c r=\"A1\" i=\"1\"/></calcChain>"});
    auto book = Workbook::fromBytes(test::zipParts(parts));
    book->sheet(QStringLiteral("D"))->setInt32(2, 1, 5);
    const QByteArray saved = book->toBytes();
    EXPECT_TRUE(partOf(saved, QStringLiteral("xl/calcChain.xml")).isEmpty());
    EXPECT_FALSE(partOf(saved, QStringLiteral("[Content_Types].xml")).contains("calcChain"));
    EXPECT_FALSE(partOf(saved, QStringLiteral("xl/_rels/workbook.xml.rels")).contains("calcChain"));
    EXPECT_EQ(cellInt32(Workbook::fromBytes(saved)->sheet(QStringLiteral("D"))->value(1, 1)), 2);
}

TEST(Package, StaleFormulaResultsAreDroppedOutsideTheDataSheets)
{
    const QByteArray withResult = "<row r=\"1\"><c r=\"A1\" t=\"str\"><f>D!A1&amp;\"\"</f><v>old</v></c></row>";
    const QByteArray plain = "<row r=\"1\"><c r=\"A1\"><v>5</v></c></row>";
    const QByteArray original = test::zipParts(test::minimalWorkbook(
        {{QStringLiteral("Print"), withResult}, {QStringLiteral("Other"), plain}, {QStringLiteral("D"), withResult}}));
    auto book = Workbook::fromBytes(original);
    book->clearFormulaResults({QStringLiteral("D")});
    const QByteArray saved = book->toBytes();
    const QByteArray print = partOf(saved, QStringLiteral("xl/worksheets/sheet1.xml"));
    EXPECT_TRUE(print.contains("<c r=\"A1\"><f>D!A1&amp;\"\"</f></c>")) << print.constData();
    EXPECT_EQ(test::rawEntry(saved, QStringLiteral("xl/worksheets/sheet2.xml")),
              test::rawEntry(original, QStringLiteral("xl/worksheets/sheet2.xml")));
    EXPECT_EQ(test::rawEntry(saved, QStringLiteral("xl/worksheets/sheet3.xml")),
              test::rawEntry(original, QStringLiteral("xl/worksheets/sheet3.xml")));
}

// Values as other programs store them: shared strings with runs and phonetic guides,
// formula results, booleans as formulas, implied addresses, prefixed element names.
TEST(Reading, ValuesInTheShapesOtherProgramsWrite)
{
    const QByteArray strings =
        "<sst xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" count=\"3\" uniqueCount=\"3\">"
        "<si><t>0012</t></si>"
        "<si><r><t>見積</t></r><r><rPr><b/></rPr><t>書</t></r><rPh sb=\"0\" eb=\"2\"><t>ミツモリ</t></rPh></si>"
        "<si><t xml:space=\"preserve\"> a_x000D_b </t></si></sst>";
    const QByteArray data =
        "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" t=\"s\"><v>1</v></c><c r=\"C1\" t=\"s\"><v>2</v></c>"
        "<c r=\"D1\" t=\"b\"><f>TRUE()</f><v>1</v></c><c r=\"E1\" t=\"str\"><f>\"x\"&amp;\"y\"</f><v>xy</v></c>"
        "<c r=\"F1\" t=\"e\"><v>#N/A</v></c><c r=\"G1\" t=\"s\"><v>99</v></c><c r=\"H1\"><v>1.5</v></c></row>"
        "<row><c><v>7</v></c><c t=\"inlineStr\"><is><t>implied</t></is></c></row>";
    auto book = Workbook::fromBytes(test::zipParts(test::minimalWorkbook({{QStringLiteral("D"), data}}, strings)));
    Worksheet *d = book->sheet(QStringLiteral("D"));
    EXPECT_EQ(d->value(1, 1), CellValue(QStringLiteral("0012")));
    EXPECT_EQ(d->value(1, 2), CellValue(QStringLiteral("見積書")));
    EXPECT_EQ(d->value(1, 3), CellValue(QStringLiteral(" a\rb ")));
    EXPECT_EQ(d->value(1, 4), CellValue(true));
    EXPECT_EQ(d->value(1, 5), CellValue(QStringLiteral("xy")));
    EXPECT_EQ(d->value(1, 6), CellValue(CellErrorValue{QStringLiteral("#N/A")}));
    EXPECT_EQ(d->value(1, 7), CellValue(std::monostate{}));
    EXPECT_EQ(d->value(1, 8), CellValue(1.5));
    EXPECT_EQ(d->value(2, 1), CellValue(7.0));
    EXPECT_EQ(d->value(2, 2), CellValue(QStringLiteral("implied")));
}

TEST(Reading, PrefixedElementNames)
{
    test::Parts parts = test::minimalWorkbook({{QStringLiteral("D"), ""}});
    parts[5].second = "<x:worksheet xmlns:x=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><x:sheetData>"
                      "<x:row r=\"2\"><x:c r=\"B2\"><x:v>4</x:v></x:c></x:row></x:sheetData></x:worksheet>";
    auto book = Workbook::fromBytes(test::zipParts(parts));
    Worksheet *d = book->sheet(QStringLiteral("D"));
    EXPECT_EQ(cellInt32(d->value(2, 2)), 4);
    d->setText(1, 1, QStringLiteral("new"));
    const QByteArray saved = book->toBytes();
    EXPECT_TRUE(partOf(saved, QStringLiteral("xl/worksheets/sheet1.xml")).contains("<x:row r=\"1\"><x:c r=\"A1\" t=\"inlineStr\"><x:is><x:t>new</x:t>"));
    EXPECT_EQ(Workbook::fromBytes(saved)->sheet(QStringLiteral("D"))->value(1, 1), CellValue(QStringLiteral("new")));
}

TEST(Conversions, LikeASpreadsheetMacro)
{
    EXPECT_EQ(cellText(CellValue(123.0)), QStringLiteral("123"));
    EXPECT_EQ(cellText(CellValue(1.5)), QStringLiteral("1.5"));
    EXPECT_EQ(cellText(CellValue(std::monostate{})), QString());
    EXPECT_EQ(cellInt16(CellValue(2.5)), std::int16_t(2));
    EXPECT_EQ(cellInt16(CellValue(32768.0)), std::nullopt);
    EXPECT_EQ(cellInt16(CellValue(QStringLiteral("1,234"))), std::int16_t(1234));
    EXPECT_EQ(cellInt16(CellValue(std::monostate{})), std::int16_t(0));
    EXPECT_EQ(cellInt32(CellValue(QStringLiteral("abc"))), std::nullopt);
    EXPECT_EQ(cellInt32(CellValue(3e9)), std::nullopt);
    EXPECT_EQ(cellBool(CellValue(QStringLiteral("TRUE"))), true);
    EXPECT_EQ(cellBool(CellValue(0.0)), false);
    EXPECT_EQ(cellBool(CellValue(QStringLiteral("maybe"))), std::nullopt);
    EXPECT_EQ(cellBool(CellValue(CellErrorValue{QStringLiteral("#REF!")})), std::nullopt);
}

TEST(Saving, AnInterruptedSaveKeepsThePreviousFile)
{
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("240105A.xlsx"));
    {
        auto book = Workbook::fromBytes(templateBytes());
        book->sheet(QStringLiteral("D"))->setText(1, 1, QStringLiteral("previous"));
        book->save(target);
    }
    QFile f(target);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray previous = f.readAll();
    f.close();

    struct Case
    {
        SaveStep step;
        const char *part;   // for BuildPackage: the part whose step fails ("" = the end)
    };
    for (const Case &c : {Case{SaveStep::BuildPackage, "xl/worksheets/sheet6.xml"},
                          Case{SaveStep::BuildPackage, "xl/workbook.xml"}, Case{SaveStep::BuildPackage, ""},
                          Case{SaveStep::OpenTemporary, ""}, Case{SaveStep::Write, ""}, Case{SaveStep::Commit, ""}}) {
        auto book = Workbook::fromBytes(templateBytes());
        book->sheet(QStringLiteral("D"))->setText(1, 1, QStringLiteral("next"));
        const auto fault = [&](SaveStep step, const QString &part) {
            return step == c.step && (step != SaveStep::BuildPackage || part == QLatin1String(c.part));
        };
        EXPECT_EQ(errorOf([&] { book->save(target, fault); }), ErrorKind::WriteFailed) << int(c.step) << c.part;
        QFile again(target);
        ASSERT_TRUE(again.open(QIODevice::ReadOnly));
        EXPECT_EQ(again.readAll(), previous);
        EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("240105A.xlsx")});
    }
}

TEST(Saving, UnwritableTargetIsReported)
{
    auto book = Workbook::fromBytes(templateBytes());
    EXPECT_EQ(errorOf([&] { book->save(QStringLiteral("/nonexistent-folder/x.xlsx")); }), ErrorKind::WriteFailed);
}

// Files that are not workbooks, or damaged or hostile ones, give an error of the right kind.
struct BadPackage
{
    const char *name;
    std::function<QByteArray()> make;
    ErrorKind expected;
};

class BadPackages : public testing::TestWithParam<BadPackage>
{
};

TEST_P(BadPackages, AreRefusedWithAnError)
{
    const BadPackage &p = GetParam();
    EXPECT_EQ(errorOf([&] {
                  auto book = Workbook::fromBytes(p.make());
                  if (Worksheet *d = book->sheet(QStringLiteral("D")))
                      cellText(d->value(1, 1));
              }),
              p.expected);
}

namespace {
QByteArray withSheet(const QByteArray &sheetXml)
{
    test::Parts parts = test::minimalWorkbook({{QStringLiteral("D"), ""}});
    parts[5].second = sheetXml;
    return test::zipParts(parts);
}
QByteArray withSheetData(const QByteArray &data)
{
    return test::zipParts(test::minimalWorkbook({{QStringLiteral("D"), data}}));
}
} // namespace

INSTANTIATE_TEST_SUITE_P(
    Workbook, BadPackages,
    testing::Values(
        BadPackage{"Empty", [] { return QByteArray(); }, ErrorKind::NotAWorkbook},
        BadPackage{"Text", [] { return QByteArray("見積書ではありません"); }, ErrorKind::NotAWorkbook},
        BadPackage{"Truncated", [] { return templateBytes().left(templateBytes().size() / 2); }, ErrorKind::Damaged},
        BadPackage{"ZipWithoutWorkbook",
                   [] { return test::zipParts({{QStringLiteral("readme.txt"), "hello"}}); }, ErrorKind::NotAWorkbook},
        BadPackage{"ZipBomb",
                   [] {
                       test::Parts parts = test::minimalWorkbook({{QStringLiteral("D"), ""}});
                       parts[5].second = QByteArray(64 * 1024 * 1024, ' ');
                       return test::zipParts(parts);
                   },
                   ErrorKind::TooLarge},
        BadPackage{"DoctypeAndBrokenXml",
                   [] {
                       return withSheet("<?xml version=\"1.0\"?><!DOCTYPE lolz [<!ENTITY lol \"lol\">"
                                        "<!ENTITY lol2 \"&lol;&lol;&lol;&lol;&lol;&lol;&lol;&lol;\">]>"
                                        "<worksheet><sheetData><row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t>&lol2;</t></is></c></row>"
                                        "</sheetData></worksheet><broken");
                   },
                   ErrorKind::Damaged},
        BadPackage{"TooManyParts",
                   [] {
                       test::Parts parts = test::minimalWorkbook({{QStringLiteral("D"), ""}});
                       for (int i = 0; i < 2100; ++i)
                           parts.append({QStringLiteral("junk/%1.bin").arg(i), QByteArray("x")});
                       return test::zipParts(parts);
                   },
                   ErrorKind::TooLarge},
        BadPackage{"HugeRowNumber", [] { return withSheetData("<row r=\"99999999999\"><c><v>1</v></c></row>"); },
                   ErrorKind::Damaged},
        BadPackage{"HugeColumn", [] { return withSheetData("<row r=\"1\"><c r=\"ZZZZ1\"><v>1</v></c></row>"); },
                   ErrorKind::Damaged},
        BadPackage{"RowsOutOfOrder",
                   [] { return withSheetData("<row r=\"5\"/><row r=\"2\"><c r=\"A2\"><v>1</v></c></row>"); },
                   ErrorKind::Damaged},
        BadPackage{"CellInWrongRow", [] { return withSheetData("<row r=\"1\"><c r=\"A2\"><v>1</v></c></row>"); },
                   ErrorKind::Damaged},
        BadPackage{"NotXml", [] { return withSheet("\x01\x02 not xml <<<"); }, ErrorKind::Damaged},
        BadPackage{"NoSheetData", [] { return withSheet("<worksheet/>"); }, ErrorKind::Damaged},
        BadPackage{"MissingSheetPart",
                   [] {
                       test::Parts parts = test::minimalWorkbook({{QStringLiteral("D"), ""}});
                       parts.removeLast();
                       return test::zipParts(parts);
                   },
                   ErrorKind::Damaged}),
    [](const testing::TestParamInfo<BadPackage> &info) { return std::string(info.param.name); });

TEST(Reading, EntitiesAreNotExpanded)
{
    const QByteArray bytes = withSheet(
        "<?xml version=\"1.0\"?><!DOCTYPE w [<!ENTITY big \"AAAAAAAAAA\">]><worksheet><sheetData>"
        "<row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t>&big;&amp;</t></is></c></row></sheetData></worksheet>");
    auto book = Workbook::fromBytes(bytes);
    const QString text = cellText(book->sheet(QStringLiteral("D"))->value(1, 1));
    EXPECT_FALSE(text.contains(QStringLiteral("AAAA")));
    EXPECT_TRUE(text.endsWith(QLatin1Char('&')));
}

TEST(Reading, MissingFileAndOversizedFile)
{
    QTemporaryDir dir;
    EXPECT_EQ(errorOf([&] { Workbook::open(dir.filePath(QStringLiteral("none.xlsx"))); }), ErrorKind::FileMissing);
    const QString big = dir.filePath(QStringLiteral("big.xlsx"));
    QFile f(big);
    f.open(QIODevice::WriteOnly);
    f.resize(2 * 1024 * 1024);
    f.close();
    Limits small;
    small.maxFileBytes = 1024 * 1024;
    EXPECT_EQ(errorOf([&] { Workbook::open(big, small); }), ErrorKind::TooLarge);
}
