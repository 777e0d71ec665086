#pragma once
// The arithmetic of the paint screen over plain data: the labour of an index at the paint
// labour rate, the lines of the paint grid with their limit, the labour sums by kind, the
// material cost and paint total B. Every yen of labour is counted once: a basic line counts
// into the basic sum, a surcharge line into its surcharge sum, and the surcharge labour sum
// is the three surcharge sums plus the additional-index total.

#include "paint/paint_line.h"

#include <QList>
#include <QString>
#include <cstdint>
#include <optional>

namespace est::paint {

// The paint grid holds at most this many lines.
inline constexpr int kMaxPaintLines = 73;

struct PaintTotals
{
    Yen basic = 0;          // lblTSum: labour of the basic lines
    Yen twoCoatSolid = 0;   // labour of the two-coat solid lines
    Yen lowHiding = 0;      // labour of the low-hiding lines
    Yen highFunction = 0;   // labour of the high-function lines
    Yen additional = 0;     // lblFukaSum: the additional-index total
    Yen surcharge = 0;      // lblKKSisuSum: the three surcharge sums + the additional total
    Yen bumper = 0;         // lblBumpaSum: bumper painting labour
    Yen material = 0;       // lblZSum: coefficient × (basic + surcharge + bumper)
    Yen paintLabour = 0;    // basic + surcharge: the sheet's paint labour
    Yen totalB = 0;         // paint labour + material + bumper: paint total B

    bool operator==(const PaintTotals &) const = default;
};

class PaintCalculation
{
public:
    enum class Change { Done, Full, Overflow, NoSuchLine };

    void setRate(std::int16_t rate);
    std::int16_t rate() const { return m_rate; }
    // The material coefficient in force as shown ("0.45"); empty counts as 0.
    bool setCoefficient(const QString &coefficient);
    QString coefficient() const { return m_coefficient; }
    bool setBumperLabour(Yen labour);
    bool setAdditionalTotal(Yen total);

    // index × paint labour rate to whole yen, ties to even; empty for no number or overflow.
    std::optional<Yen> labourOf(const QString &index) const;
    // coefficient × amount to whole yen, ties to even (0 without a coefficient).
    std::optional<Yen> materialOf(Yen amount) const;

    const QList<PaintLine> &lines() const { return m_lines; }
    int count() const { return int(m_lines.size()); }
    bool full() const { return count() >= kMaxPaintLines; }

    // The grid changes. Full: the limit is reached; Overflow: a sum would leave 32 bits.
    // Nothing changes unless Done is returned.
    Change add(const PaintLine &line);
    Change insert(int at, const PaintLine &line);
    Change replace(int at, const PaintLine &line);
    Change remove(int at);
    // Replaces every line at once (reopening the screen); the first kMaxPaintLines are kept.
    Change setLines(const QList<PaintLine> &lines);

    const PaintTotals &totals() const { return m_totals; }
    // Labour of lines 0..at, for the 工賃計 column.
    Yen runningLabour(int at) const;

private:
    std::optional<PaintTotals> compute(const QList<PaintLine> &lines, Yen bumper, Yen additional,
                                       const QString &coefficient) const;
    Change apply(const QList<PaintLine> &lines);

    std::int16_t m_rate = 0;
    QString m_coefficient;
    Yen m_bumper = 0;
    Yen m_additional = 0;
    QList<PaintLine> m_lines;
    PaintTotals m_totals;
};

} // namespace est::paint
