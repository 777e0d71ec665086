// The default template's print sheets: every caption of the vehicle block has room for its
// text (a full-width character takes about two units of column width).

#include "package_builder.h"
#include "sample_estimate.h"
#include "workbook/print_fit.h"
#include "workbook/workbook.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

#include <map>

using namespace est;
using namespace est::workbook;

namespace {

// Column widths and merged ranges of one sheet's XML.
struct SheetGeometry
{
    std::map<int, double> widths;
    QList<QPair<CellAddress, CellAddress>> merges;

    double widthOf(int column) const
    {
        const auto it = widths.find(column);
        return it == widths.end() ? 8.43 : it->second;
    }
    // The width of the cell, or of the merged range it starts.
    double cellWidth(int row, int column) const
    {
        for (const auto &[from, to] : merges)
            if (from.row == row && from.column == column) {
                double sum = 0;
                for (int c = from.column; c <= to.column; ++c)
                    sum += widthOf(c);
                return sum;
            }
        return widthOf(column);
    }
};

SheetGeometry geometryOf(const QByteArray &xml)
{
    SheetGeometry g;
    static const QRegularExpression col(QStringLiteral("<col min=\"(\\d+)\" max=\"(\\d+)\" width=\"([0-9.]+)\""));
    for (const auto &m : col.globalMatch(QString::fromUtf8(xml)))
        for (int c = m.captured(1).toInt(); c <= m.captured(2).toInt(); ++c)
            g.widths[c] = m.captured(3).toDouble();
    static const QRegularExpression merge(QStringLiteral("<mergeCell ref=\"([A-Z]+[0-9]+):([A-Z]+[0-9]+)\""));
    for (const auto &m : merge.globalMatch(QString::fromUtf8(xml)))
        g.merges.append({*parseCellAddress(m.captured(1).toLatin1()), *parseCellAddress(m.captured(2).toLatin1())});
    return g;
}

} // namespace

TEST(TemplateLayout, VehicleCaptionsFitTheirCells)
{
    const QByteArray bytes = test::templateBytes();
    auto book = Workbook::fromBytes(bytes);
    const test::Parts parts = test::unzipParts(bytes);
    const QStringList captions = {QStringLiteral("車名"),     QStringLiteral("登録番号"), QStringLiteral("型式"),
                                  QStringLiteral("車台番号"), QStringLiteral("初度登録"), QStringLiteral("走行距離"),
                                  QStringLiteral("カラー"),   QStringLiteral("類別"),     QStringLiteral("エンジン")};
    // The two main print sheets are the first and third sheets of the template.
    for (const auto &[sheetName, part] : {std::pair{"PrintMainA", "xl/worksheets/sheet1.xml"},
                                          std::pair{"PrintMain B", "xl/worksheets/sheet3.xml"}}) {
        Worksheet *sheet = book->sheet(QString::fromUtf8(sheetName));
        ASSERT_TRUE(sheet);
        QByteArray xml;
        for (const auto &[name, data] : parts)
            if (name == QLatin1String(part))
                xml = data;
        const SheetGeometry geometry = geometryOf(xml);
        int found = 0;
        for (int row = 1; row <= 20; ++row)
            for (int column = 1; column <= 12; ++column) {
                const QString text = cellText(sheet->value(row, column));
                if (!captions.contains(text))
                    continue;
                ++found;
                EXPECT_GE(geometry.cellWidth(row, column), 2.0 * double(text.size()) + 1.0)
                    << sheetName << " " << text.toStdString();
            }
        EXPECT_EQ(found, captions.size()) << sheetName;
    }
}

// What a print sheet's formula reads of the data sheets, for fitting the sheet to an estimate.
struct ReferenceCase
{
    const char *formula;
    const char *expected; // "D A6 P B20", "" for none
};

class DataReferences : public testing::TestWithParam<ReferenceCase>
{};

TEST_P(DataReferences, AreFoundWhereverTheFormulaNamesThem)
{
    QStringList found;
    for (const DataReference &r : dataReferences(QString::fromUtf8(GetParam().formula)))
        found << QString(QLatin1Char(r.sheet)) << QString::fromLatin1(cellAddress(r.cell.row, r.cell.column));
    EXPECT_EQ(found.join(QLatin1Char(' ')), QString::fromUtf8(GetParam().expected)) << GetParam().formula;
}

INSTANTIATE_TEST_SUITE_P(
    Formulas, DataReferences,
    testing::Values(ReferenceCase{"D!A6", "D A6"}, ReferenceCase{"='P'!$B$20", "P B20"},
                    ReferenceCase{"IF(D!K6=\"\",\"\",D!K6*P!C12)", "D K6 D K6 P C12"},
                    ReferenceCase{"SUM(D!A6:D!A9)", "D A6 D A9"}, ReferenceCase{"D!A6:B9", "D A6"},
                    ReferenceCase{"ABD!A6+XP!B2+_D!C3+1.D!E4", ""}, ReferenceCase{"'見積D'!A6", ""},
                    ReferenceCase{"x'D!A1", "D A1"}, ReferenceCase{"D!XFD1048576", "D XFD1048576"},
                    ReferenceCase{"D!XFE1+D!A0+D!ABCD1+D!a1+D!$$A1", ""}, ReferenceCase{"D!A12345678", ""},
                    ReferenceCase{"Q!A1+D1+\"D!\"", ""}, ReferenceCase{"!D!!P!A1", "P A1"},
                    ReferenceCase{"D!", ""}, ReferenceCase{"", ""}));
