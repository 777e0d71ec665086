#include "paint/paint_session.h"

namespace est::paint {

namespace {

// Positions in the paint line list (eleven texts); 5 to 7 keep the vehicle's paint data
// the lines were priced with.
enum ChoiceIndex { Material = 0, Panels, TwoCoat, LowHiding, MaterialOn, ColourNo, Kind, HighFunc };

QString at(const QStringList &list, int i)
{
    return i < list.size() ? list.at(i) : QString();
}

QString flag(bool on)
{
    return on ? QStringLiteral("1") : QStringLiteral("0");
}

} // namespace

// Positions of the vehicle's paint data in the vehicle hand-over array.
enum VehicleIndex { IroNo = 13, IroSyurui = 14, Koukinou = 15 };

QString vehicleColourNumber(const Session &session) { return at(session.vehicle, IroNo); }
QString vehiclePaintKind(const Session &session) { return at(session.vehicle, IroSyurui); }
QString vehicleHighFunction(const Session &session) { return at(session.vehicle, Koukinou); }

void setVehiclePaint(Session &session, const QString &colourNumber, const QString &paintKind,
                     const QString &highFunction)
{
    while (session.vehicle.size() <= Koukinou)
        session.vehicle.append(QString());
    session.vehicle[IroNo] = colourNumber;
    session.vehicle[IroSyurui] = paintKind;
    session.vehicle[Koukinou] = highFunction;
}

void takePaintResult(const Session &draft, Session &session)
{
    session.vehicle = draft.vehicle;
    session.paint = draft.paint;
    session.bumper = draft.bumper;
    session.additional = draft.additional;
    session.paintLabourRate = draft.paintLabourRate;
    session.totals.paintLabour = draft.totals.paintLabour;
    session.totals.paintMaterial = draft.totals.paintMaterial;
    session.totals.bumperPaint = draft.totals.bumperPaint;
    session.totals.paintTotalB = draft.totals.paintTotalB;
}

PaintChoices choicesFrom(const QStringList &paintLines)
{
    PaintChoices c;
    c.material = at(paintLines, Material);
    c.panels = at(paintLines, Panels);
    c.twoCoatSolid = at(paintLines, TwoCoat) == QStringLiteral("1");
    c.lowHiding = at(paintLines, LowHiding) == QStringLiteral("1");
    c.materialOn = at(paintLines, MaterialOn) != QStringLiteral("0");
    return c;
}

bool pricedForCurrentPaint(const Session &session)
{
    const QStringList &lines = session.paint.lines;
    return session.paint.entered && at(lines, Kind) == vehiclePaintKind(session)
           && at(lines, HighFunc) == vehicleHighFunction(session);
}

QList<PaintLine> storedLines(const Session &session)
{
    QList<PaintLine> lines;
    for (const EstimateRow &row : session.paint.rows)
        if (const auto line = fromEstimateRow(row))
            lines.append(*line);
    return lines;
}

void storePaint(const PaintCalculation &calculation, const PaintOutcome &outcome, Session &session)
{
    PaintState &paint = session.paint;
    paint.rows.clear();
    for (int i = 0; i < calculation.count(); ++i)
        paint.rows.append(toEstimateRow(calculation.lines().at(i), i + 1));
    paint.vehicleClass = outcome.vehicleClass;
    paint.materialCoefficient = outcome.coefficient;
    paint.highFunctionBaseIndex = outcome.highFunctionIndex;
    paint.highFunctionMaterialIndex = outcome.highFunctionCoefficient;
    paint.baseAdditionIndex = calculation.totals().surcharge;
    paint.entered = true;
    QStringList lines(11);
    lines[Material] = outcome.choices.material;
    lines[Panels] = outcome.choices.panels;
    lines[TwoCoat] = flag(outcome.choices.twoCoatSolid);
    lines[LowHiding] = flag(outcome.choices.lowHiding);
    lines[MaterialOn] = flag(outcome.choices.materialOn);
    lines[ColourNo] = vehicleColourNumber(session);
    lines[Kind] = vehiclePaintKind(session);
    lines[HighFunc] = vehicleHighFunction(session);
    paint.lines = lines;

    session.paintLabourRate = outcome.paintRate;
    const PaintTotals &t = calculation.totals();
    session.totals.paintLabour = t.paintLabour;
    session.totals.paintMaterial = t.material;
    session.totals.bumperPaint = t.bumper;
    session.totals.paintTotalB = t.totalB;
}

} // namespace est::paint
