// The printing screens driven through their controls offscreen: dlgPrint from the sheet
// (PDF, preview, the save question), frmPrinter, dlgOpenXls, and the registration number
// in frmKaisya.

#include "print/dlg_open_xls.h"
#include "print/dlg_print.h"
#include "print/frm_printer.h"
#include "print/printer_choice.h"
#include "print/xls_path.h"
#include "print_samples.h"
#include "program_fixture.h"
#include "sheet/company_block.h"
#include "sheet/frm_kaisya.h"
#include "sheet/company_extras.h"
#include "db/database.h"
#include "workbook/workbook.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinterInfo>
#include <QRadioButton>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace est::print {
namespace {


struct CountCase
{
    bool hikae;
    bool paint;
    const char *label;
};

class SheetCount : public ::testing::TestWithParam<CountCase> {};

TEST_P(SheetCount, LabelFollowsTheBoxes)
{
    test::ScriptedMessages messages;
    DlgPrint dialog(messages);
    auto *label = dialog.findChild<QLabel *>(QStringLiteral("lbl2"));
    EXPECT_EQ(label->text(), QStringLiteral("印刷枚数は4枚です。"));
    const CountCase c = GetParam();
    dialog.findChild<QCheckBox *>(QStringLiteral("chkHikae"))->setChecked(c.hikae);
    dialog.findChild<QCheckBox *>(QStringLiteral("chkPaint"))->setChecked(c.paint);
    EXPECT_EQ(label->text(), QString::fromUtf8(c.label));
    const PrintOptions options = dialog.options();
    EXPECT_EQ(options.shopCopy, c.hikae);
    EXPECT_EQ(options.paintSheet, c.paint);
}

INSTANTIATE_TEST_SUITE_P(Boxes, SheetCount,
                         ::testing::Values(CountCase{false, false, "印刷枚数は1枚です。"},
                                           CountCase{false, true, "印刷枚数は2枚です。"},
                                           CountCase{true, false, "印刷枚数は2枚です。"},
                                           CountCase{true, true, "印刷枚数は4枚です。"}));

// A program with a saved invoice on the sheet, printed through "印刷".
class SheetPrinting : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!test::havePdfTools())
            GTEST_SKIP() << "poppler-utils not installed";
        p.start();
        p.context().start->button("cmdSin")->click();
        ASSERT_TRUE(p.context().sheet->isVisible());
        p.sheetChild<QComboBox>("cboHdai")->setCurrentIndex(3);
        p.sheetChild<QLineEdit>("txtName")->setText(QStringLiteral("山田 太郎"));
    }

    void printWith(const char *button, bool layoutB = false)
    {
        p.dialogs.on(QStringLiteral("dlgPrint"), [button, layoutB](QWidget *d) {
            d->findChild<QRadioButton *>(layoutB ? "optLayoutB" : "optLayoutA")->setChecked(true);
            d->findChild<QCheckBox *>("chkHikae")->setChecked(false);
            d->findChild<QPushButton *>(button)->click();
        });
        p.sheetChild<QPushButton>("cmdPrint")->click();
    }

    QString pdf() const { return p.folder.file(QStringLiteral("Mitsumori/240105TEST.pdf")); }

    test::Program p;
};

TEST_F(SheetPrinting, AnUnsavedEstimateIsSavedFirstThenWrittenAsPdf)
{
    p.messages.answer(Answer::Yes);   // save first
    printWith("cmdPdf");
    ASSERT_FALSE(p.messages.shown.isEmpty());
    EXPECT_EQ(p.messages.shown.first().text,
              QStringLiteral("この見積書はまだ保存されていません。\n保存してから印刷しますか？"));
    ASSERT_TRUE(QFile::exists(p.folder.file(QStringLiteral("Mitsumori/240105TEST.xlsx"))));
    ASSERT_TRUE(QFile::exists(pdf())) << p.messages.lastText().toStdString();
    EXPECT_TRUE(p.messages.lastText().startsWith(QStringLiteral("PDFファイルを保存しました。")));
    EXPECT_EQ(p.session.sheetState, SheetState::NameChosen);
    EXPECT_EQ(test::radicalsIn(test::pdfText(pdf())), QString());
    const QString text = test::squeezed(test::pdfText(pdf()));
    EXPECT_TRUE(text.contains(QStringLiteral("ご請求書")));
    EXPECT_TRUE(text.contains(QStringLiteral("山田太郎")));
    EXPECT_EQ(test::pdfPages(pdf()), 2);   // the invoice and the paint sheet
}

