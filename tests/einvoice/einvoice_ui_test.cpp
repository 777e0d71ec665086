// The electronic invoice from the screens: dlgPrint's 電子インボイス保存 on an invoice (and
// not on an estimate), and the shop's Peppol ID in frmKaisya.

#include "db/database.h"
#include "invoice_check.h"
#include "print/dlg_print.h"
#include "print_samples.h"
#include "program_fixture.h"
#include "sheet/company_extras.h"
#include "sheet/frm_kaisya.h"

#include <QComboBox>
#include <QFile>
#include <gtest/gtest.h>

namespace est::einvoice {
namespace {

class SheetEInvoice : public ::testing::Test
{
protected:
    void SetUp() override
    {
        // The sample shop, still without its registration number.
        print::ShopInfo shop = test::sampleShop();
        shop.extras.registrationNumber.clear();
        test::installShop(p.folder.path(), shop);
        p.start();
        p.context().start->button("cmdSin")->click();
        ASSERT_TRUE(p.context().sheet->isVisible());
        p.sheetChild<QLineEdit>("txtName")->setText(QStringLiteral("山田 太郎"));
        // One work row, as the work item editor hands it back.
        EstimateRow row;
        row[ColNo] = QStringLiteral("1");
        row[ColPart] = QStringLiteral("フロントバンパー");
        row[ColWork] = QStringLiteral("取替");
        row[ColLabour] = QStringLiteral("8,400");
        p.session.rows = {row};
        p.session.totals.labour = 8400;
        p.session.totals.workTotalA = 8400;
        p.context().sheet->refresh();
    }

    // Opens dlgPrint from 印刷; returns whether cmdEInvoice was enabled, clicking it if so.
    bool saveFromDialog()
    {
        bool enabled = false;
        p.dialogs.on(QStringLiteral("dlgPrint"), [&enabled](QWidget *d) {
            auto *button = d->findChild<QPushButton *>(QStringLiteral("cmdEInvoice"));
            enabled = button->isEnabled();
            if (enabled)
                button->click();
            else
                d->findChild<QPushButton *>(QStringLiteral("CancelButton"))->click();
        });
        p.sheetChild<QPushButton>("cmdPrint")->click();
        return enabled;
    }

    void setRegistrationNumber()
    {
        db::OpenResult opened = db::openDatabase(p.folder.path(), QStringLiteral("temp\\Jisya_Jyouhou.mdb"));
        sheet::CompanyExtrasStore store(opened.database);
        sheet::CompanyExtras extras = store.read(1);
        extras.registrationNumber = QStringLiteral("T1234567890123");
        ASSERT_TRUE(store.write(1, extras));
    }

    QString xml() const { return p.folder.file(QStringLiteral("Mitsumori/240105TEST.xml")); }

    test::Program p;
};

TEST_F(SheetEInvoice, AnEstimateKindHasNoElectronicInvoice)
{
    p.sheetChild<QComboBox>("cboHdai")->setCurrentIndex(1);
    EXPECT_FALSE(saveFromDialog());
    EXPECT_FALSE(QFile::exists(xml()));
}

TEST_F(SheetEInvoice, AShopWithoutNumberIsToldSoThenTheFileIsWrittenBesideTheWorkbook)
{
    p.sheetChild<QComboBox>("cboHdai")->setCurrentIndex(4);
    p.messages.answer(Answer::Yes);   // save first
    ASSERT_TRUE(saveFromDialog());
    ASSERT_FALSE(p.messages.shown.isEmpty());
    EXPECT_EQ(p.messages.shown.first().text,
              QStringLiteral("この見積書はまだ保存されていません。\n保存してから電子インボイスにしますか？"));
    EXPECT_EQ(p.messages.shown.first().title, QStringLiteral("電子インボイス保存"));
    EXPECT_TRUE(QFile::exists(p.folder.file(QStringLiteral("Mitsumori/240105TEST.xlsx"))));
    EXPECT_FALSE(QFile::exists(xml()));
    EXPECT_TRUE(p.messages.lastText().contains(QStringLiteral("登録番号（T＋13桁の数字）がない")))
        << p.messages.lastText().toStdString();

    setRegistrationNumber();
    p.messages.clear();
    ASSERT_TRUE(saveFromDialog());
    ASSERT_TRUE(QFile::exists(xml())) << p.messages.lastText().toStdString();
    EXPECT_TRUE(p.messages.lastText().startsWith(QStringLiteral("電子インボイスを保存しました。")));
    const test::InvoiceReport report = test::checkInvoice(xml());
    EXPECT_EQ(report.all.value(QStringLiteral("id")).toString(), p.session.slipNumber);
    // Asked again, the answer No keeps the file that is there.
    QFile::remove(xml());
    QFile(xml()).open(QIODevice::WriteOnly);
    p.messages.clear();
    p.messages.answer(Answer::No);
    ASSERT_TRUE(saveFromDialog());
    EXPECT_EQ(QFile(xml()).size(), 0);
}

TEST(FrmKaisyaPeppol, AValidIdIsStoredAndABadOneRefused)
{
    test::TempAppFolder folder;
    Session session;
    test::ScriptedMessages messages;
    sheet::FrmKaisya form(session, messages, folder.path());
    auto *peppol = form.findChild<QLineEdit *>(QStringLiteral("txtPeppol"));
    ASSERT_NE(peppol, nullptr);
    auto stored = [&] {
        db::OpenResult opened = db::openDatabase(folder.path(), QStringLiteral("temp\\Jisya_Jyouhou.mdb"));
        return sheet::CompanyExtrasStore(opened.database).read(1).peppolId;
    };
    form.findChild<QPushButton *>(QStringLiteral("cmdEdit"))->click();
    peppol->setText(QStringLiteral("1234567890123"));
    form.findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    EXPECT_TRUE(messages.lastText().startsWith(QStringLiteral("Peppol IDは「スキーム番号:ID」の形で")));
    EXPECT_EQ(stored(), QString());
    peppol->setText(QStringLiteral("０１８８：７０００ ０１２０ ５０００２"));
    form.findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    EXPECT_EQ(stored(), QStringLiteral("0188:7000012050002"));
    EXPECT_EQ(peppol->text(), QStringLiteral("0188:7000012050002"));
}

} // namespace
} // namespace est::einvoice
