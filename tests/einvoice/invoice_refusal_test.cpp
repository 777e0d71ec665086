// What is refused (with a sentence naming what is missing, and no file), asking before a file
// is replaced, and the command line.

#include "einvoice/invoice_export.h"
#include "einvoice/invoice_model.h"
#include "invoice_check.h"
#include "print/saved_estimate.h"
#include "print_samples.h"
#include "scripted_messages.h"
#include "temp_app_folder.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <functional>

namespace est::einvoice {
namespace {

struct RefusalCase
{
    const char *name;
    std::function<void(Session &, print::ShopInfo &)> change;
    const char *says;   // a part of the message
};

class Refusals : public ::testing::TestWithParam<RefusalCase>
{
protected:
    test::TempAppFolder m_app;
    QTemporaryDir m_dir;
};

TEST_P(Refusals, NameWhatIsMissingAndWriteNothing)
{
    const RefusalCase &c = GetParam();
    Session s = test::handEstimate(4);
    print::ShopInfo shop = test::sampleShop();
    c.change(s, shop);
    test::installShop(m_app.path(), shop);
    const QString book = test::saveWorkbook(s, m_dir.path(), QStringLiteral("240105INV.xlsx"));
    const auto saved = print::loadSavedEstimate(book, nullptr);
    ASSERT_TRUE(saved);
    test::ScriptedMessages messages;
    const QString xml = invoicePathFor(book);
    EXPECT_FALSE(saveInvoice(*saved, m_app.path(), xml, messages));
    EXPECT_FALSE(QFileInfo::exists(xml));
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.shown.first().title, QStringLiteral("電子インボイス保存"));
    EXPECT_TRUE(messages.lastText().contains(QString::fromUtf8(c.says))) << messages.lastText().toStdString();
    EXPECT_TRUE(messages.lastText().contains(QStringLiteral("電子インボイスを作成できません"))
                || messages.lastText().contains(QStringLiteral("請求書ではない")));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, Refusals,
    ::testing::Values(
        RefusalCase{"NotAnInvoice", [](Session &s, print::ShopInfo &) { s.header.documentKind = 1; }, "請求書ではない"},
        RefusalCase{"DeliveryNote", [](Session &s, print::ShopInfo &) { s.header.documentKind = 5; }, "請求書ではない"},
        RefusalCase{"NoRegistrationNumber",
                    [](Session &, print::ShopInfo &shop) { shop.extras.registrationNumber.clear(); }, "登録番号"},
        RefusalCase{"NoShopName", [](Session &, print::ShopInfo &shop) { shop.block[2].clear(); }, "会社名"},
        RefusalCase{"BadShopPeppolId",
                    [](Session &, print::ShopInfo &shop) { shop.extras.peppolId = QStringLiteral("9999:x"); },
                    "Peppol ID"},
        RefusalCase{"NoCustomer",
                    [](Session &s, print::ShopInfo &) {
                        s.header.customerCompany.clear();
                        s.header.customerName.clear();
                    },
                    "顧客名"},
        RefusalCase{"NoTaxRate",
                    [](Session &s, print::ShopInfo &) {
                        s.company[11] = QStringLiteral("0");
                        s.figures.taxRate = QStringLiteral("0");
                    },
                    "消費税率"},
        RefusalCase{"TextInAnAmount",
                    [](Session &s, print::ShopInfo &) { s.rows[1][ColLabour] = QStringLiteral("五千"); },
                    "作業明細 2行目の「五千」"},
        RefusalCase{"RowsDisagreeWithTotalA",
                    [](Session &s, print::ShopInfo &) { s.rows[2][ColLabour] = QStringLiteral("31,000"); },
                    "作業計（Ａ）の明細の合計（122,856円）"},
        RefusalCase{"PaintDisagreesWithTotalB", [](Session &s, print::ShopInfo &) { s.totals.paintTotalB += 1; },
                    "塗装計（Ｂ）"},
        RefusalCase{"TooLarge",
                    [](Session &s, print::ShopInfo &) {
                        s.rows[0][ColLabour] = QStringLiteral("2,000,000,000");
                        s.totals.workTotalA = 2000000000 - 8400 + 123456;
                        s.totals.paintTotalB = 2000000000;
                    },
                    "大きすぎる"}),
    [](const auto &info) { return std::string(info.param.name); });

// Amounts at the ends of whole yen never wrap round: they are refused, or carried exactly.
struct ExtremeCase
{
    const char *name;
    std::function<void(Session &)> change;
    bool made;
};

class ExtremeAmounts : public ::testing::TestWithParam<ExtremeCase> {};

TEST_P(ExtremeAmounts, AreRefusedOrCarriedExactly)
{
    Session s = test::handEstimate(4);
    GetParam().change(s);
    const BuildResult r = buildInvoice(s, QStringLiteral("240105INV.xlsx"), test::sampleShop(), {});
    EXPECT_EQ(r.invoice.has_value(), GetParam().made) << r.refusal.toStdString();
    EXPECT_EQ(r.refusal.isEmpty(), GetParam().made);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ExtremeAmounts,
    ::testing::Values(
        ExtremeCase{"LowestLabour", [](Session &s) { s.rows[0][ColLabour] = QStringLiteral("-2,147,483,648"); }, false},
        ExtremeCase{"LowestDiscount",
                    [](Session &s) {
                        s.figures.discountRate.clear();
                        s.figures.discountAmount = QStringLiteral("-2,147,483,648");
                    },
                    false},
        ExtremeCase{"HugeQuantity",
                    [](Session &s) {
                        s.rows[0][ColQuantity] = QStringLiteral("9223372036854775807");
                        s.rows[0][ColUnitPrice] = QStringLiteral("2,147,483,647");
                    },
                    true},
        ExtremeCase{"LowestAdvance", [](Session &s) { s.figures.advance = QStringLiteral("-2,147,483,648"); }, false}),
    [](const auto &info) { return std::string(info.param.name); });

class Replacing : public ::testing::Test
{
protected:
    void SetUp() override
    {
        test::installShop(m_app.path(), test::sampleShop());
        m_book = test::saveWorkbook(test::handEstimate(4), m_dir.path(), QStringLiteral("240105INV.xlsx"));
        m_xml = invoicePathFor(m_book);
        QFile old(m_xml);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("old");
    }
    QByteArray current() const
    {
        QFile f(m_xml);
        f.open(QIODevice::ReadOnly);
        return f.readAll();
    }
    test::TempAppFolder m_app;
    QTemporaryDir m_dir;
    QString m_book, m_xml;
};

TEST_F(Replacing, AnExistingFileStaysWhenTheAnswerIsNo)
{
    test::ScriptedMessages messages;
    messages.answer(Answer::No);
    EXPECT_FALSE(saveInvoice(*print::loadSavedEstimate(m_book, nullptr), m_app.path(), m_xml, messages));
    EXPECT_EQ(current(), QByteArray("old"));
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.shown.first().kind, test::ShownMessage::Kind::YesNo);
    EXPECT_TRUE(messages.lastText().contains(QStringLiteral("240105INV.xml は既にあります。")));
}