TEST_F(SheetPrinting, DecliningToSaveANewEstimatePrintsNothing)
{
    p.messages.answer(Answer::No);
    printWith("cmdPdf");
    EXPECT_FALSE(QFile::exists(pdf()));
}

TEST_F(SheetPrinting, UnsavedChangesAreSavedOrTheLastSavedVersionIsPrinted)
{
    p.messages.answer(Answer::Yes);
    printWith("cmdPdf");
    ASSERT_TRUE(QFile::exists(pdf()));
    p.messages.clear();

    // Nothing changed: no question.
    printWith("cmdPdf", true);
    EXPECT_EQ(p.messages.shown.size(), 1);   // only the notice that the PDF was saved

    p.sheetChild<QLineEdit>("txtName")->setText(QStringLiteral("鈴木 花子"));
    p.messages.clear();
    p.messages.answer(Answer::Cancel);
    QFile::remove(pdf());
    printWith("cmdPdf");
    ASSERT_FALSE(p.messages.shown.isEmpty());
    EXPECT_EQ(p.messages.shown.first().kind, test::ShownMessage::Kind::YesNoCancel);
    EXPECT_FALSE(QFile::exists(pdf()));

    p.messages.answer(Answer::No);    // the last saved version
    printWith("cmdPdf");
    EXPECT_TRUE(test::squeezed(test::pdfText(pdf())).contains(QStringLiteral("山田太郎")));

    p.messages.answer(Answer::Yes);   // save, then print
    printWith("cmdPdf");
    EXPECT_TRUE(test::squeezed(test::pdfText(pdf())).contains(QStringLiteral("鈴木花子")));
}

TEST_F(SheetPrinting, PreviewShowsTheSavedEstimate)
{
    p.messages.answer(Answer::Yes);
    int pages = -1;
    p.dialogs.on(QStringLiteral("dlgPrintPreview"), [&pages](QWidget *d) {
        if (auto *view = d->findChild<QPrintPreviewWidget *>())
            pages = view->pageCount();
        static_cast<QDialog *>(d)->reject();
    });
    printWith("cmdPreview");
    EXPECT_EQ(p.dialogs.seen(QStringLiteral("dlgPrintPreview")), 1);
    EXPECT_EQ(pages, 2);   // the invoice and its paint sheet
}

TEST_F(SheetPrinting, WithoutAPrinterPrintingSaysSo)
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "this machine has printers";
    p.messages.answer(Answer::Yes);
    printWith("OKButton");
    EXPECT_TRUE(p.messages.lastText().startsWith(QStringLiteral("プリンタがインストールされていないため印刷できません。")));
}

TEST_F(SheetPrinting, AWorkbookWithoutTitleOrHonorificIsNotPrinted)
{
    p.messages.answer(Answer::Yes);
    printWith("cmdPdf");
    QFile::remove(pdf());
    // Someone cleared the honorific in the spreadsheet program.
    const QString path = p.folder.file(QStringLiteral("Mitsumori/240105TEST.xlsx"));
    auto book = workbook::Workbook::open(path);
    book->sheet(QStringLiteral("D"))->setText(1, 3, QString());
    book->save(path);
    p.messages.clear();
    printWith("cmdPdf");
    ASSERT_FALSE(p.messages.shown.isEmpty());
    EXPECT_EQ(p.messages.lastText(), QStringLiteral("帳票の表題か顧客名の敬称が\n選択されていません。\n印刷を中止します。"));
    EXPECT_EQ(p.messages.shown.last().title, QStringLiteral("印刷中止"));
    EXPECT_EQ(p.messages.shown.last().icon, MessageIcon::Critical);
    EXPECT_FALSE(QFile::exists(pdf()));
}

