#pragma once
// The chain of totals below the estimate rows: A + B, discount by rate or amount, tax,
// non-taxable items, advance and the amount due. It works on the displayed texts, as the
// sheet shows them ("#,###", empty = no value). A derived figure always passes its new value
// on to the steps that read it; the two discount fields, being typed into, pass a value on
// only when it really changed. The screen forwards what the user typed and then shows the
// figures.

#include "common/session.h"

namespace est::sheet {

class TotalsChain
{
public:
    TotalsChain(SheetFigures &figures, const EditorTotals &totals);

    // The editors changed work total A or paint total B.
    void sumsChanged();
    // The user changed the rate text (txtNebiki1).
    void setDiscountRate(const QString &text);
    // The user left the rate field.
    void discountRateLeft();
    // The user typed a key into the amount (txtNebiki2): a hand-typed amount wins over the rate.
    void discountAmountKeyTyped();
    // The user changed the amount text (txtNebiki2).
    void setDiscountAmount(const QString &text);
    // The own-company block set the tax rate (lblZeiritu).
    void setTaxRate(const QString &text);
    // The non-taxable items set their total (lblHZei).
    void setNonTaxable(const QString &text);
    // The user changed the advance (txtAzukari).
    void setAdvance(const QString &text);

    // A step met an amount too large for whole yen in 32 bits; its output was left as it was.
    bool overflowed() const { return m_overflow; }
    void clearOverflow() { m_overflow = false; }

private:
    enum class Read { Empty, Invalid, TooLarge, Ok };
    Read readYen(const QString &text, Yen &value);
    Yen yenOrZero(const QString &text);

    void assignGokei(const QString &text);
    void assignRate(const QString &text);
    void assignAmount(const QString &text);
    void assignAfterDiscount(const QString &text);
    void assignTax(const QString &text);
    void assignWithTax(const QString &text);
    void assignGrandTotal(const QString &text);
    void assignAmountDue(const QString &text);

    void discountFromRate();    // step 3
    void afterDiscount();       // step 4
    void tax();                 // step 5
    void withTax();             // step 6
    void grandTotal();          // step 7
    void amountDue();           // step 8
    QString taxBase() const;

    SheetFigures &m_f;
    const EditorTotals &m_totals;
    bool m_overflow = false;
};

} // namespace est::sheet