TEST_F(Replacing, YesReplacesItAndTellsWhereAndWhatIsMissing)
{
    test::ScriptedMessages messages;
    messages.answer(Answer::Yes);
    EXPECT_TRUE(saveInvoice(*print::loadSavedEstimate(m_book, nullptr), m_app.path(), m_xml, messages));
    EXPECT_TRUE(current().startsWith("<?xml"));
    EXPECT_TRUE(test::wellFormed(m_xml));
    ASSERT_EQ(messages.shown.size(), 2);
    EXPECT_TRUE(messages.lastText().startsWith(QStringLiteral("電子インボイスを保存しました。")));
    EXPECT_TRUE(messages.lastText().contains(QStringLiteral("Peppol IDが登録されていない")));
}

class InvoiceCommand : public ::testing::Test
{
protected:
    int run(const QStringList &args, QString *errors)
    {
        QProcess p;
        p.start(QStringLiteral(ESTIMATE_PROGRAM), QStringList{QStringLiteral("--invoice-xml")} + args);
        EXPECT_TRUE(p.waitForFinished(60000));
        *errors = QString::fromUtf8(p.readAllStandardError());
        return p.exitCode();
    }
    test::TempAppFolder m_app;
    QTemporaryDir m_dir;
};

TEST_F(InvoiceCommand, WritesTheFileAndReplacesOnlyWhenToldTo)
{
    test::installShop(m_app.path(), test::sampleShop());
    const QString book = test::saveWorkbook(test::handEstimate(3), m_dir.path(), QStringLiteral("240105INV.xlsx"));
    const QString xml = m_dir.filePath(QStringLiteral("out.xml"));
    QString errors;
    EXPECT_EQ(run({book, xml}, &errors), InvoiceDone) << errors.toStdString();
    EXPECT_TRUE(errors.contains(QStringLiteral("Peppol ID")));
    const test::InvoiceReport report = test::checkInvoice(xml);
    EXPECT_EQ(report.figures.value(QStringLiteral("PayableAmount")).toInt(), 198462);
    EXPECT_EQ(run({book, xml}, &errors), InvoiceWriteFailed);
    EXPECT_TRUE(errors.contains(QStringLiteral("--replace")));
    EXPECT_EQ(run({book, xml, QStringLiteral("--replace")}, &errors), InvoiceDone);
}

TEST_F(InvoiceCommand, RefusesAnEstimateAndAnUnreadableBookWithoutWriting)
{
    test::installShop(m_app.path(), test::sampleShop());
    const QString book = test::saveWorkbook(test::handEstimate(1), m_dir.path(), QStringLiteral("240105EST.xlsx"));
    const QString xml = m_dir.filePath(QStringLiteral("out.xml"));
    QString errors;
    EXPECT_EQ(run({book, xml}, &errors), InvoiceRefused);
    EXPECT_TRUE(errors.contains(QStringLiteral("請求書ではない")));
    EXPECT_EQ(run({m_dir.filePath(QStringLiteral("none.xlsx")), xml}, &errors), InvoiceRefused);
    EXPECT_FALSE(QFileInfo::exists(xml));
    EXPECT_EQ(run({book}, &errors), InvoiceUsage);
    EXPECT_TRUE(errors.contains(QStringLiteral("使い方")));
}

} // namespace
} // namespace est::einvoice
