// The electronic invoice of saved estimates, read back by an independent reader: every
// figure equals the printed invoice's and the hand-worked one, and the main rules hold.

#include "common/number_format.h"
#include "einvoice/invoice_export.h"
#include "invoice_check.h"
#include "print/print_document.h"
#include "print/saved_estimate.h"
#include "print/shop_info.h"
#include "print_samples.h"
#include "temp_app_folder.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <functional>

namespace est::einvoice {
namespace {

struct Figures
{
    int lineTotal, allowance, taxExclusive, rate, taxable, tax, nonTaxable, taxInclusive, prepaid, payable;
};

struct FigureCase
{
    const char *name;
    std::function<Session()> estimate;
    Figures expected;   // worked out by hand; lineTotal < 0: compare with the printed invoice only
};

Session handInvoice(int kind, std::function<void(Session &)> change = {})
{
    Session s = test::handEstimate(kind);
    if (change)
        change(s);
    return s;
}

// The figures of the printed invoice's totals blocks, by caption; deductions (値引き,
// 前受金額) are printed as "-500" (500 taken off) or "+500" (a charge: -500 taken off).
int printed(const print::PrintDocument &doc, const QString &caption)
{
    const bool deduction = caption == QStringLiteral("値引き") || caption == QStringLiteral("前受金額");
    for (const print::AmountLine &l : doc.totals + doc.taxBreakdown) {
        if (!(deduction ? l.caption.startsWith(caption) : l.caption == caption))
            continue;
        if (!deduction)
            return parseDisplayedYen(l.amount).value_or(-999999999);
        const int sign = l.amount.startsWith(QLatin1Char('+')) ? -1 : 1;
        return sign * parseDisplayedYen(l.amount.mid(1)).value_or(-999999999);
    }
    return 0;
}

class InvoiceFigures : public ::testing::TestWithParam<FigureCase>
{
protected:
    test::TempAppFolder m_app;
    QTemporaryDir m_dir;
};

TEST_P(InvoiceFigures, EqualThePrintedInvoiceAndKeepTheRules)
{
    const FigureCase &c = GetParam();
    test::installShop(m_app.path(), test::sampleShop());
    Session session = c.estimate();
    session.customer[0] = QStringLiteral("3");
    test::installCustomerAddress(m_app.path(), QStringLiteral("3"),
                                 {QStringLiteral("0188:4000012090001"), QStringLiteral("4000012090001")});
    const QString book = test::saveWorkbook(session, m_dir.path(), QStringLiteral("231220INV.xlsx"));
    QString error;
    const auto saved = print::loadSavedEstimate(book, &error);
    ASSERT_TRUE(saved) << error.toStdString();
    const InvoiceFile file = makeInvoiceFile(*saved, m_app.path());
    ASSERT_FALSE(file.xml.isEmpty()) << file.refusal.toStdString();
    EXPECT_TRUE(file.notices.isEmpty());
    const QString xml = invoicePathFor(book);
    ASSERT_TRUE(writeInvoiceFile(xml, file.xml).isEmpty());

    EXPECT_TRUE(test::wellFormed(xml));
    const test::InvoiceReport report = test::checkInvoice(xml);
    ASSERT_TRUE(report.read);
    EXPECT_TRUE(report.failed.isEmpty()) << report.failed.join(QLatin1Char(' ')).toStdString();

    const QJsonObject &f = report.figures;
    const QJsonArray subtotals = report.subtotals();
    ASSERT_GE(subtotals.size(), 1);
    const QJsonObject standard = subtotals.at(0).toObject();
    EXPECT_EQ(standard.value(QStringLiteral("category")).toString(), QStringLiteral("S"));
    const int outOfScope = subtotals.size() > 1 ? subtotals.at(1).toObject().value(QStringLiteral("taxable")).toInt() : 0;

    const print::PrintDocument doc =
        print::buildPrintDocument(saved->session, saved->honorific, print::readShopInfo(m_app.path()));
    const QString rate = standard.value(QStringLiteral("percent")).toString();
    EXPECT_EQ(standard.value(QStringLiteral("taxable")).toInt(), printed(doc, rate + QStringLiteral("%対象（税抜）")));
    EXPECT_EQ(standard.value(QStringLiteral("tax")).toInt(), printed(doc, rate + QStringLiteral("%対象 消費税")));
    EXPECT_EQ(f.value(QStringLiteral("TaxAmount")).toInt(), printed(doc, QStringLiteral("消費税（%1%）").arg(rate)));
    EXPECT_EQ(outOfScope, printed(doc, QStringLiteral("非課税（対象外）")));
    EXPECT_EQ(f.value(QStringLiteral("AllowanceTotalAmount")).toInt() - f.value(QStringLiteral("ChargeTotalAmount")).toInt(),
              printed(doc, QStringLiteral("値引き")));
    EXPECT_EQ(f.value(QStringLiteral("TaxInclusiveAmount")).toInt(), printed(doc, QStringLiteral("総合計金額")));
    EXPECT_EQ(f.value(QStringLiteral("PrepaidAmount")).toInt(), printed(doc, QStringLiteral("前受金額")));
    EXPECT_EQ(f.value(QStringLiteral("PayableAmount")).toInt(), printed(doc, QStringLiteral("御請求金額")));

    const Figures &e = c.expected;
    if (e.lineTotal < 0)
        return;
    EXPECT_EQ(f.value(QStringLiteral("LineExtensionAmount")).toInt(), e.lineTotal);
    EXPECT_EQ(f.value(QStringLiteral("AllowanceTotalAmount")).toInt(), e.allowance);
    EXPECT_EQ(f.value(QStringLiteral("TaxExclusiveAmount")).toInt(), e.taxExclusive);
    EXPECT_EQ(rate.toInt(), e.rate);
    EXPECT_EQ(standard.value(QStringLiteral("taxable")).toInt(), e.taxable);
    EXPECT_EQ(standard.value(QStringLiteral("tax")).toInt(), e.tax);
    EXPECT_EQ(outOfScope, e.nonTaxable);
    EXPECT_EQ(f.value(QStringLiteral("TaxInclusiveAmount")).toInt(), e.taxInclusive);
    EXPECT_EQ(f.value(QStringLiteral("PrepaidAmount")).toInt(), e.prepaid);
    EXPECT_EQ(f.value(QStringLiteral("PayableAmount")).toInt(), e.payable);
}

// A + B = 123,456 + 78,900 = 202,356 in every case.
INSTANTIATE_TEST_SUITE_P(
    Estimates, InvoiceFigures,
    ::testing::Values(
        // 5 % = 10,117.8 -> 10,118; 192,238 x 10 % = 19,223.8 -> 19,224; + 17,000 = 228,462;
        // - 30,000 = 198,462.
        FigureCase{"DiscountNonTaxableAdvance", [] { return handInvoice(4); },
                   {219356, 10118, 209238, 10, 192238, 19224, 17000, 228462, 30000, 198462}},
        // 202,356 x 8 % = 16,188.48 -> 16,188 on the whole, once.
        FigureCase{"EightPerCentPlain",
                   [] {
                       return handInvoice(3, [](Session &s) {
                           s.figures.taxRate = QStringLiteral("8");
                           s.company[11] = QStringLiteral("8");
                           s.figures.discountRate.clear();
                           s.figures.advance.clear();
                           s.nonTaxable = NonTaxableItems();
                           s.figures.nonTaxable.clear();
                       });
                   },
                   {202356, 0, 202356, 8, 202356, 16188, 0, 218544, 0, 218544}},
        // A typed discount of 11: 202,345 x 10 % = 20,234.5 -> 20,234 (half to even, as printed).
        FigureCase{"TiesGoToEven",
                   [] {
                       return handInvoice(6, [](Session &s) {
                           s.figures.discountRate.clear();
                           s.figures.discountAmount = QStringLiteral("11");
                       });
                   },
                   {219356, 11, 219345, 10, 202345, 20234, 17000, 239579, 30000, 209579}},
        // Every item of the sample master list, one of them at 0 (no line): 54,050 in all.
        FigureCase{"EveryNonTaxableItem",
                   [] {
                       return handInvoice(4, [](Session &s) {
                           s.nonTaxable.names = {"自賠責保険料", "重量税", "印紙代", "代行手数料", "リサイクル預託金",
                                                 "車庫証明手数料", "印紙代"};
                           s.nonTaxable.amounts = {17650, 16400, 1800, 5500, 10000, 2700, 0};
                           s.nonTaxable.count = 7;
                           s.nonTaxable.sum = 54050;
                           s.figures.nonTaxable = QStringLiteral("54,050");
                       });
                   },
                   {256406, 10118, 246288, 10, 192238, 19224, 54050, 265512, 30000, 235512}},
        // Parts of 2 x 22,678, and a row of -1,000 (quantity -1 at 1,000): A = 122,456;
        // 201,356 - 10,068 (5 % of 201,356 = 10,067.8) = 191,288; tax 19,128.8 -> 19,129.
        FigureCase{"CreditRowAndQuantities",
                   [] {
                       return handInvoice(4, [](Session &s) {
                           s.rows[1][ColUnitPrice] = QStringLiteral("22,678");
                           s.rows[1][ColQuantity] = QStringLiteral("2");
                           EstimateRow credit;
                           credit[ColNo] = QStringLiteral("4");
                           credit[ColPart] = QStringLiteral("持込部品の取付値引き");
                           credit[ColLabour] = QStringLiteral("-1,000");
                           s.rows.append(credit);
                           s.totals.labour -= 1000;
                           s.totals.workTotalA -= 1000;
                       });
                   },
                   {218356, 10068, 208288, 10, 191288, 19129, 17000, 227417, 30000, 197417}},
        // A discount of -500 typed by hand is a charge: 202,856 x 10 % = 20,285.6 -> 20,286.
        FigureCase{"NegativeDiscountIsACharge",
                   [] {
                       return handInvoice(4, [](Session &s) {
                           s.figures.discountRate.clear();
                           s.figures.discountAmount = QStringLiteral("-500");
                       });
                   },
                   {219356, 0, 219856, 10, 202856, 20286, 17000, 240142, 30000, 210142}},
        FigureCase{"FullEstimate",
                   [] {
                       Session s = test::fullPrintEstimate();
                       s.header.documentKind = 4;
                       return s;
                   },
                   {-1, 0, 0, 0, 0, 0, 0, 0, 0, 0}}),
    [](const auto &info) { return std::string(info.param.name); });

TEST(InvoiceLines, OneLinePerAmountWithPartsApartFromLabour)
{
    test::TempAppFolder app;
    test::installShop(app.path(), test::sampleShop());
    QTemporaryDir dir;
    const QString book = test::saveWorkbook(test::handEstimate(4), dir.path(), QStringLiteral("240105INV.xlsx"));
    const auto saved = print::loadSavedEstimate(book, nullptr);
    ASSERT_TRUE(saved);
    const InvoiceFile file = makeInvoiceFile(*saved, app.path());
    const QString xml = dir.filePath(QStringLiteral("inv.xml"));
    ASSERT_TRUE(writeInvoiceFile(xml, file.xml).isEmpty());
    const test::InvoiceReport report = test::checkInvoice(xml);
    // Work: 3 labour + 2 parts; paint: 2 rows, material, bumper; 2 non-taxable items.
    EXPECT_EQ(report.all.value(QStringLiteral("lines")).toInt(), 11);
    EXPECT_EQ(report.all.value(QStringLiteral("id")).toString(), QStringLiteral("000000123"));
    EXPECT_EQ(report.all.value(QStringLiteral("issueDate")).toString(), QStringLiteral("2024-01-05"));
    EXPECT_EQ(report.all.value(QStringLiteral("start")).toString(), QStringLiteral("2024-01-05"));
    const QJsonObject parties = report.all.value(QStringLiteral("parties")).toObject();
    const QJsonObject seller = parties.value(QStringLiteral("seller")).toObject();
    EXPECT_EQ(seller.value(QStringLiteral("endpoint")).toString(), QStringLiteral("0221:T1234567890123"));
    EXPECT_EQ(seller.value(QStringLiteral("tax")).toString(), QStringLiteral("T1234567890123"));
    EXPECT_EQ(seller.value(QStringLiteral("post")).toString(), QStringLiteral("0000000"));
    EXPECT_EQ(seller.value(QStringLiteral("street")).toString(), QStringLiteral("若葉県みどり台市東町2丁目14番3号"));
    const QJsonObject buyer = parties.value(QStringLiteral("buyer")).toObject();
    EXPECT_EQ(buyer.value(QStringLiteral("name")).toString(), QStringLiteral("株式会社 さくら運輸"));
    // No electronic address for this customer: the file is made, the user is told, and the
    // only rule it breaks is the missing buyer address.
    EXPECT_TRUE(buyer.value(QStringLiteral("endpoint")).isNull());
    EXPECT_EQ(report.failed, QStringList{QStringLiteral("ibr-080")});
    ASSERT_EQ(file.notices.size(), 1);
    EXPECT_TRUE(file.notices.first().contains(QStringLiteral("Peppol ID")));
}

TEST(InvoiceLines, TheShopsPeppolIdIsItsAddressAndTheCustomersNumberItsLegalId)
{
    test::TempAppFolder app;
    print::ShopInfo shop = test::sampleShop();
    shop.extras.peppolId = QStringLiteral("0188:7000012050002");
    test::installShop(app.path(), shop);
    test::installCustomerAddress(app.path(), QStringLiteral("3"), {QString(), QStringLiteral("4000012090001")});
    QTemporaryDir dir;
    Session s = test::handEstimate(4);
    s.customer[0] = QStringLiteral("3");
    const QString book = test::saveWorkbook(s, dir.path(), QStringLiteral("231101INV.xlsx"));
    const auto saved = print::loadSavedEstimate(book, nullptr);
    ASSERT_TRUE(saved);
    const QString xml = dir.filePath(QStringLiteral("inv.xml"));
    ASSERT_TRUE(writeInvoiceFile(xml, makeInvoiceFile(*saved, app.path()).xml).isEmpty());
    const test::InvoiceReport report = test::checkInvoice(xml);
    const QJsonObject parties = report.all.value(QStringLiteral("parties")).toObject();
    EXPECT_EQ(parties.value(QStringLiteral("seller")).toObject().value(QStringLiteral("endpoint")).toString(),
              QStringLiteral("0188:7000012050002"));
    EXPECT_EQ(parties.value(QStringLiteral("buyer")).toObject().value(QStringLiteral("legal")).toString(),
              QStringLiteral("4000012090001"));
    // The repair ran from the day the estimate was started to the invoice's date.
    EXPECT_EQ(report.all.value(QStringLiteral("start")).toString(), QStringLiteral("2023-11-01"));
    EXPECT_EQ(report.all.value(QStringLiteral("end")).toString(), QStringLiteral("2024-01-05"));
}

} // namespace
} // namespace est::einvoice
