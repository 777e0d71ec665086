#include "sheet/non_taxable_list.h"

#include "common/number_format.h"

#include <limits>

namespace est::sheet {

NonTaxableList NonTaxableList::fromSession(const NonTaxableItems &items)
{
    NonTaxableList list;
    if (!items.present)
        return list;
    const qsizetype n = std::min<qsizetype>({qsizetype(items.count), items.names.size(), items.amounts.size()});
    for (qsizetype i = 0; i < n; ++i)
        list.m_rows.append({items.names.at(i), items.amounts.at(i)});
    return list;
}

void NonTaxableList::toSession(NonTaxableItems &items) const
{
    items.names.clear();
    items.amounts.clear();
    for (const NonTaxableRow &row : m_rows) {
        items.names.append(row.name);
        items.amounts.append(row.amount);
    }
    items.count = std::int16_t(m_rows.size());
    items.sum = sum().value_or(0);
    items.present = true;
}

std::optional<Yen> NonTaxableList::sum() const
{
    Yen total = 0;
    for (const NonTaxableRow &row : m_rows) {
        const auto next = addYen(total, row.amount);
        if (!next)
            return std::nullopt;
        total = *next;
    }
    return total;
}

std::optional<Yen> NonTaxableList::parseAmount(const QString &text)
{
    if (isBlank(text))
        return Yen(0);
    const auto value = parseDisplayedNumber(text);
    if (!value || *value != double(static_cast<long long>(*value)))
        return std::nullopt;
    return parseDisplayedYen(text);
}

QString NonTaxableList::joinName(const QString &typed, const QString &chosen)
{
    return typed + chosen + QLatin1Char(' ');
}

std::optional<Yen> NonTaxableList::checkedAmount(const QString &amountText, int replacing, Change &why) const
{
    const auto amount = parseAmount(amountText);
    if (!amount) {
        why = Change::BadAmount;
        return std::nullopt;
    }
    Yen total = *amount;
    for (int i = 0; i < size(); ++i) {
        if (i == replacing)
            continue;
        const auto next = addYen(total, m_rows.at(i).amount);
        if (!next) {
            why = Change::SumTooLarge;
            return std::nullopt;
        }
        total = *next;
    }
    why = Change::Done;
    return amount;
}

NonTaxableList::Change NonTaxableList::append(const QString &name, const QString &amountText)
{
    // The count travels as a 16-bit number.
    if (size() >= std::numeric_limits<std::int16_t>::max())
        return Change::SumTooLarge;
    Change why = Change::Done;
    const auto amount = checkedAmount(amountText, -1, why);
    if (!amount)
        return why;
    m_rows.append({name, *amount});
    return Change::Done;
}

NonTaxableList::Change NonTaxableList::replace(int index, const QString &name, const QString &amountText)
{
    if (index < 0 || index >= size())
        return Change::NoSuchRow;
    Change why = Change::Done;
    const auto amount = checkedAmount(amountText, index, why);
    if (!amount)
        return why;
    m_rows[index] = {name, *amount};
    return Change::Done;
}

bool NonTaxableList::remove(int index)
{
    if (index < 0 || index >= size())
        return false;
    m_rows.removeAt(index);
    return true;
}

} // namespace est::sheet
