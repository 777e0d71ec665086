#include "paint/paint_editor.h"

#include "paint/paint_kind.h"
#include "sheet/sheet_grid_layout.h"
#include "workitems/labour.h"

#include <limits>

namespace est::paint {

namespace {

QString at(const QStringList &list, int i)
{
    return i < list.size() ? list.at(i) : QString();
}

QString joined(const QString &name, const QString &suffix)
{
    return name + QStringLiteral("  ") + suffix;
}

} // namespace

PaintEditor::PaintEditor(const PaintMasters *masters, const Session &session) : m_masters(masters)
{
    m_customer = at(session.customer, 2);
    m_car = at(session.vehicle, 4);
    m_colourNumber = vehicleColourNumber(session);
    m_paintKind = vehiclePaintKind(session);
    m_highFunction = vehicleHighFunction(session);
    m_vehicleClass = session.paint.vehicleClass;
    m_colourCode = colourKindCode(m_paintKind);

    QString coefficient;
    if (pricedForCurrentPaint(session)) {
        // An estimate keeps the prices it was made with, even if the tables changed since.
        coefficient = session.paint.materialCoefficient;
        m_hfIndex = session.paint.highFunctionBaseIndex;
        m_hfCoefficient = session.paint.highFunctionMaterialIndex;
    } else {
        lookUpCoefficient(coefficient);
    }
    m_calc.setRate(session.paintLabourRate);
    m_calc.setCoefficient(coefficient);
    // A reopened estimate has its sums only in the saved totals.
    m_calc.setBumperLabour(session.bumper.labourSum != 0 ? session.bumper.labourSum : session.totals.bumperPaint);
    m_calc.setAdditionalTotal(session.additional.total != 0 ? session.additional.total
                                                             : sheet::additionalLabour(session));
    QList<PaintLine> lines = storedLines(session);
    for (PaintLine &line : lines)
        if (line.withMaterial)
            line.material = m_calc.materialOf(line.labour).value_or(0);
    m_calc.setLines(lines);
}

void PaintEditor::lookUpCoefficient(QString &coefficient)
{
    if (m_masters && !m_paintKind.isEmpty())
        coefficient = m_masters->materialCoefficient(m_paintKind).value_or(QString());
    if (!m_masters || m_highFunction.isEmpty())
        return;
    const auto hf = m_masters->highFunction(m_paintKind);
    if (!hf)
        return;
    m_hfIndex = hf->baseIndex;
    const HighFunction which = highFunctionOf(m_highFunction);
    m_hfCoefficient = which == HighFunction::Fluorine ? hf->fluorine
                      : which == HighFunction::Other  ? hf->other
                                                      : QString();
    const auto orZero = [](const QString &t) { return t.isEmpty() ? QStringLiteral("0") : t; };
    if (const auto sum = workitems::decimalSum(orZero(coefficient), orZero(m_hfCoefficient)))
        coefficient = *sum;
}

QString PaintEditor::presetMaterial() const
{
    return paint::presetMaterial(m_paintKind);
}

QList<PaintCategory> PaintEditor::categories() const
{
    return m_masters ? m_masters->categories() : QList<PaintCategory>();
}

QList<PaintPart> PaintEditor::parts(const QString &categoryCode) const
{
    return m_masters ? m_masters->parts(categoryCode) : QList<PaintPart>();
}

QList<InnerPanelItem> PaintEditor::innerPanelItems() const
{
    return m_masters ? m_masters->innerPanelItems() : QList<InnerPanelItem>();
}

QStringList PaintEditor::materials() const
{
    return m_masters ? m_masters->materials() : QStringList();
}

std::int16_t PaintEditor::panelCount(const QString &panelsText)
{
    bool ok = false;
    const int value = panelsText.trimmed().toInt(&ok);
    if (!ok || value < 1 || value > std::numeric_limits<std::int16_t>::max())
        return 0;
    return std::int16_t(value);
}

QString PaintEditor::rangeText(const QString &panelsText)
{
    const std::int16_t count = panelCount(panelsText);
    return count == 0 ? QString() : QStringLiteral("%1枚").arg(count);
}

QString PaintEditor::basicIndex(const QString &panelsText, const QString &material) const
{
    const std::int16_t count = panelCount(panelsText);
    if (count == 0 || material.isEmpty() || !m_masters)
        return {};
    const auto base = m_masters->baseIndex(m_vehicleClass, m_colourCode, material, count);
    if (!base)
        return {};
    if (m_highFunction.isEmpty() || m_hfIndex.isEmpty())
        return *base;
    return workitems::decimalSum(*base, m_hfIndex).value_or(QString());
}

QString PaintEditor::twoCoatAddition() const
{
    return m_masters ? m_masters->twoCoatSolidIndex(QStringLiteral("加算指数")).value_or(QString()) : QString();
}

QString PaintEditor::lowHidingAddition() const
{
    return m_masters ? m_masters->lowHidingIndex(QStringLiteral("加算指数")).value_or(QString()) : QString();
}

SurchargeEntry PaintEditor::twoCoatSolid(const QString &currentName, bool roof) const
{
    SurchargeEntry e;
    e.kind = LineKind::TwoCoatSolid;
    e.partName = joined(currentName, roof ? QStringLiteral("2ｺｰﾄｿﾘｯﾄﾞ加算 　ﾙｰﾌ") : QStringLiteral("2ｺｰﾄｿﾘｯﾄﾞ加算 　ﾙｰﾌ以外"));
    if (m_masters)
        e.index = m_masters->twoCoatSolidIndex(roof ? QStringLiteral("ルーフ") : QStringLiteral("ルーフ以外"))
                      .value_or(QString());
    return e;
}

SurchargeEntry PaintEditor::lowHiding(const QString &currentName, bool roof) const
{
    SurchargeEntry e;
    e.kind = LineKind::LowHiding;
    e.partName = joined(currentName, roof ? QStringLiteral("低隠蔽性塗料　ﾙｰﾌ") : QStringLiteral("低隠蔽性塗料　ﾙｰﾌ以外"));
    if (m_masters)
        e.index = m_masters->lowHidingIndex(roof ? QStringLiteral("ﾙｰﾌ") : QStringLiteral("ﾙｰﾌ以外")).value_or(QString());
    return e;
}

SurchargeEntry PaintEditor::highFunctionSurcharge(const QString &currentName) const
{
    SurchargeEntry e;
    e.kind = LineKind::HighFunction;
    e.partName = joined(currentName, m_highFunction + QStringLiteral("割増"));
    e.index = m_hfIndex;
    return e;
}

QString PaintEditor::lowHidingFor(const QString &location, const QString &kind) const
{
    return m_masters ? m_masters->lowHidingIndex(location, kind).value_or(QString()) : QString();
}

std::optional<PaintLine> PaintEditor::makeLine(LineKind kind, const QString &section, const QString &partName,
                                               const QString &partKind, const QString &range, const QString &index,
                                               bool withMaterial) const
{
    const auto labour = m_calc.labourOf(index);
    if (!labour || *labour < 0)
        return std::nullopt;
    PaintLine line{kind, section, partName, partKind, range, index, *labour, withMaterial, 0};
    if (withMaterial) {
        const auto material = m_calc.materialOf(*labour);
        if (!material)
            return std::nullopt;
        line.material = *material;
    }
    return line;
}

void PaintEditor::store(const PaintChoices &choices, Session &session) const
{
    PaintOutcome outcome;
    outcome.vehicleClass = m_vehicleClass;
    outcome.coefficient = m_calc.coefficient();
    outcome.highFunctionIndex = m_hfIndex;
    outcome.highFunctionCoefficient = m_hfCoefficient;
    outcome.paintRate = m_calc.rate();
    outcome.choices = choices;
    storePaint(m_calc, outcome, session);
}

} // namespace est::paint
