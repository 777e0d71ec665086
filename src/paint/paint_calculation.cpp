#include "paint/paint_calculation.h"

#include "common/number_format.h"
#include "workitems/labour.h"

namespace est::paint {

void PaintCalculation::setRate(std::int16_t rate)
{
    m_rate = rate;
}

bool PaintCalculation::setCoefficient(const QString &coefficient)
{
    const auto totals = compute(m_lines, m_bumper, m_additional, coefficient);
    if (!totals)
        return false;
    m_coefficient = coefficient;
    m_totals = *totals;
    return true;
}

bool PaintCalculation::setBumperLabour(Yen labour)
{
    const auto totals = compute(m_lines, labour, m_additional, m_coefficient);
    if (!totals)
        return false;
    m_bumper = labour;
    m_totals = *totals;
    return true;
}

bool PaintCalculation::setAdditionalTotal(Yen total)
{
    const auto totals = compute(m_lines, m_bumper, total, m_coefficient);
    if (!totals)
        return false;
    m_additional = total;
    m_totals = *totals;
    return true;
}

std::optional<Yen> PaintCalculation::labourOf(const QString &index) const
{
    return workitems::decimalProductToYen(index, QString::number(m_rate));
}

std::optional<Yen> PaintCalculation::materialOf(Yen amount) const
{
    if (isBlank(m_coefficient))
        return Yen(0);
    return workitems::decimalProductToYen(m_coefficient, QString::number(amount));
}

PaintCalculation::Change PaintCalculation::add(const PaintLine &line)
{
    return insert(count(), line);
}

PaintCalculation::Change PaintCalculation::insert(int at, const PaintLine &line)
{
    if (full())
        return Change::Full;
    if (at < 0 || at > count())
        return Change::NoSuchLine;
    QList<PaintLine> lines = m_lines;
    lines.insert(at, line);
    return apply(lines);
}

PaintCalculation::Change PaintCalculation::replace(int at, const PaintLine &line)
{
    if (at < 0 || at >= count())
        return Change::NoSuchLine;
    QList<PaintLine> lines = m_lines;
    lines[at] = line;
    return apply(lines);
}

PaintCalculation::Change PaintCalculation::remove(int at)
{
    if (at < 0 || at >= count())
        return Change::NoSuchLine;
    QList<PaintLine> lines = m_lines;
    lines.removeAt(at);
    return apply(lines);
}

PaintCalculation::Change PaintCalculation::setLines(const QList<PaintLine> &lines)
{
    return apply(lines.mid(0, kMaxPaintLines));
}

PaintCalculation::Change PaintCalculation::apply(const QList<PaintLine> &lines)
{
    const auto totals = compute(lines, m_bumper, m_additional, m_coefficient);
    if (!totals)
        return Change::Overflow;
    m_lines = lines;
    m_totals = *totals;
    return Change::Done;
}

Yen PaintCalculation::runningLabour(int at) const
{
    // The sums of all lines fit (compute() checked them), so no part of them can overflow.
    Yen sum = 0;
    for (int i = 0; i <= at && i < count(); ++i)
        sum += m_lines.at(i).labour;
    return sum;
}

std::optional<PaintTotals> PaintCalculation::compute(const QList<PaintLine> &lines, Yen bumper, Yen additional,
                                                     const QString &coefficient) const
{
    PaintTotals t;
    t.bumper = bumper;
    t.additional = additional;
    for (const PaintLine &line : lines) {
        Yen *sum = &t.basic;
        if (line.kind == LineKind::TwoCoatSolid)
            sum = &t.twoCoatSolid;
        else if (line.kind == LineKind::LowHiding)
            sum = &t.lowHiding;
        else if (line.kind == LineKind::HighFunction)
            sum = &t.highFunction;
        const auto next = addYen(*sum, line.labour);
        if (!next)
            return std::nullopt;
        *sum = *next;
    }
    const auto chain = [](std::initializer_list<Yen> values) -> std::optional<Yen> {
        Yen total = 0;
        for (Yen v : values) {
            const auto next = addYen(total, v);
            if (!next)
                return std::nullopt;
            total = *next;
        }
        return total;
    };
    const auto surcharge = chain({t.twoCoatSolid, t.lowHiding, t.highFunction, t.additional});
    if (!surcharge)
        return std::nullopt;
    t.surcharge = *surcharge;
    const auto labour = chain({t.basic, t.surcharge});
    const auto base = labour ? chain({*labour, t.bumper}) : std::nullopt;
    if (!labour || !base)
        return std::nullopt;
    t.paintLabour = *labour;
    if (isBlank(coefficient)) {
        t.material = 0;
    } else {
        const auto material = workitems::decimalProductToYen(coefficient, QString::number(*base));
        if (!material)
            return std::nullopt;
        t.material = *material;
    }
    const auto total = chain({t.paintLabour, t.material, t.bumper});
    if (!total)
        return std::nullopt;
    t.totalB = *total;
    return t;
}

} // namespace est::paint
