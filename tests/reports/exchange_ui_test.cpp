// The report and data-exchange screens driven through their controls: dlgUriage from the
// sheet's 売上げ button, frmExp's export, backup and restore, and dlgPriceImport.

#include "db/database.h"
#include "fixed_clock.h"
#include "library_fixture.h"
#include "program_fixture.h"
#include "reports/backup_archive.h"
#include "reports/dlg_price_import.h"
#include "reports/frm_exp.h"
#include "reports/sales_workbook.h"
#include "reports/text_codec.h"
#include "when_modal.h"

#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace est;
using namespace est::reports;

namespace {

QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

TEST(DlgUriage, TheSalesButtonWritesTheFiscalYearsReport)
{
    test::Program p;
    test::EstimateSpec invoice;
    invoice.kind = 4;
    invoice.day = QDate(2024, 5, 10);
    invoice.totalA = 100000;
    test::saveWorkbook(p.folder, QStringLiteral("240510A.xlsx"), test::estimateOf(invoice));
    test::EstimateSpec estimate = invoice;
    estimate.kind = 1;
    test::saveWorkbook(p.folder, QStringLiteral("240511B.xlsx"), test::estimateOf(estimate));
    p.start();
    app::AppContext &c = p.context();
    c.start->button("cmdSin")->click();
    ASSERT_TRUE(c.sheet->isVisible());
    QString range, file;
    test::whenModal(QStringLiteral("dlgUriage"), [&](QDialog *d) {
        d->findChild<QRadioButton *>(QStringLiteral("optKessan"))->setChecked(true);
        d->findChild<QComboBox *>(QStringLiteral("cboMonth"))->setCurrentIndex(3);
        d->findChild<QSpinBox *>(QStringLiteral("txtNen"))->setValue(2024);
        range = d->findChild<QLabel *>(QStringLiteral("lblKikan"))->text();
        file = d->findChild<QLabel *>(QStringLiteral("lblFname"))->text();
        d->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    });
    p.sheetChild<QPushButton>("cmdUriage")->click();
    EXPECT_EQ(range, QStringLiteral("2024/04/01 ～ 2025/03/31"));
    EXPECT_EQ(file, QStringLiteral("Mitsumori/2024年度売上表.xlsx"));
    EXPECT_TRUE(QFileInfo::exists(p.folder.file(QStringLiteral("Mitsumori/2024年度売上表.xlsx"))));
    EXPECT_EQ(p.messages.lastText(),
              QStringLiteral("ファイル名　2024年度売上表.xlsxを作成しました。\n請求書・納品書 1 件　合計 110,000 円"));

    // A second time asks before replacing it; No leaves it as it was.
    const QByteArray before = readAll(p.folder.file(QStringLiteral("Mitsumori/2024年度売上表.xlsx")));
    test::whenModal(QStringLiteral("dlgUriage"), [&](QDialog *d) {
        d->findChild<QRadioButton *>(QStringLiteral("optKessan"))->setChecked(true);
        d->findChild<QSpinBox *>(QStringLiteral("txtNen"))->setValue(2024);
        d->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
        EXPECT_TRUE(d->isVisible());
        d->findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
    });
    p.sheetChild<QPushButton>("cmdUriage")->click();
    EXPECT_EQ(p.messages.shown.last().kind, test::ShownMessage::Kind::YesNo);
    EXPECT_EQ(readAll(p.folder.file(QStringLiteral("Mitsumori/2024年度売上表.xlsx"))), before);

    // A workbook that cannot be read is named in the notice: it may be a sale the report lacks.
    QFile broken(p.folder.file(QStringLiteral("Mitsumori/壊れた請求書.xlsx")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("not a workbook");
    broken.close();
    test::whenModal(QStringLiteral("dlgUriage"), [&](QDialog *d) {
        d->findChild<QSpinBox *>(QStringLiteral("txtNen"))->setValue(2023);
        d->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    });
    p.sheetChild<QPushButton>("cmdUriage")->click();
    EXPECT_TRUE(p.messages.lastText().endsWith(
        QStringLiteral("読み取れないファイルが 1 件あり、売上表に含まれていません。\n壊れた請求書.xlsx")))
        << p.messages.lastText().toStdString();
}

TEST(FrmExp, OpensFromTheSettingsHubWithThePriceImport)
{
    test::Program p;
    p.start();
    app::AppContext &c = p.context();
    c.settings->show();
    QPushButton *exp = c.settings->button(QStringLiteral("cmdExp"));
    ASSERT_TRUE(exp->isEnabled());
    bool priceImport = false;
    QString makers;
    test::whenModal(QStringLiteral("frmExp"), [&](QDialog *d) {
        priceImport = d->findChild<QPushButton *>(QStringLiteral("cmdPrice"))->isEnabled();
        test::whenModal(QStringLiteral("dlgPriceImport"), [&](QDialog *prices) {
            auto *maker = prices->findChild<QComboBox *>(QStringLiteral("cboMeka"));
            for (int i = 0; i < maker->count(); ++i)
                makers += maker->itemText(i);
            prices->findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
        });
        d->findChild<QPushButton *>(QStringLiteral("cmdPrice"))->click();
        d->findChild<QPushButton *>(QStringLiteral("cmdExit"))->click();
    });
    exp->click();
    EXPECT_TRUE(priceImport);
    EXPECT_EQ(makers, QStringLiteral("トヨタ日産ホンダ"));   // the sample register
}

class ExchangeScreens : public ::testing::Test
{
protected:
    FileChooser chooser()
    {
        return [this](QWidget *, FileQuestion question, const QString &suggested) {
            asked.append(question);
            suggestions.append(suggested);
            return answers.isEmpty() ? QString() : answers.takeFirst();
        };
    }

    test::TempAppFolder folder;
    QTemporaryDir out;
    test::ScriptedMessages messages;
    test::FixedClock clock{QDate(2024, 1, 5)};
    QStringList answers;
    QList<FileQuestion> asked;
    QStringList suggestions;
};

TEST_F(ExchangeScreens, FrmExpExportsBacksUpAndRestores)
{
    FrmExp screen(folder.path(), clock, chooser(), messages);
    // Customers in Shift_JIS.
    answers << out.filePath(QStringLiteral("customers.csv"));
    screen.findChild<QRadioButton *>(QStringLiteral("optSjis"))->setChecked(true);
    screen.findChild<QPushButton *>(QStringLiteral("cmdCsv"))->click();
    EXPECT_TRUE(suggestions.last().endsWith(QStringLiteral("顧客車両_20240105.csv")));
    const mastertable::DecodedCsv csv =
        mastertable::decodeCsv(readAll(out.filePath(QStringLiteral("customers.csv"))), mastertable::CsvEncoding::Auto);
    EXPECT_EQ(csv.encoding, mastertable::CsvEncoding::ShiftJis);
    EXPECT_TRUE(csv.text.startsWith(QStringLiteral("顧客番号,氏名")));

    // A backup, a change, a restore.
    test::saveWorkbook(folder, QStringLiteral("240105A.xlsx"), test::estimateOf({}));
    const QString archive = out.filePath(QStringLiteral("backup.zip"));
    answers << archive;
    screen.findChild<QPushButton *>(QStringLiteral("cmdBackup"))->click();
    EXPECT_TRUE(suggestions.last().endsWith(QStringLiteral("見積バックアップ_20240105.zip")));
    ASSERT_TRUE(QFileInfo::exists(archive)) << messages.lastText().toStdString();
    const QString estimate = folder.file(QStringLiteral("Mitsumori/240105A.xlsx"));
    const QByteArray saved = readAll(estimate);
    QFile::remove(estimate);
    answers << archive;
    messages.answer(Answer::Yes);
    screen.findChild<QPushButton *>(QStringLiteral("cmdRestore"))->click();
    EXPECT_EQ(readAll(estimate), saved);
    EXPECT_TRUE(messages.lastText().startsWith(QStringLiteral("復元しました。")));

    // Something that is not a backup: told so, not asked.
    const QString bogus = out.filePath(QStringLiteral("bogus.zip"));
    QFile f(bogus);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("bogus");
    f.close();
    answers << bogus;
    messages.clear();
    screen.findChild<QPushButton *>(QStringLiteral("cmdRestore"))->click();
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.shown.first().kind, test::ShownMessage::Kind::Inform);
    EXPECT_EQ(readAll(estimate), saved);
    EXPECT_FALSE(screen.findChild<QPushButton *>(QStringLiteral("cmdPrice"))->isEnabled());
}

TEST_F(ExchangeScreens, DlgPriceImportPreviewsAndApplies)
{
    auto opened = db::openDatabase(folder.path(), QStringLiteral("Data\\Toyota.mdb"));
    ASSERT_TRUE(opened.ok());
    const QList<workitems::VehicleType> types{{QStringLiteral("セダン"), QStringLiteral("T_Sedan")}};
    DlgPriceImport dialog(folder.path(), {{QStringLiteral("トヨタ"), QStringLiteral("Toyota")}}, types, chooser(),
                          messages);
    // The first choice adds the price columns; give one part a number.
    const QString list = out.filePath(QStringLiteral("prices.csv"));
    QFile f(list);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(encodeShiftJis(QStringLiteral("品番,価格\r\n52119-A,12000\r\n00000-X,10\r\n")));
    f.close();
    answers << list;
    dialog.findChild<QPushButton *>(QStringLiteral("cmdFile"))->click();
    auto *apply = dialog.findChild<QPushButton *>(QStringLiteral("cmdOK"));
    EXPECT_FALSE(apply->isEnabled());   // nothing matches yet
    QSqlQuery q(opened.database);
    ASSERT_TRUE(q.exec(QStringLiteral("UPDATE T_Sedan SET 部品番号 = '52119-A' WHERE rowid = 1")));
    dialog.loadFile(list);
    const QString preview = dialog.findChild<QPlainTextEdit *>(QStringLiteral("txtPreview"))->toPlainText();
    EXPECT_TRUE(preview.contains(QStringLiteral("文字コード Shift_JIS"))) << preview.toStdString();
    EXPECT_TRUE(preview.contains(QStringLiteral("価格が変わる品番: 1 件（部品 1 点）")));
    EXPECT_TRUE(preview.contains(QStringLiteral("該当する部品がない品番: 1 件")));
    ASSERT_TRUE(apply->isEnabled());
    messages.answer(Answer::Yes);
    apply->click();
    ASSERT_TRUE(q.exec(QStringLiteral("SELECT 部品価格 FROM T_Sedan WHERE rowid = 1")) && q.next());
    EXPECT_EQ(q.value(0).toInt(), 12000);
    EXPECT_EQ(messages.lastText(), QStringLiteral("部品価格を 1 点更新しました。"));
    EXPECT_FALSE(apply->isEnabled());
}

} // namespace
