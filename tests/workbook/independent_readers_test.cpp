// Saved estimates as other programs see them: openpyxl finds every cell of "D" and "P" with
// the value and type our reader finds; LibreOffice shows the estimate on the print sheets;
// and a workbook that LibreOffice has opened and saved again still opens with every value.
// Skipped when python3-openpyxl or LibreOffice is not installed.

#include "office_convert.h"
#include "sample_estimate.h"
#include "scripted_messages.h"
#include "temp_app_folder.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace est;
using namespace est::workbook;

namespace {

const QString kPython = QStringLiteral("/usr/bin/python3");

bool haveOpenpyxl()
{
    return QProcess::execute(kPython, {QStringLiteral("-c"), QStringLiteral("import openpyxl")}) == 0;
}

// Saves an estimate into a fresh application folder and returns the workbook's path.
QString saveEstimate(test::TempAppFolder &folder, Session &s)
{
    test::ScriptedMessages messages;
    s.fileName = QStringLiteral("240105全項目.xlsx");
    s.editExisting = true;
    EXPECT_TRUE(saveEstimateWorkbook(s, messages, folder.path())) << messages.lastText().toStdString();
    return QDir(estimatesFolder(folder.path())).filePath(s.fileName);
}

Session sampleEstimate()
{
    Session s = test::fullEstimate(11);
    s.company[10] = QStringLiteral("0012");
    s.company[11] = QStringLiteral("10");
    s.figures.taxRate = s.company[11];
    s.header.documentKind = 1;
    s.header.customerName = QStringLiteral("山田太郎");
    return s;
}

QList<QStringList> readCsv(const QString &path)
{
    QFile f(path);
    f.open(QIODevice::ReadOnly);
    QList<QStringList> rows;
    for (const QByteArray &line : f.readAll().split('\n')) {
        QStringList cells;
        QString cell;
        bool quoted = false;
        const QString text = QString::fromUtf8(line);
        for (qsizetype i = 0; i < text.size(); ++i) {
            const QChar c = text.at(i);
            if (quoted) {
                if (c == QLatin1Char('"') && i + 1 < text.size() && text.at(i + 1) == QLatin1Char('"'))
                    cell += c, ++i;
                else if (c == QLatin1Char('"'))
                    quoted = false;
                else
                    cell += c;
            } else if (c == QLatin1Char('"')) {
                quoted = true;
            } else if (c == QLatin1Char(',')) {
                cells.append(cell);
                cell.clear();
            } else {
                cell += c;
            }
        }
        cells.append(cell);
        rows.append(cells);
    }
    return rows;
}

} // namespace

TEST(Openpyxl, FindsEveryCellWithItsValueAndType)
{
    if (!haveOpenpyxl())
        GTEST_SKIP() << "python3-openpyxl is not installed";
    test::TempAppFolder folder;
    Session s = sampleEstimate();
    const QString path = saveEstimate(folder, s);

    const QString script = QStringLiteral(
        "import json, sys, openpyxl\n"
        "wb = openpyxl.load_workbook(sys.argv[1])\n"
        "out = {}\n"
        "for name in ('D', 'P'):\n"
        "    for row in wb[name].iter_rows():\n"
        "        for c in row:\n"
        "            if c.value is None: continue\n"
        "            out[name + '!' + c.coordinate] = [type(c.value).__name__, c.value]\n"
        "out['K3format'] = ['str', wb['D']['K3'].number_format]\n"
        "print(json.dumps(out))\n");
    QProcess p;
    p.start(kPython, {QStringLiteral("-c"), script, path});
    ASSERT_TRUE(p.waitForFinished(60000));
    ASSERT_EQ(p.exitCode(), 0) << p.readAllStandardError().constData();
    const QJsonObject cells = QJsonDocument::fromJson(p.readAllStandardOutput()).object();
    ASSERT_GT(cells.size(), 4000);

    EXPECT_EQ(cells.value(QStringLiteral("D!K3")).toArray(), QJsonArray({QStringLiteral("str"), QStringLiteral("0012")}));
    EXPECT_EQ(cells.value(QStringLiteral("K3format")).toArray().at(1).toString(), QStringLiteral("@"));
    EXPECT_EQ(cells.value(QStringLiteral("D!L1")).toArray(), QJsonArray({QStringLiteral("bool"), true}));
    EXPECT_EQ(cells.value(QStringLiteral("D!A2")).toArray(), QJsonArray({QStringLiteral("int"), 393}));
    EXPECT_EQ(cells.value(QStringLiteral("P!B12")).toArray(), QJsonArray({QStringLiteral("int"), 73}));

    // Every cell our reader finds, openpyxl finds with the same value and type.
    auto book = Workbook::open(path);
    int compared = 0;
    for (const char *name : {"D", "P"}) {
        Worksheet *sheet = book->sheet(QString::fromLatin1(name));
        for (int row = 1; row <= 400; ++row) {
            for (int column = 1; column <= 31; ++column) {
                const CellValue v = sheet->value(row, column);
                const QString ref = QString::fromLatin1(name) + QLatin1Char('!') +
                                    QString::fromLatin1(cellAddress(row, column));
                const QJsonArray other = cells.value(ref).toArray();
                if (const QString *text = std::get_if<QString>(&v)) {
                    if (text->isEmpty())
                        continue;   // openpyxl reports an empty text as no value
                    EXPECT_EQ(other, QJsonArray({QStringLiteral("str"), *text})) << ref.toStdString();
                } else if (const double *number = std::get_if<double>(&v)) {
                    EXPECT_EQ(other, QJsonArray({QStringLiteral("int"), *number})) << ref.toStdString();
                } else if (const bool *flag = std::get_if<bool>(&v)) {
                    EXPECT_EQ(other, QJsonArray({QStringLiteral("bool"), *flag})) << ref.toStdString();
                } else {
                    EXPECT_TRUE(other.isEmpty()) << ref.toStdString();
                    continue;
                }
                ++compared;
            }
        }
    }
    EXPECT_GT(compared, 4000);
}

