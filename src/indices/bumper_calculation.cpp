#include "indices/bumper_calculation.h"

namespace est::indices {

namespace {

const QString kZero = QStringLiteral("0");

// Layout of the 31 kept texts: 13 per bumper (front from 0, rear from 13), then the
// off-vehicle check and index, the total, and the vehicle class and colour kind in force.
constexpr int kSideEntries = 13;
enum Entry {
    Included = 0, WorkKind, Content, ConditionChecks, BaseIndex = ConditionChecks + 3, OffVehicleIndex,
    Additions, IndexSum = Additions + 3, Amount
};
constexpr int kOffVehicleChecked = 2 * kSideEntries;
constexpr int kOffVehicleIndex = kOffVehicleChecked + 1;
constexpr int kTotal = kOffVehicleIndex + 1;
constexpr int kVehicleClass = kTotal + 1;
constexpr int kColourKind = kVehicleClass + 1;
static_assert(kColourKind == 30, "the bumper keeps 31 texts");

QString flag(bool value) { return value ? QStringLiteral("1") : kZero; }

QString componentOr0(const QString &text) { return text.trimmed().isEmpty() ? kZero : text; }

} // namespace

BumperCalculation::BumperCalculation(const BumperTables &tables, BumperSettings settings, Messages &messages)
    : m_tables(tables), m_settings(std::move(settings)), m_messages(messages),
      m_conditionValues(tables.conditionIndices())
{
}

QStringList BumperCalculation::workKinds()
{
    return {QStringLiteral("取替"), QStringLiteral("修理")};
}

QStringList BumperCalculation::contents()
{
    return {QStringLiteral("全面塗装"), QStringLiteral("半面塗装"), QStringLiteral("コーナー部塗装")};
}

QString BumperCalculation::workCode(const QString &workKind)
{
    if (workKind == QStringLiteral("取替"))
        return QStringLiteral("X");
    if (workKind == QStringLiteral("修理"))
        return QStringLiteral("S");
    return {};
}

QString BumperCalculation::vehicleClassName(const QString &key)
{
    if (key == QStringLiteral("小型"))
        return QStringLiteral("小型自動車");
    if (key == QStringLiteral("普通"))
        return QStringLiteral("普通自動車");
    if (key == QStringLiteral("軽自"))
        return QStringLiteral("軽自動車");
    return {};
}

void BumperCalculation::setIncluded(Side side, bool included)
{
    at(side).included = included;
    if (included)
        at(side).offVehicle = m_offVehicle && !m_offVehicleIndex.isEmpty() ? m_offVehicleIndex : kZero;
    lookUpBase(side);
    recompute(side);
}

void BumperCalculation::setWorkKind(Side side, const QString &workKind)
{
    at(side).workKind = workKind;
    lookUpBase(side);
    recompute(side);
}

void BumperCalculation::setContent(Side side, const QString &content)
{
    at(side).content = content;
    lookUpBase(side);
    recompute(side);
}

void BumperCalculation::setCondition(Side side, Condition condition, bool checked)
{
    BumperSide &s = at(side);
    s.conditions[size_t(condition)] = checked;
    s.additions[size_t(condition)] = checked ? m_conditionValues[size_t(condition)] : kZero;
    recompute(side);
}

void BumperCalculation::setOffVehicle(bool checked)
{
    m_offVehicle = checked;
    QString component = kZero;
    if (checked) {
        m_offVehicleIndex = m_tables.offVehicleIndex(m_settings.colourKind);
        if (!m_offVehicleIndex.isEmpty())
            component = m_offVehicleIndex;
    } else {
        // Taking the bumpers back onto the vehicle removes the addition again.
        m_offVehicleIndex.clear();
    }
    for (Side side : {Side::Front, Side::Rear}) {
        at(side).offVehicle = component;
        recompute(side);
    }
}

void BumperCalculation::lookUpBase(Side side)
{
    BumperSide &s = at(side);
    const QString code = workCode(s.workKind);
    if (!s.included || code.isEmpty() || s.content.isEmpty())
        return;
    s.base = m_tables.baseIndex(code, m_settings.vehicleClass, m_settings.colourKind, s.content);
}

void BumperCalculation::recompute(Side side)
{
    BumperSide &s = at(side);
    if (!s.included) {
        s.indexSum.clear();
        s.amount.reset();
        return;
    }
    QStringList parts{componentOr0(s.base), componentOr0(s.offVehicle)};
    for (const QString &addition : s.additions)
        parts.append(componentOr0(addition));
    const auto sum = workitems::sumIndexTexts(parts);
    if (!sum)
        return; // an unreadable component: the previous sum and amount stay
    s.indexSum = *sum;
    s.amount = workitems::labourFromIndex(*sum, m_settings.paintRate, m_settings.rounding, m_messages);
}

Yen BumperCalculation::total() const
{
    std::int64_t total = 0;
    for (const BumperSide &s : m_sides)
        total += s.amount.value_or(0);
    return toYen(total).value_or(0);
}

BumperState BumperCalculation::confirmed() const
{
    BumperState state;
    state.entered = true;
    state.lines = QStringList(31);
    int included = 0;
    for (Side side : {Side::Front, Side::Rear}) {
        const BumperSide &s = m_sides[size_t(side)];
        const int o = int(side) * kSideEntries;
        state.lines[o + Included] = flag(s.included);
        state.lines[o + WorkKind] = s.workKind;
        state.lines[o + Content] = s.content;
        for (int c = 0; c < 3; ++c) {
            state.lines[o + ConditionChecks + c] = flag(s.conditions[size_t(c)]);
            state.lines[o + Additions + c] = s.additions[size_t(c)];
        }
        state.lines[o + BaseIndex] = s.base;
        state.lines[o + OffVehicleIndex] = s.offVehicle;
        state.lines[o + IndexSum] = s.indexSum;
        state.lines[o + Amount] = s.amount ? QString::number(*s.amount) : QString();
        included += s.included ? 1 : 0;
    }
    state.lines[kOffVehicleChecked] = flag(m_offVehicle);
    state.lines[kOffVehicleIndex] = m_offVehicleIndex;
    state.labourSum = total();
    state.lines[kTotal] = QString::number(state.labourSum);
    state.lines[kVehicleClass] = m_settings.vehicleClass;
    state.lines[kColourKind] = m_settings.colourKind;
    state.lineCount = included;
    return state;
}

void BumperCalculation::restore(const QStringList &lines)
{
    const auto entry = [&lines](int i) { return i < lines.size() ? lines.at(i) : QString(); };
    for (Side side : {Side::Front, Side::Rear}) {
        BumperSide &s = at(side);
        const int o = int(side) * kSideEntries;
        s.included = entry(o + Included) == QStringLiteral("1");
        s.workKind = entry(o + WorkKind);
        s.content = entry(o + Content);
        for (int c = 0; c < 3; ++c) {
            s.conditions[size_t(c)] = entry(o + ConditionChecks + c) == QStringLiteral("1");
            s.additions[size_t(c)] = componentOr0(entry(o + Additions + c));
        }
        s.base = componentOr0(entry(o + BaseIndex));
        s.offVehicle = componentOr0(entry(o + OffVehicleIndex));
    }
    m_offVehicle = entry(kOffVehicleChecked) == QStringLiteral("1");
    m_offVehicleIndex = entry(kOffVehicleIndex);
    recompute(Side::Front);
    recompute(Side::Rear);
}

} // namespace est::indices