TEST(DlgPrintLayout, TheChoiceIsRemembered)
{
    test::ScriptedMessages messages;
    {
        DlgPrint dialog(messages);
        dialog.findChild<QRadioButton *>(QStringLiteral("optLayoutB"))->setChecked(true);
        dialog.findChild<QPushButton *>(QStringLiteral("cmdPdf"))->click();
        EXPECT_EQ(dialog.action(), DlgPrint::Action::Pdf);
    }
    DlgPrint again(messages);
    EXPECT_TRUE(again.findChild<QRadioButton *>(QStringLiteral("optLayoutB"))->isChecked());
    EXPECT_EQ(again.options().layout, Layout::B);
    again.findChild<QRadioButton *>(QStringLiteral("optLayoutA"))->setChecked(true);
    again.findChild<QPushButton *>(QStringLiteral("OKButton"))->click();
    EXPECT_EQ(rememberedLayout(), Layout::A);
}

TEST(FrmPrinter, ListsTheSystemsPrinters)
{
    FrmPrinter form;
    auto *combo = form.findChild<QComboBox *>(QStringLiteral("cmbPrinter"));
    const QStringList names = QPrinterInfo::availablePrinterNames();
    ASSERT_EQ(combo->count(), names.size());
    for (int i = 0; i < names.size(); ++i)
        EXPECT_EQ(combo->itemText(i), names.at(i));
    EXPECT_EQ(form.findChild<QPushButton *>(QStringLiteral("cmdPro"))->isEnabled(), !names.isEmpty());
    if (names.isEmpty()) {
        EXPECT_TRUE(form.findChild<QLabel *>(QStringLiteral("lblNote"))->text().contains(QStringLiteral("インストールされていません")));
    }
}

TEST(PrinterChoice, ARememberedPrinterThatIsGoneGivesWayToTheDefault)
{
    rememberPrinterName(QStringLiteral("事務所のプリンタ"));
    EXPECT_EQ(rememberedPrinterName(), QStringLiteral("事務所のプリンタ"));
    EXPECT_EQ(programPrinter().printerName(), QPrinterInfo::defaultPrinter().printerName());
    const QStringList names = QPrinterInfo::availablePrinterNames();
    if (!names.isEmpty()) {
        rememberPrinterName(names.last());
        EXPECT_EQ(programPrinter().printerName(), names.last());
    }
}

class OpenXls : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QDir(folder.path()).mkpath(QStringLiteral("Mitsumori/old"));
        for (const char *name : {"a.xls", "B.XLS", "c.xlsx", "d.txt", "eXlSx", "old/e.xlsx"}) {
            QFile f(folder.file(QStringLiteral("Mitsumori/") + QString::fromUtf8(name)));
            f.open(QIODevice::WriteOnly);
        }
    }
    QStringList files(DlgOpenXls &d)
    {
        QStringList out;
        auto *list = d.findChild<QListWidget *>(QStringLiteral("File1"));
        for (int i = 0; i < list->count(); ++i)
            out << list->item(i)->text();
        return out;
    }
    void select(DlgOpenXls &d, const QString &name)
    {
        auto *list = d.findChild<QListWidget *>(QStringLiteral("File1"));
        list->setCurrentItem(list->findItems(name, Qt::MatchExactly).first());
    }
    test::TempAppFolder folder;
    test::ScriptedMessages messages;
};

