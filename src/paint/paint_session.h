#pragma once
// What the paint screen takes from the open estimate when it opens and what it writes back
// on OK: the lines, the vehicle class, the coefficient in force, the high-function values,
// the screen's choices (kept in the paint line list) and the paint totals of the sheet.

#include "common/session.h"
#include "paint/paint_calculation.h"

#include <QString>
#include <QStringList>

namespace est::paint {

// The choices of the paint screen that come back when it is opened again.
struct PaintChoices
{
    QString material;          // cboToryo
    QString panels;            // cboMai
    bool twoCoatSolid = false; // chk2s
    bool lowHiding = false;    // chkT
    bool materialOn = true;    // chkZ

    bool operator==(const PaintChoices &) const = default;
};

// Everything the paint screen hands back besides the lines.
struct PaintOutcome
{
    QString vehicleClass;             // "小型", "普通" or "軽自"
    QString coefficient;              // lblKsu, the coefficient in force
    QString highFunctionIndex;        // lblKKihonSisu
    QString highFunctionCoefficient;  // lblKouZairyo
    std::int16_t paintRate = 0;       // the paint labour rate of this estimate
    PaintChoices choices;
};

// The vehicle's paint data from the hand-over array.
QString vehicleColourNumber(const Session &session);
QString vehiclePaintKind(const Session &session);
QString vehicleHighFunction(const Session &session);
// The paint kind dialog's OK: the three texts into the vehicle array.
void setVehiclePaint(Session &session, const QString &colourNumber, const QString &paintKind,
                     const QString &highFunction);

PaintChoices choicesFrom(const QStringList &paintLines);
// Whether the estimate's painting was priced for the vehicle's present paint kind and
// high-function paint; its stored coefficient and high-function values then still hold.
bool pricedForCurrentPaint(const Session &session);
// The paint lines of the paint grid as the estimate keeps them (stored rows that cannot be
// read are left out).
QList<PaintLine> storedLines(const Session &session);

// OK of the paint screen: rows, state and the sheet's paint totals into the session.
void storePaint(const PaintCalculation &calculation, const PaintOutcome &outcome, Session &session);

// The paint screens ran on a draft of the estimate; on their OK this takes over what they
// change: the vehicle's paint data, the paint, bumper and additional state, the paint
// labour rate and the paint totals.
void takePaintResult(const Session &draft, Session &session);

} // namespace est::paint