TEST(LibreOffice, ShowsTheEstimateOnThePrintSheets)
{
    if (test::soffice().isEmpty())
        GTEST_SKIP() << "LibreOffice is not installed";
    test::TempAppFolder folder;
    Session s = sampleEstimate();
    s.totals.workTotalA = 100000;
    s.totals.paintTotalB = 25000;
    s.figures.discountRate.clear();
    s.figures.discountAmount.clear();
    s.figures.advance = QStringLiteral("5,000");
    s.nonTaxable.sum = 1200;
    const QString path = saveEstimate(folder, s);
    QTemporaryDir out;
    // All sheets, UTF-8, formulas as their results.
    const QStringList files = test::convertWithOffice(path,
                                      QStringLiteral("csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,"
                                                     "false,false,-1"),
                                      out.path());
    ASSERT_TRUE(files.contains(QStringLiteral("240105全項目-PrintMainA.csv"))) << files.join(QLatin1Char(' ')).toStdString();
    const auto main = readCsv(QDir(out.path()).filePath(QStringLiteral("240105全項目-PrintMainA.csv")));
    ASSERT_GE(main.size(), 420);
    EXPECT_EQ(main.at(0).at(0), QStringLiteral("お見積書"));
    EXPECT_EQ(main.at(4).at(0), QStringLiteral("山田太郎　様"));
    EXPECT_EQ(main.at(6).at(0), QStringLiteral("下記の通りお見積もりいたします。"));
    EXPECT_EQ(main.at(15).at(2), s.rows.at(0)[ColPart]);
    EXPECT_EQ(main.at(15 + 393).at(0), QStringLiteral("394"));
    // 125,000 + 10% tax 12,500 + 1,200 non-taxable - 5,000 advance.
    EXPECT_EQ(main.at(7).at(2), QStringLiteral("133700"));
    const auto d = readCsv(QDir(out.path()).filePath(QStringLiteral("240105全項目-D.csv")));
    EXPECT_EQ(d.at(2).at(10), QStringLiteral("0012"));
    EXPECT_EQ(d.at(0).at(11), QStringLiteral("TRUE"));
    const auto paint = readCsv(QDir(out.path()).filePath(QStringLiteral("240105全項目-PaintA.csv")));
    EXPECT_EQ(paint.at(5).at(2), s.paint.rows.at(0)[ColPart]);
}

TEST(LibreOffice, AWorkbookSavedAgainByLibreOfficeStillOpens)
{
    if (test::soffice().isEmpty())
        GTEST_SKIP() << "LibreOffice is not installed";
    test::TempAppFolder folder;
    Session s = sampleEstimate();
    const QString path = saveEstimate(folder, s);
    QTemporaryDir out;
    const QStringList files = test::convertWithOffice(path, QStringLiteral("xlsx:Calc Office Open XML"), out.path());
    ASSERT_EQ(files.size(), 1);
    // Put the re-saved workbook where the program opens estimates.
    const QString resaved = QStringLiteral("240105再保存.xlsx");
    ASSERT_TRUE(QFile::copy(QDir(out.path()).filePath(files.first()),
                            QDir(estimatesFolder(folder.path())).filePath(resaved)));
    test::ScriptedMessages messages;
    Session back;
    ASSERT_TRUE(openEstimateWorkbook(back, messages, folder.path(), resaved)) << messages.lastText().toStdString();
    const QStringList expected = test::storedFields(s);
    const QStringList actual = test::storedFields(back);
    ASSERT_EQ(expected.size(), actual.size());
    for (int i = 0; i < expected.size(); ++i)
        EXPECT_EQ(actual.at(i).toStdString(), expected.at(i).toStdString());
}

// A shop restyles its template in LibreOffice, which stores the results of every formula:
// estimates saved from it must still show their own values, not the template's.
TEST(LibreOffice, ATemplateSavedByLibreOfficeStillShowsEachEstimate)
{
    if (test::soffice().isEmpty())
        GTEST_SKIP() << "LibreOffice is not installed";
    test::TempAppFolder folder;
    ASSERT_TRUE(ensureTemplate(folder.path()));
    QTemporaryDir restyled;
    ASSERT_EQ(test::convertWithOffice(templatePath(folder.path()), QStringLiteral("xlsx:Calc Office Open XML"), restyled.path()).size(), 1);
    QFile::remove(templatePath(folder.path()));
    ASSERT_TRUE(QFile::copy(QDir(restyled.path()).filePath(QStringLiteral("newfile.xlsx")), templatePath(folder.path())));

    Session s = sampleEstimate();
    s.header.customerName = QStringLiteral("再保存ひな形");
    const QString path = saveEstimate(folder, s);
    QTemporaryDir out;
    test::convertWithOffice(path, QStringLiteral("csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,false,false,-1"),
            out.path());
    const auto main = readCsv(QDir(out.path()).filePath(QStringLiteral("240105全項目-PrintMainA.csv")));
    ASSERT_GT(main.size(), 5);
    EXPECT_EQ(main.at(4).at(0), QStringLiteral("再保存ひな形　様"));
    EXPECT_EQ(main.at(15).at(2), s.rows.at(0)[ColPart]);
}
