#pragma once
// The non-taxable items chosen for one estimate while the dialog edits them: numbered rows
// of item name and amount, their sum, and the hand-over to and from the session.

#include "common/session.h"

#include <QList>
#include <QString>
#include <optional>

namespace est::sheet {

struct NonTaxableRow
{
    QString name;
    Yen amount = 0;

    bool operator==(const NonTaxableRow &) const = default;
};

class NonTaxableList
{
public:
    // The items the estimate already has (only when its flag says it has any).
    static NonTaxableList fromSession(const NonTaxableItems &items);
    // Copies the rows, their count and sum into the session and sets its flag.
    void toSession(NonTaxableItems &items) const;

    const QList<NonTaxableRow> &rows() const { return m_rows; }
    int size() const { return int(m_rows.size()); }
    // Running number of the next row (lblNo).
    int nextNumber() const { return size() + 1; }
    // Sum of the amounts; empty when it no longer fits in whole yen.
    std::optional<Yen> sum() const;

    // Reads an amount as typed: empty text counts as 0, anything that is not a whole-yen
    // number gives nothing.
    static std::optional<Yen> parseAmount(const QString &text);
    // The item text after choosing `chosen` from the master list: the name followed by a
    // blank is added to what was already typed, so several names can make one item.
    static QString joinName(const QString &typed, const QString &chosen);

    enum class Change { Done, BadAmount, SumTooLarge, NoSuchRow };
    Change append(const QString &name, const QString &amountText);
    Change replace(int index, const QString &name, const QString &amountText);
    // Removes the row; the rows after it move up, so numbering stays 1..n.
    bool remove(int index);

private:
    std::optional<Yen> checkedAmount(const QString &amountText, int replacing, Change &why) const;
    QList<NonTaxableRow> m_rows;
};

} // namespace est::sheet