TEST_F(OpenXls, ListsWorkbooksAndStartsTheStoredProgram)
{
    DlgOpenXls dialog(messages, folder.path());
    QStringList started;
    dialog.setLauncher([&started](const QString &program, const QString &book) {
        started << program << book;
        return true;
    });
    EXPECT_EQ(files(dialog), (QStringList{"B.XLS", "a.xls", "c.xlsx", "eXlSx"}));
    select(dialog, QStringLiteral("B.XLS"));
    dialog.findChild<QPushButton *>(QStringLiteral("OKButton"))->click();
    EXPECT_EQ(messages.lastText(), QStringLiteral("エクセルパスが設定されてません｡設定してください｡"));
    EXPECT_EQ(messages.shown.last().title, QStringLiteral("設定エラー"));
    EXPECT_TRUE(started.isEmpty());

    dialog.findChild<QLineEdit *>(QStringLiteral("txtFname"))->setText(QStringLiteral("/usr/bin/localc"));
    dialog.findChild<QPushButton *>(QStringLiteral("cmdPathOK"))->click();
    QFile stored(folder.file(QStringLiteral("temp/xlsPath.txt")));
    ASSERT_TRUE(stored.open(QIODevice::ReadOnly));
    EXPECT_EQ(stored.readAll(), QByteArray("\"/usr/bin/localc\"\r\n"));
    dialog.findChild<QPushButton *>(QStringLiteral("OKButton"))->click();
    EXPECT_EQ(started, (QStringList{"/usr/bin/localc", QDir(folder.file("Mitsumori")).filePath("B.XLS")}));
    EXPECT_EQ(dialog.result(), QDialog::Accepted);

    // Opened again, the stored path is shown; a subfolder lists its own workbooks.
    DlgOpenXls again(messages, folder.path());
    EXPECT_EQ(again.findChild<QLineEdit *>(QStringLiteral("txtFname"))->text(), QStringLiteral("/usr/bin/localc"));
    auto *dirs = again.findChild<QListWidget *>(QStringLiteral("Dir1"));
    ASSERT_EQ(dirs->count(), 1);
    Q_EMIT dirs->itemActivated(dirs->item(0));
    EXPECT_EQ(files(again), QStringList{"e.xlsx"});
    Q_EMIT dirs->itemActivated(dirs->findItems(QStringLiteral(".."), Qt::MatchExactly).first());
    EXPECT_EQ(files(again).size(), 4);
}

TEST(FrmKaisyaRegistration, AValidNumberIsStoredAndABadOneRefused)
{
    test::TempAppFolder folder;
    Session session;
    test::ScriptedMessages messages;
    sheet::FrmKaisya form(session, messages, folder.path());
    auto *number = form.findChild<QLineEdit *>(QStringLiteral("txtTourokuNo"));
    ASSERT_NE(number, nullptr);
    auto stored = [&] {
        db::OpenResult opened = db::openDatabase(folder.path(), QStringLiteral("temp\\Jisya_Jyouhou.mdb"));
        return sheet::CompanyExtrasStore(opened.database).read(1);
    };

    form.findChild<QPushButton *>(QStringLiteral("cmdEdit"))->click();
    number->setText(QStringLiteral("ｔ１２３４５６７８９０１２３"));
    form.findChild<QLineEdit *>(QStringLiteral("txtDaihyo"))->setText(QStringLiteral("代表取締役 緑川 健一"));
    form.findChild<QCheckBox *>(QStringLiteral("chkTourokuNo"))->setChecked(true);
    form.findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    EXPECT_EQ(stored(),
              (sheet::CompanyExtras{QStringLiteral("T1234567890123"), true, QStringLiteral("代表取締役 緑川 健一")}));
    EXPECT_EQ(number->text(), QStringLiteral("T1234567890123"));
    // The company file keeps its fourteen lines.
    QFile kdata(sheet::companyFilePath(folder.path()));
    ASSERT_TRUE(kdata.open(QIODevice::ReadOnly));
    EXPECT_EQ(kdata.readAll().count("\r\n"), 14);

    messages.clear();
    form.findChild<QPushButton *>(QStringLiteral("cmdEdit"))->click();
    number->setText(QStringLiteral("T12345"));
    form.findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    EXPECT_TRUE(messages.lastText().startsWith(QStringLiteral("登録番号は「T」と13桁の数字で入力してください。")));
    EXPECT_EQ(form.mode(), sheet::FrmKaisya::Mode::Editing);
    EXPECT_EQ(stored().registrationNumber, QStringLiteral("T1234567890123"));
    form.findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
    EXPECT_EQ(number->text(), QStringLiteral("T1234567890123"));
}

} // namespace
} // namespace est::print
