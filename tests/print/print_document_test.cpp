// The printed model of a saved estimate: figures worked out by hand, the invoice
// statements, the registration number, the rows that are printed.

#include "print/page_kit.h"
#include "print/print_document.h"
#include "print_samples.h"

#include <gtest/gtest.h>

namespace est::print {
namespace {

QString amountOf(const QList<AmountLine> &lines, const QString &caption)
{
    for (const AmountLine &l : lines)
        if (l.caption == caption)
            return l.amount;
    return QStringLiteral("<missing>");
}

TEST(PrintDocument, TotalsFollowTheSheetRules)
{
    const PrintDocument doc = buildPrintDocument(test::handEstimate(1), QStringLiteral("御中"), test::sampleShop());
    // A+B = 123,456 + 78,900 = 202,356; 5 % = 10,117.8 -> 10,118; after 192,238;
    // tax 10 % = 19,223.8 -> 19,224; with tax 211,462; + 17,000 = 228,462; - 30,000 = 198,462.
    const QList<AmountLine> expected = {
        {QStringLiteral("作業計（Ａ）"), QStringLiteral("123,456")},
        {QStringLiteral("塗装計（Ｂ）"), QStringLiteral("78,900")},
        {QStringLiteral("合計金額（Ａ＋Ｂ）"), QStringLiteral("202,356"), true},
        {QStringLiteral("値引き（5%）"), QStringLiteral("-10,118")},
        {QStringLiteral("値引後金額"), QStringLiteral("192,238")},
        {QStringLiteral("消費税（10%）"), QStringLiteral("19,224")},
        {QStringLiteral("税込金額"), QStringLiteral("211,462")},
        {QStringLiteral("非課税金額"), QStringLiteral("17,000")},
        {QStringLiteral("総合計金額"), QStringLiteral("228,462"), true},
        {QStringLiteral("前受金額"), QStringLiteral("-30,000")},
        {QStringLiteral("御見積金額"), QStringLiteral("198,462"), true},
    };
    EXPECT_EQ(doc.totals, expected);
    EXPECT_EQ(doc.amountDue, QStringLiteral("198,462"));
    EXPECT_TRUE(doc.taxBreakdown.isEmpty());
    EXPECT_EQ(amountOf(doc.paintTotals, QStringLiteral("塗装計（Ｂ）")), QStringLiteral("78,900"));
    EXPECT_EQ(doc.nonTaxableItems.size(), 2);
}

TEST(PrintDocument, WithoutDiscountNonTaxableOrAdvanceThoseLinesAreLeftOut)
{
    Session s = test::handEstimate(5);
    s.figures.discountRate.clear();
    s.figures.advance.clear();
    s.figures.nonTaxable.clear();
    s.nonTaxable = NonTaxableItems();
    const PrintDocument doc = buildPrintDocument(s, QStringLiteral("御中"), test::sampleShop());
    // 202,356 * 10 % = 20,235.6 -> 20,236; 222,592.
    QStringList captions;
    for (const AmountLine &l : doc.totals)
        captions << l.caption + QLatin1Char('=') + l.amount;
    EXPECT_EQ(captions, (QStringList{"作業計（Ａ）=123,456", "塗装計（Ｂ）=78,900", "合計金額（Ａ＋Ｂ）=202,356",
                                     "消費税（10%）=20,236", "税込金額=222,592", "総合計金額=222,592",
                                     "合計金額=222,592"}));
}

TEST(PrintDocument, ANegativeDiscountOrAdvanceIsPrintedAsAnAddition)
{
    Session s = test::handEstimate(1);
    s.figures.discountRate.clear();
    s.figures.discountAmount = QStringLiteral("-500");
    s.figures.advance = QStringLiteral("-1,000");
    const PrintDocument doc = buildPrintDocument(s, QStringLiteral("御中"), test::sampleShop());
    EXPECT_EQ(amountOf(doc.totals, QStringLiteral("値引き")), QStringLiteral("+500"));
    EXPECT_EQ(amountOf(doc.totals, QStringLiteral("前受金額")), QStringLiteral("+1,000"));
}

struct KindCase
{
    int kind;
    const char *title;
    const char *caption;
    bool invoice;
};

class DocumentKinds : public ::testing::TestWithParam<KindCase> {};

TEST_P(DocumentKinds, TitleCaptionAndInvoiceStatements)
{
    const KindCase k = GetParam();
    const PrintDocument doc = buildPrintDocument(test::handEstimate(k.kind), QStringLiteral("御中"), test::sampleShop());
    EXPECT_EQ(doc.title, QString::fromUtf8(k.title));
    EXPECT_EQ(doc.amountCaption, QString::fromUtf8(k.caption));
    EXPECT_EQ(doc.invoice, k.invoice);
    EXPECT_EQ(doc.printRegistration, k.invoice);
    if (k.invoice) {
        // Taxable after discount 192,238 at 10 % with its tax 19,224; non-taxable 17,000 apart.
        EXPECT_EQ(amountOf(doc.taxBreakdown, QStringLiteral("10%対象（税抜）")), QStringLiteral("192,238"));
        EXPECT_EQ(amountOf(doc.taxBreakdown, QStringLiteral("10%対象 消費税")), QStringLiteral("19,224"));
        EXPECT_EQ(amountOf(doc.taxBreakdown, QStringLiteral("非課税（対象外）")), QStringLiteral("17,000"));
    } else {
        EXPECT_TRUE(doc.taxBreakdown.isEmpty());
    }
    // The shop may ask for the number on every document.
    const PrintDocument always =
        buildPrintDocument(test::handEstimate(k.kind), QStringLiteral("御中"), test::sampleShop(true));
    EXPECT_TRUE(always.printRegistration);
}

INSTANTIATE_TEST_SUITE_P(All, DocumentKinds,
                         ::testing::Values(KindCase{0, "概算見積書", "御見積金額", false},
                                           KindCase{1, "お見積書", "御見積金額", false},
                                           KindCase{2, "見積書", "御見積金額", false},
                                           KindCase{3, "ご請求書", "御請求金額", true},
                                           KindCase{4, "請求書", "御請求金額", true},
                                           KindCase{5, "納品書", "合計金額", false},
                                           KindCase{6, "納品/請求書", "御請求金額", true}));

TEST(PrintDocument, WithoutANumberNothingIsPrintedEvenOnInvoices)
{
    print::ShopInfo shop = test::sampleShop(true);
    shop.extras.registrationNumber.clear();
    EXPECT_FALSE(buildPrintDocument(test::handEstimate(3), QStringLiteral("御中"), shop).printRegistration);
}

TEST(PrintDocument, BlankRowsAreNotPrintedAndVehicleFieldsAreCaptioned)
{
    Session s = test::handEstimate(1);
    s.rows.insert(1, EstimateRow());
    EstimateRow blanks;
    blanks.fill(QStringLiteral("　 "));
    s.rows.append(blanks);
    const PrintDocument doc = buildPrintDocument(s, QStringLiteral("様"), test::sampleShop());
    ASSERT_EQ(doc.workRows.size(), 3);
    EXPECT_EQ(doc.workRows.at(1)[ColPart], QStringLiteral("ヘッドランプ（右）"));
    EXPECT_EQ(doc.vehicle.at(6).value, QStringLiteral("45,210 km"));
    EXPECT_EQ(doc.vehicle.at(2).value, QStringLiteral("ZVW30-1234567"));
}

} // namespace
} // namespace est::print

