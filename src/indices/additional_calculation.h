#pragma once
// The additional-index screen's logic: six extra paint jobs (two-tone, door-sash black paint,
// body stripe, sealing, anti-rust wax, booth), each an index from its table and an amount at
// the paint labour rate with the shop's rounding. The state is the additional item table
// itself: six items of five texts, exactly as the screen shows them.

#include "common/messages.h"
#include "common/money.h"
#include "common/paint_state.h"
#include "indices/additional_tables.h"
#include "workitems/labour.h"

#include <QString>
#include <optional>

namespace est::indices {

enum class AdditionalItem { Tone = 0, Sash, Stripe, Sealing, Wax, Booth };

using AdditionalItems = std::array<std::array<QString, kAdditionalFields>, kAdditionalItems>;

class AdditionalCalculation
{
public:
    // The caption of the booth check box, which is also the booth item's label.
    static QString boothCaption();
    // The item table of a screen not used yet: the labels and nothing else.
    static AdditionalItems emptyItems();
    // Where an item keeps its index and its amount (the two-tone item one field later).
    static int indexField(AdditionalItem item) { return item == AdditionalItem::Tone ? 3 : 2; }
    static int amountField(AdditionalItem item) { return indexField(item) + 1; }

    AdditionalCalculation(const AdditionalTables &tables, std::int16_t paintRate, workitems::Rounding rounding,
                          Messages &messages);

    void setToneKind(const QString &kind);
    void setTonePanels(const QString &panels);
    void setDoors(DoorTable table, const QString &doors);
    void setUnits(UnitTable table, const QString &count); // Sealing or Wax
    void setBooth(bool checked);

    const AdditionalItems &items() const { return m_items; }
    QString index(AdditionalItem item) const { return field(item, indexField(item)); }
    QString amount(AdditionalItem item) const { return field(item, amountField(item)); }

    // The six amounts summed; empty when the sum leaves the 32-bit range.
    std::optional<Yen> total() const;

    // The state to keep in the estimate: entered, the item table and the total. Empty when
    // the total does not fit.
    std::optional<AdditionalState> confirmed() const;
    // Shows a confirmed table again exactly as it was stored; nothing is looked up.
    void restore(const AdditionalItems &items);

private:
    QString field(AdditionalItem item, int f) const { return m_items[size_t(item)][size_t(f)]; }
    QString &fieldRef(AdditionalItem item, int f) { return m_items[size_t(item)][size_t(f)]; }
    void updateTone();
    void setIndex(AdditionalItem item, const QString &index);
    void clearItem(AdditionalItem item);

    const AdditionalTables &m_tables;
    std::int16_t m_rate;
    workitems::Rounding m_rounding;
    Messages &m_messages;
    AdditionalItems m_items;
};

} // namespace est::indices
