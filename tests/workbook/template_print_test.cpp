// The default template's print sheets as LibreOffice computes and prints them: every total
// equals the estimate sheet's, no amount shows as "###", a short estimate prints on one page
// per print sheet without the data sheets, every non-taxable item is printed, and captions
// fit their cells. Skipped when LibreOffice is not installed.

#include "sample_estimate.h"
#include "scripted_messages.h"
#include "common/number_format.h"
#include "sheet/totals_chain.h"
#include "temp_app_folder.h"
#include "workbook/default_template.h"
#include "workbook/estimate_files.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace est;
using namespace est::workbook;

namespace {

QString soffice()
{
    return QStandardPaths::findExecutable(QStringLiteral("soffice"));
}

// Converts the workbooks with one LibreOffice run.
void convert(const QStringList &workbooks, const QString &filter, const QString &outDir)
{
    QTemporaryDir profile;
    QProcess p;
    p.start(soffice(), QStringList{QStringLiteral("-env:UserInstallation=file://") + profile.path(),
                                   QStringLiteral("--headless"), QStringLiteral("--convert-to"), filter,
                                   QStringLiteral("--outdir"), outDir} +
                           workbooks);
    p.waitForFinished(300000);
}

// Every sheet, UTF-8, cells as shown ("#,###" applied, "###" where a number does not fit).
const QString kCsvAsShown =
    QStringLiteral("csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,true,false,false,-1");

QList<QStringList> readCsv(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    QList<QStringList> rows;
    for (const QByteArray &line : f.readAll().split('\n')) {
        QStringList cells;
        QString cell;
        bool quoted = false;
        const QString text = QString::fromUtf8(line);
        for (qsizetype i = 0; i < text.size(); ++i) {
            const QChar c = text.at(i);
            if (quoted && c == QLatin1Char('"') && i + 1 < text.size() && text.at(i + 1) == QLatin1Char('"'))
                cell += c, ++i;
            else if (c == QLatin1Char('"'))
                quoted = !quoted;
            else if (!quoted && c == QLatin1Char(','))
                cells.append(cell), cell.clear();
            else
                cell += c;
        }
        cells.append(cell);
        rows.append(cells);
    }
    return rows;
}

// The value shown right of a caption (the totals' captions span two cells).
QString shownBeside(const QList<QStringList> &sheet, const QString &caption)
{
    for (const QStringList &row : sheet)
        for (qsizetype c = 0; c + 2 < row.size(); ++c)
            if (row.at(c) == caption)
                return row.at(c + 2);
    return QStringLiteral("(no caption %1)").arg(caption);
}

struct TotalsCase
{
    const char *name;
    Yen workA;
    Yen paintB;
    const char *taxRate;
    const char *discountRate;     // typed into the rate, or ""
    const char *discountAmount;   // typed into the amount, or ""
    Yen nonTaxable;
    const char *advance;
};

const TotalsCase kCases[] = {
    {"DiscountEqualToAPlusB", 100000, 25000, "10", "", "125,000", 0, ""},
    {"RateOfAHundredPerCent", 80000, 20000, "10", "100", "", 1200, "5,000"},
    {"DiscountAboveAPlusB", 100000, 25000, "10", "", "130,000", 0, ""},
    {"RateWithHalfYen", 1000000, 25, "8", "10", "", 0, ""},
    {"TaxOfHalfAYenRoundsToEven", 1000000, 45, "10", "", "40", 0, ""},
    {"AmountWithDecimals", 500000, 0, "10", "", "1000.5", 3000, "1,000"},
    {"NoDiscount", 1000000, 0, "8", "", "", 0, "100,000"},
    {"LargestAmounts", 90000000, 9999999, "10", "", "", 0, ""},
    {"NothingButADiscount", 0, 0, "10", "", "500", 0, ""},
};

Session estimateFor(const TotalsCase &c, std::uint32_t seed)
{
    Session s = test::fullEstimate(seed);
    s.rows.resize(12);
    s.paint.rows.resize(3);
    s.totals.workTotalA = c.workA;
    s.totals.paintTotalB = c.paintB;
    s.company[11] = QString::fromLatin1(c.taxRate);
    s.figures = SheetFigures{};
    s.nonTaxable.names = {QStringLiteral("自賠責保険料"), QStringLiteral("重量税")};
    s.nonTaxable.amounts = {c.nonTaxable, 0};
    s.nonTaxable.sum = c.nonTaxable;
    s.nonTaxable.count = 2;
    // The sheet's figures, by its own chain, from what the user typed.
    sheet::TotalsChain chain(s.figures, s.totals);
    chain.setTaxRate(s.company[11]);
    chain.sumsChanged();
    if (*c.discountRate) {
        chain.setDiscountRate(QString::fromLatin1(c.discountRate));
        chain.discountRateLeft();
    }
    if (*c.discountAmount) {
        chain.discountAmountKeyTyped();
        chain.setDiscountAmount(QString::fromLatin1(c.discountAmount));
    }
    chain.setNonTaxable(formatThousands(c.nonTaxable));
    chain.setAdvance(QString::fromLatin1(c.advance));
    return s;
}

QString saveEstimate(const QString &appFolder, Session s, const QString &fileName)
{
    test::ScriptedMessages messages;
    s.fileName = fileName;
    s.editExisting = true;
    EXPECT_TRUE(saveEstimateWorkbook(s, messages, appFolder)) << messages.lastText().toStdString();
    return QDir(estimatesFolder(appFolder)).filePath(fileName);
}

} // namespace

