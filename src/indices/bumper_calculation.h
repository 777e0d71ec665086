#pragma once
// The bumper screen's logic: per bumper (front, rear) the kind of work, the content, the base
// index looked up for them, the off-vehicle and condition additions, the index sum and its
// amount at the paint labour rate with the shop's rounding; the state kept for reopening.

#include "common/messages.h"
#include "common/money.h"
#include "common/paint_state.h"
#include "indices/bumper_tables.h"
#include "workitems/labour.h"

#include <QString>
#include <QStringList>
#include <array>
#include <optional>

namespace est::indices {

enum class Side { Front = 0, Rear = 1 };
// In the order of the rows of BampaJyoukenDB.
enum class Condition { Hyoj = 0, Sima = 1, Kizu = 2 };

// What the bumper screen takes from the estimate when it opens.
struct BumperSettings
{
    QString vehicleClass;   // "小型", "普通" or "軽自"
    QString colourKind;     // the paint kind of the estimate
    std::int16_t paintRate = 0;
    workitems::Rounding rounding;
};

struct BumperSide
{
    bool included = false;
    QString workKind;       // "取替" or "修理"
    QString content;
    std::array<bool, 3> conditions{};
    // The five components of the index sum, decimal texts, "0" when not in use.
    QString base = QStringLiteral("0");
    QString offVehicle = QStringLiteral("0");
    std::array<QString, 3> additions{QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0")};
    QString indexSum;              // txtFrSisu; empty when the bumper is not included
    std::optional<Yen> amount;     // lblFrSum; empty when the bumper is not included
};

class BumperCalculation
{
public:
    BumperCalculation(const BumperTables &tables, BumperSettings settings, Messages &messages);

    // The design-time lists of the kind-of-work and content boxes.
    static QStringList workKinds();
    static QStringList contents();
    // "取替" -> "X", "修理" -> "S", anything else empty.
    static QString workCode(const QString &workKind);
    // "小型" -> "小型自動車" ...; empty for another key.
    static QString vehicleClassName(const QString &key);

    void setIncluded(Side side, bool included);
    void setWorkKind(Side side, const QString &workKind);
    void setContent(Side side, const QString &content);
    void setCondition(Side side, Condition condition, bool checked);
    void setOffVehicle(bool checked);

    const BumperSide &side(Side side) const { return m_sides[size_t(side)]; }
    bool offVehicle() const { return m_offVehicle; }
    QString offVehicleIndex() const { return m_offVehicleIndex; }  // lblTantai
    const BumperSettings &settings() const { return m_settings; }

    // Front + rear amount (a bumper without an amount counts as nothing).
    Yen total() const;

    // The state to keep in the estimate: marked entered, choices and components in `lines`,
    // the total as the bumper labour sum.
    BumperState confirmed() const;
    // Restores the choices and components of a confirmed screen and recomputes the amounts
    // at the current rate and rounding.
    void restore(const QStringList &lines);

private:
    BumperSide &at(Side side) { return m_sides[size_t(side)]; }
    void lookUpBase(Side side);
    void recompute(Side side);

    const BumperTables &m_tables;
    BumperSettings m_settings;
    Messages &m_messages;
    std::array<QString, 3> m_conditionValues;
    std::array<BumperSide, 2> m_sides;
    bool m_offVehicle = false;
    QString m_offVehicleIndex;
};

} // namespace est::indices
