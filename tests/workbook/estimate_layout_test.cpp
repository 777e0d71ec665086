// The cells of an estimate workbook: every value where it belongs, with its type, and every
// estimate read back unchanged.

#include "package_builder.h"
#include "sample_estimate.h"
#include "workbook/default_template.h"
#include "sheet/document_kind.h"
#include "workbook/estimate_layout.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace est;
using namespace est::workbook;
using est::test::templateBytes;

namespace {

QByteArray saved(const Session &s)
{
    auto book = Workbook::fromBytes(templateBytes());
    writeEstimate(*book, s);
    return book->toBytes();
}

Session reread(const QByteArray &bytes, Session into = Session())
{
    auto book = Workbook::fromBytes(bytes);
    readEstimate(*book, into);
    return into;
}

void expectSameFields(const Session &expected, const Session &actual)
{
    const QStringList a = test::storedFields(expected);
    const QStringList b = test::storedFields(actual);
    ASSERT_EQ(a.size(), b.size());
    for (int i = 0; i < a.size(); ++i)
        ASSERT_EQ(a.at(i), b.at(i));
}

} // namespace

TEST(EstimateRoundTrip, FullEstimateReadsBackUnchanged)
{
    const Session full = test::fullEstimate();
    ASSERT_EQ(full.rows.size(), kMaxEstimateRows);
    ASSERT_EQ(full.paint.rows.size(), 73);
    expectSameFields(full, reread(saved(full)));
}

class RandomEstimates : public testing::TestWithParam<int>
{
};