TEST(TemplatePrint, EveryTotalEqualsTheSheetsAndNoAmountShowsAsHashes)
{
    if (soffice().isEmpty())
        GTEST_SKIP() << "LibreOffice is not installed";
    test::TempAppFolder folder;
    QStringList files;
    std::vector<Session> sessions;
    int i = 0;
    for (const TotalsCase &c : kCases) {
        sessions.push_back(estimateFor(c, std::uint32_t(++i)));
        files.append(saveEstimate(folder.path(), sessions.back(), QStringLiteral("2401%1%2.xlsx").arg(i, 2, 10, QLatin1Char('0')).arg(QLatin1String(c.name))));
    }
    QTemporaryDir out;
    convert(files, kCsvAsShown, out.path());
    i = 0;
    for (const TotalsCase &c : kCases) {
        const SheetFigures &f = sessions[size_t(i)].figures;
        const QString base = QFileInfo(files.at(i++)).completeBaseName();
        for (const char *sheetName : {"PrintMainA", "PrintMain B"}) {
            SCOPED_TRACE(std::string(c.name) + " " + sheetName);
            const auto sheet = readCsv(QDir(out.path()).filePath(base + QLatin1Char('-') + QLatin1String(sheetName) + QStringLiteral(".csv")));
            ASSERT_GT(sheet.size(), 400);
            const std::pair<const char *, QString> totals[] = {
                {"合計金額(A+B)", f.gokei},     {"値引き金額", formatThousands(parseDisplayedYen(f.discountAmount).value_or(0))},
                {"値引後金額", f.afterDiscount}, {"税込金額", f.withTax},
                {"非課税金額", f.nonTaxable},   {"総合計金額", f.grandTotal},
                {"前受金額", f.advance},        {"請求金額", f.amountDue},
            };
            for (const auto &[caption, expected] : totals)
                EXPECT_EQ(shownBeside(sheet, QString::fromUtf8(caption)).toStdString(), expected.toStdString()) << caption;
            EXPECT_EQ(shownBeside(sheet, QStringLiteral("消費税(%1%)").arg(QLatin1String(c.taxRate))).toStdString(),
                      f.tax.toStdString());
            // The amount due in large type at the top ("¥" after the minus sign when negative).
            EXPECT_EQ(QString(sheet.at(7).at(2)).remove(QStringLiteral("¥")),
                      f.amountDue.isEmpty() ? QStringLiteral("0") : f.amountDue);
            for (const QStringList &row : sheet)
                for (const QString &cell : row)
                    EXPECT_FALSE(cell.startsWith(QStringLiteral("###"))) << row.join(QLatin1Char('|')).toStdString();
        }
    }
}

// A 12-row estimate prints one page per print sheet and nothing of "D" and "P"; every one of
// 99 non-taxable items is printed.
TEST(TemplatePrint, AShortEstimatePrintsOnePagePerPrintSheetAndEveryNonTaxableItem)
{
    if (soffice().isEmpty() || QStandardPaths::findExecutable(QStringLiteral("pdfinfo")).isEmpty())
        GTEST_SKIP() << "LibreOffice or pdfinfo is not installed";
    test::TempAppFolder folder;
    Session shortOne = estimateFor(kCases[0], 7);
    Session manyItems = estimateFor(kCases[0], 8);
    manyItems.nonTaxable.names.clear();
    manyItems.nonTaxable.amounts.clear();
    for (int j = 0; j < 99; ++j) {
        manyItems.nonTaxable.names.append(QStringLiteral("非課税項目%1号").arg(j + 1));
        manyItems.nonTaxable.amounts.append(1000 + j);
    }
    manyItems.nonTaxable.count = 99;
    const QStringList files = {saveEstimate(folder.path(), shortOne, QStringLiteral("240105短い.xlsx")),
                               saveEstimate(folder.path(), manyItems, QStringLiteral("240105非課税.xlsx"))};
    QTemporaryDir out;
    convert({files.at(0)}, QStringLiteral("pdf"), out.path());
    QProcess info;
    info.start(QStringLiteral("pdfinfo"), {QDir(out.path()).filePath(QStringLiteral("240105短い.pdf"))});
    info.waitForFinished();
    const QString text = QString::fromUtf8(info.readAllStandardOutput());
    const auto pages = QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)")).match(text);
    ASSERT_TRUE(pages.hasMatch()) << text.toStdString();
    EXPECT_EQ(pages.captured(1).toInt(), int(std::size(kPrintSheets)));

    convert({files.at(1)}, kCsvAsShown, out.path());
    const auto sheet = readCsv(QDir(out.path()).filePath(QStringLiteral("240105非課税-PrintMainA.csv")));
    QStringList names;
    for (const QStringList &row : sheet)
        for (const QString &cell : row)
            if (cell.startsWith(QStringLiteral("非課税項目")) && cell.endsWith(QStringLiteral("号")))
                names.append(cell);
    EXPECT_EQ(names.size(), 99);
}
