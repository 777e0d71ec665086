#pragma once
// dlgNaiban: the inner-panel menu. Seven items with their index for the vehicle's class; a
// click on an item's index button chooses it for the paint screen's entry line.

#include "paint/paint_masters.h"
#include "uikit/guarded_dialog.h"

#include <optional>

namespace est::paint {

// The index column of the inner-panel table for a vehicle class key: light cars have their own.
inline bool usesLightCarIndex(const QString &vehicleClass) { return vehicleClass == QStringLiteral("軽自"); }

class DlgNaiban : public ui::GuardedDialog
{
    Q_OBJECT
public:
    DlgNaiban(const QList<InnerPanelItem> &items, const QString &vehicleClass, Messages &messages,
              QWidget *parent = nullptr);

    // The chosen item, its index already taken from the class column.
    std::optional<InnerPanelItem> chosen() const { return m_chosen; }
    // What the entry line receives: part and content joined, and the index.
    QString partName() const;
    QString index() const;

private:
    QList<InnerPanelItem> m_items;
    std::optional<InnerPanelItem> m_chosen;
};

} // namespace est::paint
