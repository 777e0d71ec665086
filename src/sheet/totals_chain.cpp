#include "sheet/totals_chain.h"

#include "common/number_format.h"

namespace est::sheet {

TotalsChain::TotalsChain(SheetFigures &figures, const EditorTotals &totals)
    : m_f(figures), m_totals(totals)
{
}

TotalsChain::Read TotalsChain::readYen(const QString &text, Yen &value)
{
    if (isBlank(text))
        return Read::Empty;
    const auto number = parseDisplayedNumber(text);
    if (!number)
        return Read::Invalid;
    const auto yen = roundToYen(*number);
    if (!yen) {
        m_overflow = true;
        return Read::TooLarge;
    }
    value = *yen;
    return Read::Ok;
}

Yen TotalsChain::yenOrZero(const QString &text)
{
    Yen v = 0;
    return readYen(text, v) == Read::Ok ? v : 0;
}

// Step 1: A + B from the stored whole numbers, not from the label texts.
void TotalsChain::sumsChanged()
{
    const auto sum = addYen(m_totals.workTotalA, m_totals.paintTotalB);
    if (!sum) {
        m_overflow = true;
        return;
    }
    assignGokei(formatThousands(*sum));
}

// Step 2: a new A + B recomputes the tax, then the discount from the rate and the amount.
void TotalsChain::assignGokei(const QString &text)
{
    m_f.gokei = text;
    tax();
    discountFromRate();
    afterDiscount();
}

void TotalsChain::setDiscountRate(const QString &text)
{
    assignRate(text);
}

void TotalsChain::discountRateLeft()
{
    discountFromRate();
}

void TotalsChain::assignRate(const QString &text)
{
    if (m_f.discountRate == text)
        return;
    m_f.discountRate = text;
    discountFromRate();
}

// Step 3: discount = CLng(CLng(rate) / 100 * (A + B)), exact and half to even.
void TotalsChain::discountFromRate()
{
    Yen rate = 0;
    const Read r = readYen(m_f.discountRate, rate);
    if (r != Read::Ok || rate <= 0) {
        m_f.rememberedRate = QStringLiteral("0");
        return;
    }
    Yen gokei = 0;
    if (readYen(m_f.gokei, gokei) != Read::Ok)
        return;
    m_f.rememberedRate = m_f.discountRate;
    const auto discount = divideRoundHalfEven(std::int64_t(rate) * gokei, 100);
    if (!discount) {
        m_overflow = true;
        return;
    }
    assignAmount(formatThousands(*discount));
}

void TotalsChain::discountAmountKeyTyped()
{
    m_f.rememberedRate = QStringLiteral("0");
    assignRate(QString());
}

void TotalsChain::setDiscountAmount(const QString &text)
{
    assignAmount(text);
}

void TotalsChain::assignAmount(const QString &text)
{
    if (m_f.discountAmount == text)
        return;
    m_f.discountAmount = text;
    afterDiscount();
}

// Step 4: total after discount; an empty amount clears the rate and the total after discount.
void TotalsChain::afterDiscount()
{
    if (isBlank(m_f.discountAmount)) {
        assignRate(QString());
        assignAfterDiscount(QString());
        return;
    }
    Yen amount = 0;
    if (readYen(m_f.discountAmount, amount) != Read::Ok)
        return;
    const auto rest = subtractYen(yenOrZero(m_f.gokei), amount);
    if (!rest) {
        m_overflow = true;
        return;
    }
    assignAfterDiscount(formatThousands(*rest));
}

void TotalsChain::assignAfterDiscount(const QString &text)
{
    m_f.afterDiscount = text;
    tax();
}

void TotalsChain::setTaxRate(const QString &text)
{
    m_f.taxRate = text;
    tax();
}

QString TotalsChain::taxBase() const
{
    return isBlank(m_f.afterDiscount) ? m_f.gokei : m_f.afterDiscount;
}

// Step 5: tax = CLng(rate / 100 * base), half to even on purpose (12.5 -> 12, 13.5 -> 14).
void TotalsChain::tax()
{
    Yen rate = 0;
    if (readYen(m_f.taxRate, rate) == Read::Invalid)
        return;
    Yen base = 0;
    if (readYen(taxBase(), base) == Read::TooLarge)
        return;
    const auto amount = divideRoundHalfEven(std::int64_t(rate) * base, 100);
    if (!amount) {
        m_overflow = true;
        return;
    }
    assignTax(formatThousands(*amount));
}

void TotalsChain::assignTax(const QString &text)
{
    m_f.tax = text;
    withTax();
}

// Step 6: total including tax.
void TotalsChain::withTax()
{
    const auto sum = addYen(yenOrZero(taxBase()), yenOrZero(m_f.tax));
    if (!sum) {
        m_overflow = true;
        return;
    }
    assignWithTax(formatThousands(*sum));
}

void TotalsChain::assignWithTax(const QString &text)
{
    m_f.withTax = text;
    grandTotal();
}

void TotalsChain::setNonTaxable(const QString &text)
{
    m_f.nonTaxable = text;
    grandTotal();
}

// Step 7: non-taxable amounts are added after tax.
void TotalsChain::grandTotal()
{
    const auto sum = addYen(yenOrZero(m_f.withTax), yenOrZero(m_f.nonTaxable));
    if (!sum) {
        m_overflow = true;
        return;
    }
    assignGrandTotal(formatThousands(*sum));
}

void TotalsChain::assignGrandTotal(const QString &text)
{
    m_f.grandTotal = text;
    amountDue();
}

void TotalsChain::setAdvance(const QString &text)
{
    m_f.advance = text;
    amountDue();
}

// Step 8: amount due = grand total - advance; step 9 copies it beside the caption.
void TotalsChain::amountDue()
{
    Yen advance = 0;
    if (readYen(m_f.advance, advance) != Read::Ok)
        advance = 0; // a non-number counts as none; an oversize one is reported by readYen
    const auto due = subtractYen(yenOrZero(m_f.grandTotal), advance);
    if (!due) {
        m_overflow = true;
        return;
    }
    assignAmountDue(formatThousands(*due));
}

void TotalsChain::assignAmountDue(const QString &text)
{
    m_f.amountDue = text;
    m_f.amountDueCopy = text;
}

} // namespace est::sheet
