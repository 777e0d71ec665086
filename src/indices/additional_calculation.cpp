#include "indices/additional_calculation.h"

#include "common/number_format.h"
#include "indices/index_value.h"

#include <limits>

namespace est::indices {

namespace {

AdditionalItem itemOf(DoorTable table)
{
    return table == DoorTable::Sash ? AdditionalItem::Sash : AdditionalItem::Stripe;
}

AdditionalItem itemOf(UnitTable table)
{
    switch (table) {
    case UnitTable::Sealing: return AdditionalItem::Sealing;
    case UnitTable::Wax: return AdditionalItem::Wax;
    case UnitTable::Booth: break;
    }
    return AdditionalItem::Booth;
}

// A count typed into a box: a whole number that fits in 16 bits, not negative.
std::optional<std::int16_t> count16(const QString &text)
{
    bool ok = false;
    const int value = text.trimmed().toInt(&ok);
    if (!ok || value < 0 || value > std::numeric_limits<std::int16_t>::max())
        return std::nullopt;
    return std::int16_t(value);
}

} // namespace

QString AdditionalCalculation::boothCaption()
{
    return QStringLiteral("塗装ﾌﾞｰｽ使用");
}

AdditionalItems AdditionalCalculation::emptyItems()
{
    AdditionalItems items;
    const QString labels[kAdditionalItems] = {QStringLiteral("2ﾄｰﾝｶﾗｰ"),     QStringLiteral("ﾄﾞｱｻｯｼｭ黒塗装"),
                                              QStringLiteral("ﾎﾞﾃﾞｰｽﾄﾗｲﾌﾟ"), QStringLiteral("ﾎﾞﾃﾞｰｼｰﾘﾝｸﾞ"),
                                              QStringLiteral("防錆ﾜｯｸｽ"),     boothCaption()};
    for (int i = 0; i < kAdditionalItems; ++i)
        items[size_t(i)][0] = labels[i];
    items[size_t(AdditionalItem::Booth)][1] = QStringLiteral("0");
    return items;
}

AdditionalCalculation::AdditionalCalculation(const AdditionalTables &tables, std::int16_t paintRate,
                                             workitems::Rounding rounding, Messages &messages)
    : m_tables(tables), m_rate(paintRate), m_rounding(rounding), m_messages(messages), m_items(emptyItems())
{
}

void AdditionalCalculation::setToneKind(const QString &kind)
{
    fieldRef(AdditionalItem::Tone, 1) = kind;
    updateTone();
}

void AdditionalCalculation::setTonePanels(const QString &panels)
{
    fieldRef(AdditionalItem::Tone, 2) = panels;
    updateTone();
}

void AdditionalCalculation::updateTone()
{
    // The index for n panels is the field at position n + 1; no panels or no kind leaves it.
    // Choosing the blank panel count takes two-tone off the estimate, as the blank door count
    // does for the door items; without it a two-tone once priced could not be removed.
    const QString kind = field(AdditionalItem::Tone, 1);
    if (field(AdditionalItem::Tone, 2).isEmpty()) {
        clearItem(AdditionalItem::Tone);
        return;
    }
    const auto panels = count16(field(AdditionalItem::Tone, 2));
    if (!panels || *panels == std::numeric_limits<std::int16_t>::max())
        return;
    const int position = *panels + 1;
    if (position <= 1 || kind.isEmpty())
        return;
    const QString index = m_tables.toneIndex(kind, position);
    if (!index.isEmpty())
        setIndex(AdditionalItem::Tone, index);
}

void AdditionalCalculation::setDoors(DoorTable table, const QString &doors)
{
    const AdditionalItem item = itemOf(table);
    fieldRef(item, 1) = doors;
    if (doors.isEmpty()) {
        // Choosing no doors takes the item off the estimate.
        clearItem(item);
        return;
    }
    const QString index = m_tables.doorIndex(table, doors);
    if (!index.isEmpty())
        setIndex(item, index);
}

void AdditionalCalculation::setUnits(UnitTable table, const QString &count)
{
    const AdditionalItem item = itemOf(table);
    fieldRef(item, 1) = count;
    if (count.isEmpty()) {
        clearItem(item);
        return;
    }
    const auto units = count16(count);
    const QString perUnit = m_tables.unitIndex(table);
    if (!units || perUnit.isEmpty())
        return;
    if (const auto index = workitems::multiplyIndexText(perUnit, *units))
        setIndex(item, *index);
}

void AdditionalCalculation::setBooth(bool checked)
{
    fieldRef(AdditionalItem::Booth, 1) = checked ? QStringLiteral("1") : QStringLiteral("0");
    if (!checked) {
        clearItem(AdditionalItem::Booth);
        return;
    }
    const QString index = m_tables.unitIndex(UnitTable::Booth);
    if (!index.isEmpty())
        setIndex(AdditionalItem::Booth, index);
}

void AdditionalCalculation::setIndex(AdditionalItem item, const QString &index)
{
    // The amount is priced from the index as shown, two decimals.
    const QString shown = shownIndex(index);
    fieldRef(item, indexField(item)) = shown;
    const auto amount = workitems::labourFromIndex(shown, m_rate, m_rounding, m_messages);
    if (amount)
        fieldRef(item, amountField(item)) = formatThousands(*amount);
}

void AdditionalCalculation::clearItem(AdditionalItem item)
{
    fieldRef(item, indexField(item)).clear();
    fieldRef(item, amountField(item)).clear();
}

std::optional<Yen> AdditionalCalculation::total() const
{
    Yen sum = 0;
    for (int i = 0; i < kAdditionalItems; ++i) {
        const auto value = parseDisplayedYen(amount(AdditionalItem(i)));
        if (!value)
            continue;
        const auto next = addYen(sum, *value);
        if (!next)
            return std::nullopt;
        sum = *next;
    }
    return sum;
}

std::optional<AdditionalState> AdditionalCalculation::confirmed() const
{
    const auto sum = total();
    if (!sum)
        return std::nullopt;
    AdditionalState state;
    state.entered = true;
    state.items = m_items;
    state.total = *sum;
    for (int i = 0; i < kAdditionalItems; ++i)
        state.lineCount += isBlank(amount(AdditionalItem(i))) ? 0 : 1;
    return state;
}

void AdditionalCalculation::restore(const AdditionalItems &items)
{
    m_items = items;
}

} // namespace est::indices