TEST_P(RandomEstimates, ReadBackUnchanged)
{
    for (int i = 0; i < 25; ++i) {
        const std::uint32_t seed = std::uint32_t(GetParam() * 1000 + i);
        SCOPED_TRACE(seed);
        const Session s = test::randomEstimate(seed);
        expectSameFields(s, reread(saved(s)));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEstimates, testing::Range(1, 9));

TEST(EstimateCells, TypesAndAddresses)
{
    Session s = test::fullEstimate(7);
    s.company[10] = QStringLiteral("0012");
    s.header.customerCompany = QStringLiteral("株式会社テスト");
    auto book = Workbook::fromBytes(saved(s));
    Worksheet *d = book->sheet(QStringLiteral("D"));
    Worksheet *p = book->sheet(QStringLiteral("P"));
    EXPECT_EQ(d->value(3, 11), CellValue(QStringLiteral("0012")));
    EXPECT_EQ(d->numberFormat(3, 11), QStringLiteral("@"));
    EXPECT_EQ(d->numberFormat(3, 10), QStringLiteral("General"));
    EXPECT_EQ(d->value(1, 1), CellValue(s.slipNumber));
    EXPECT_EQ(d->value(1, 2), CellValue(sheet::documentKinds().at(s.header.documentKind)));
    EXPECT_EQ(d->value(1, 3), CellValue(QStringLiteral("御中")));
    EXPECT_EQ(d->value(1, 12), CellValue(true));
    EXPECT_EQ(d->value(1, 13), CellValue(double(s.totals.workTotalA)));
    EXPECT_EQ(d->value(2, 1), CellValue(double(kMaxEstimateRows - 1)));
    EXPECT_EQ(d->value(2, 7), CellValue(std::monostate{}));   // G2 is never written
    EXPECT_EQ(d->value(8, 12), CellValue(98.0));
    EXPECT_EQ(d->value(8, 13), CellValue(true));
    EXPECT_EQ(d->value(8, 14), CellValue(double(s.nonTaxable.sum)));
    EXPECT_EQ(d->value(10, 12), CellValue(QStringLiteral("1")));
    EXPECT_EQ(d->value(10, 13), CellValue(s.nonTaxable.names.at(0)));
    EXPECT_EQ(d->value(6, 1), CellValue(s.rows.at(0)[ColNo]));
    EXPECT_EQ(d->value(399, 11), CellValue(s.rows.at(393)[ColHidden]));
    // Column L of the rows is left alone by the row writer (L8 is the non-taxable count).
    for (int row : {6, 7, 9})
        EXPECT_EQ(d->value(row, 12), CellValue(std::monostate{})) << row;
    EXPECT_EQ(p->value(1, 1), CellValue(QStringLiteral("バンパ")));
    EXPECT_EQ(p->value(1, 2), CellValue(true));
    EXPECT_EQ(p->value(12, 2), CellValue(73.0));
    EXPECT_EQ(p->value(12, 7), CellValue(true));
    for (int c = 1; c <= 11; ++c) {
        EXPECT_EQ(p->value(11, c), p->value(16, c)) << c;
        EXPECT_EQ(p->value(11, c), CellValue(s.paint.lines.at(c - 1))) << c;
    }
    for (int row : {13, 14, 15, 17})
        for (int c = 1; c <= 11; ++c)
            EXPECT_EQ(p->value(row, c), CellValue(std::monostate{})) << row << "," << c;
    EXPECT_EQ(p->value(18, 3), CellValue(s.paint.rows.at(0)[ColPart]));
}

TEST(EstimateCells, EmptyListsStillWriteTheirCounts)
{
    Session s;
    auto book = Workbook::fromBytes(saved(s));
    Worksheet *d = book->sheet(QStringLiteral("D"));
    EXPECT_EQ(d->value(2, 1), CellValue(-1.0));
    EXPECT_EQ(d->value(8, 12), CellValue(-1.0));
    EXPECT_EQ(d->value(8, 13), CellValue(false));
    EXPECT_EQ(d->value(8, 14), CellValue(0.0));
    EXPECT_EQ(d->value(10, 12), CellValue(std::monostate{}));
    expectSameFields(reread(saved(s)), reread(saved(reread(saved(s)))));
}

TEST(EstimateCells, OneNonTaxableItemWritesRowTen)
{
    Session s;
    s.nonTaxable.names = {QStringLiteral("印紙代")};
    s.nonTaxable.amounts = {200};
    s.nonTaxable.count = 1;
    s.nonTaxable.sum = 200;
    s.nonTaxable.present = true;
    auto book = Workbook::fromBytes(saved(s));
    Worksheet *d = book->sheet(QStringLiteral("D"));
    EXPECT_EQ(d->value(8, 12), CellValue(0.0));
    EXPECT_EQ(d->value(10, 13), CellValue(QStringLiteral("印紙代")));
    EXPECT_EQ(d->value(10, 14), CellValue(QStringLiteral("200")));
    EXPECT_EQ(d->value(11, 13), CellValue(std::monostate{}));
}

// What reading does to the texts of a workbook changed by hand.
struct Reformat
{
    const char *cell;     // sheet D
    CellValue stored;
    int row, column;      // where the value lands: rows[row][column], or vehicle[9] for row -1
    const char *expected;
};

class Reformatting : public testing::TestWithParam<Reformat>
{
};

TEST_P(Reformatting, AppliesTheColumnFormat)
{
    const Reformat &r = GetParam();
    Session s;
    s.rows = {EstimateRow()};
    auto book = Workbook::fromBytes(saved(s));
    const auto address = parseCellAddress(r.cell);
    Worksheet *d = book->sheet(QStringLiteral("D"));
    if (const QString *text = std::get_if<QString>(&r.stored))
        d->setText(address->row, address->column, *text);
    else
        d->setInt32(address->row, address->column, std::int32_t(std::get<double>(r.stored)));
    const Session back = reread(book->toBytes());
    const QString actual = r.row < 0 ? back.vehicle.at(9) : back.rows.at(r.row).at(size_t(r.column));
    EXPECT_EQ(actual, QString::fromUtf8(r.expected));
}

INSTANTIATE_TEST_SUITE_P(
    Cells, Reformatting,
    testing::Values(Reformat{"F6", CellValue(QStringLiteral("1.5")), 0, ColIndex, "1.50"},
                    Reformat{"F6", CellValue(2.0), 0, ColIndex, "2.00"},
                    Reformat{"F6", CellValue(QStringLiteral("")), 0, ColIndex, ""},
                    Reformat{"F6", CellValue(QStringLiteral("abc")), 0, ColIndex, "abc"},
                    Reformat{"G6", CellValue(QStringLiteral("0")), 0, ColLabour, ""},
                    Reformat{"G6", CellValue(0.0), 0, ColLabour, ""},
                    Reformat{"G6", CellValue(QStringLiteral("1500")), 0, ColLabour, "1,500"},
                    Reformat{"H6", CellValue(1234567.0), 0, ColUnitPrice, "1,234,567"},
                    Reformat{"J6", CellValue(QStringLiteral("12,000")), 0, ColPartsAmount, "12,000"},
                    Reformat{"I6", CellValue(3.0), 0, ColQuantity, "3"},
                    Reformat{"D6", CellValue(QStringLiteral("0012")), 0, ColPartNumber, "0012"},
                    Reformat{"J5", CellValue(123.0), -1, 0, "00123"},
                    Reformat{"J5", CellValue(QStringLiteral("123")), -1, 0, "00123"},
                    Reformat{"J5", CellValue(QStringLiteral("")), -1, 0, ""}));

TEST(EstimateReading, RowTableSizedFromA2Only)
{
    Session s = test::randomEstimate(3);
    s.rows = {test::fullEstimate().rows.mid(0, 5)};
    auto book = Workbook::fromBytes(saved(s));
    book->sheet(QStringLiteral("D"))->setInt16(2, 1, 2);
    const Session back = reread(book->toBytes());
    ASSERT_EQ(back.rows.size(), 3);
    EXPECT_EQ(back.rows.at(2), s.rows.at(2));
}

TEST(EstimateReading, ValuesThatDoNotConvertKeepTheirTarget)
{
    Session s = test::randomEstimate(5);
    auto book = Workbook::fromBytes(saved(s));
    Worksheet *d = book->sheet(QStringLiteral("D"));
    d->setText(1, 16, QStringLiteral("abc"));   // P1 labour rate
    d->setInt32(1, 18, 99999);                  // R1 paint rate: beyond 16 bits
    Session into;
    into.labourRate = 11;
    into.paintLabourRate = 22;
    const Session back = reread(book->toBytes(), into);
    EXPECT_EQ(back.labourRate, 11);
    EXPECT_EQ(back.paintLabourRate, 22);
    EXPECT_EQ(back.header.customerName, s.header.customerName);
}

TEST(EstimateReading, SlipNumberReadsBackAsNineDigits)
{
    auto book = Workbook::fromBytes(saved(Session()));
    Worksheet *d = book->sheet(QStringLiteral("D"));
    d->setInt32(1, 1, 240105);
    EXPECT_EQ(reread(book->toBytes()).slipNumber, QStringLiteral("000240105"));
    d->setText(1, 1, QStringLiteral("12"));
    EXPECT_EQ(reread(book->toBytes()).slipNumber, QStringLiteral("000000012"));
}

TEST(EstimateReading, FiguresThatDoNotConvertKeepTheirTarget)
{
    Session s = test::randomEstimate(6);
    auto book = Workbook::fromBytes(saved(s));
    Worksheet *d = book->sheet(QStringLiteral("D"));
    for (const char *cell : {"F2", "J2", "M8", "N8"}) {
        const auto address = parseCellAddress(cell);
        d->setText(address->row, address->column, QStringLiteral("abc"));
    }
    Session into;
    into.figures.advance = QStringLiteral("1,000");
    into.figures.discountRate = QStringLiteral("5");
    into.nonTaxable.present = true;
    into.nonTaxable.sum = 300;
    const Session back = reread(book->toBytes(), into);
    EXPECT_EQ(back.figures.advance, QStringLiteral("1,000"));
    EXPECT_EQ(back.figures.discountRate, QStringLiteral("5"));
    EXPECT_EQ(back.figures.rememberedRate, QStringLiteral("5"));
    EXPECT_TRUE(back.nonTaxable.present);
    EXPECT_EQ(back.nonTaxable.sum, 300);
    EXPECT_EQ(back.figures.nonTaxable, QStringLiteral("300"));
    EXPECT_EQ(back.nonTaxable.names, s.nonTaxable.names);
}

struct BadCount
{
    const char *sheet;
    const char *cell;
    CellValue value;
};

class BadCounts : public testing::TestWithParam<BadCount>
{
};

TEST_P(BadCounts, LeaveTheSessionUntouched)
{
    const BadCount &b = GetParam();
    auto book = Workbook::fromBytes(saved(test::randomEstimate(9)));
    const auto address = parseCellAddress(b.cell);
    Worksheet *sheet = book->sheet(QString::fromUtf8(b.sheet));
    if (const QString *text = std::get_if<QString>(&b.value))
        sheet->setText(address->row, address->column, *text);
    else
        sheet->setInt32(address->row, address->column, std::int32_t(std::get<double>(b.value)));
    auto damaged = Workbook::fromBytes(book->toBytes());
    Session session = test::fullEstimate(2);
    const QStringList before = test::storedFields(session);
    try {
        readEstimate(*damaged, session);
        ADD_FAILURE() << "read";
    } catch (const WorkbookError &e) {
        EXPECT_EQ(e.kind(), ErrorKind::NotAnEstimate);
    }
    EXPECT_EQ(test::storedFields(session), before);
}

INSTANTIATE_TEST_SUITE_P(Cells, BadCounts,
                         testing::Values(BadCount{"D", "A2", CellValue(394.0)}, BadCount{"D", "A2", CellValue(-2.0)},
                                         BadCount{"D", "A2", CellValue(QStringLiteral("many"))},
                                         BadCount{"D", "A2", CellValue(30000.0)},
                                         BadCount{"D", "L8", CellValue(5000.0)},
                                         BadCount{"P", "B12", CellValue(-1.0)},
                                         BadCount{"P", "B12", CellValue(395.0)}));

TEST(EstimateReading, WorkbookWithoutDataSheetsIsNotAnEstimate)
{
    auto book = Workbook::fromBytes(test::zipParts(test::minimalWorkbook({{QStringLiteral("D"), ""}})));
    Session s;
    EXPECT_THROW(readEstimate(*book, s), WorkbookError);
    EXPECT_THROW(writeEstimate(*book, s), WorkbookError);
}

// Every fixed cell of both sheets carries its value type: T text, N number (16- or 32-bit
// integer), B boolean, - not written.
struct CellTypes
{
    const char *sheet;
    int row;
    const char *types;   // one letter per column from A
};

class FixedCellTypes : public testing::TestWithParam<CellTypes>
{
};

TEST_P(FixedCellTypes, AreKept)
{
    const CellTypes &t = GetParam();
    Session s = test::fullEstimate(7);
    s.header.customerCompany = QStringLiteral("株式会社テスト");
    s.header.memo = QStringLiteral("備考");
    s.estimateDate = QStringLiteral("令和6年1月5日");
    s.figures.discountAmount = QStringLiteral("1,000");
    s.fileNameText = QStringLiteral("ABC");
    s.paint.highFunctionBaseIndex = QStringLiteral("1.2");
    s.paint.highFunctionMaterialIndex = QStringLiteral("0.8");
    s.paint.vehicleClass = QStringLiteral("普通");
    s.paint.materialCoefficient = QStringLiteral("1.05");
    auto book = Workbook::fromBytes(saved(s));
    Worksheet *sheet = book->sheet(QString::fromLatin1(t.sheet));
    ASSERT_TRUE(sheet);
    const QByteArray types(t.types);
    for (int c = 0; c < types.size(); ++c) {
        const CellValue v = sheet->value(t.row, c + 1);
        SCOPED_TRACE(testing::Message() << t.sheet << "!" << char('A' + c) << t.row);
        switch (types.at(c)) {
        case 'T': EXPECT_TRUE(std::holds_alternative<QString>(v)); break;
        case 'N': EXPECT_TRUE(std::holds_alternative<double>(v)); break;
        case 'B': EXPECT_TRUE(std::holds_alternative<bool>(v)); break;
        default: EXPECT_TRUE(std::holds_alternative<std::monostate>(v)); break;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sheets, FixedCellTypes,
                         testing::Values(CellTypes{"D", 1, "TTTTTTTTTTTBNTNNTNT"},
                                         CellTypes{"D", 2, "NNNNBN-NNNNTTTTNN"},
                                         CellTypes{"D", 8, "TTTTTTTTTTTNBN"},
                                         CellTypes{"P", 1, "TBN"},
                                         CellTypes{"P", 3, "TBN"},
                                         CellTypes{"P", 10, "TN-TTTT"},
                                         CellTypes{"P", 12, "TNNNNTBT"}));