namespace est::print {
namespace {

struct PaginationCase
{
    int rows, first, other, tail;
    QList<PageSlice> expected;
};

bool operator==(const PageSlice &a, const PageSlice &b)
{
    return a.begin == b.begin && a.end == b.end && a.tail == b.tail;
}

class Pagination : public ::testing::TestWithParam<PaginationCase> {};

TEST_P(Pagination, RowsAreNeverCutAndTotalsNeverStandAlone)
{
    const PaginationCase c = GetParam();
    const QList<PageSlice> pages = paginate(c.rows, c.first, c.other, c.tail);
    ASSERT_EQ(pages.size(), c.expected.size());
    for (int i = 0; i < pages.size(); ++i)
        EXPECT_TRUE(pages.at(i) == c.expected.at(i))
            << i << ": " << pages.at(i).begin << "-" << pages.at(i).end << " " << pages.at(i).tail;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, Pagination,
    ::testing::Values(
        // Everything on one page.
        PaginationCase{3, 29, 41, 11, {{0, 3, true}}},
        // No rows at all: the totals on the first page.
        PaginationCase{0, 29, 41, 11, {{0, 0, true}}},
        // 29 rows fill the first page; the totals take the last five rows along.
        PaginationCase{29, 29, 41, 11, {{0, 24, false}, {24, 29, true}}},
        // 394 rows: 29 + 8 x 41 = 357, 37 on page 10 leave 4 free for 11 rows of totals.
        PaginationCase{394, 29, 41, 11,
                       {{0, 29, false}, {29, 70, false}, {70, 111, false}, {111, 152, false},
                        {152, 193, false}, {193, 234, false}, {234, 275, false}, {275, 316, false},
                        {316, 357, false}, {357, 389, false}, {389, 394, true}}},
        // 30 rows: page 2 holds the 30th with room for the totals.
        PaginationCase{30, 29, 41, 11, {{0, 29, false}, {29, 30, true}}},
        // A page never gives away its only row, so the totals go on alone.
        PaginationCase{1, 1, 41, 5, {{0, 1, false}, {1, 1, true}}}));

} // namespace
} // namespace est::print

namespace est::print {
namespace {

TEST(PrintDocument, AdditionalItemsLineUpLabelChoiceIndexAndAmount)
{
    Session s = test::handEstimate(1);
    // The two-tone item keeps a second choice before its index.
    s.additional.items[0] = {QStringLiteral("2トーン"), QStringLiteral("ルーフ"), QStringLiteral("ピラー"),
                             QStringLiteral("1.20"), QStringLiteral("8,400")};
    s.additional.items[2] = {QStringLiteral("ストライプ"), QStringLiteral("サイド"), QStringLiteral("0.30"),
                             QStringLiteral("2,100"), QString()};
    const PrintDocument doc = buildPrintDocument(s, QStringLiteral("様"), test::sampleShop());
    ASSERT_EQ(doc.details.size(), 3);
    const DetailTable &extra = doc.details.at(2);
    EXPECT_EQ(extra.headers, (QStringList{"項目", "内容", "指数", "金額"}));
    EXPECT_EQ(extra.rows, (QList<QStringList>{{"2トーン", "ルーフ　ピラー", "1.20", "8,400"},
                                              {"ストライプ", "サイド", "0.30", "2,100"}}));
    EXPECT_EQ(extra.firstNumberColumn, 2);
}

} // namespace
} // namespace est::print
