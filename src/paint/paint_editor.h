#pragma once
// What the paint screen knows while it is open, without widgets: the vehicle's paint data,
// the values looked up for it (coefficient in force, high-function additions), the entry
// line's lookups (basic index, surcharges) and the calculation of its lines. The screen
// reads its controls into this class and shows what comes back.

#include "common/session.h"
#include "paint/paint_calculation.h"
#include "paint/paint_masters.h"
#include "paint/paint_session.h"

#include <QString>
#include <optional>

namespace est::paint {

// What a surcharge button puts into the entry line.
struct SurchargeEntry
{
    QString partName;
    QString index;   // empty when the table has no value
    LineKind kind = LineKind::Basic;
};

// The entry line's text, as the screen reads it from its controls and shows it.
struct EntryText
{
    QString partName;  // txtBuimei
    QString panels;    // cboMai
    QString index;     // txtSisu
    bool withMaterial = false; // chkZ
};

// What an action on the entry line or the grid comes to; all but Done are said to the user.
enum class EntryOutcome {
    Done,
    NoIndex,        // the entry has no index
    Full,           // the grid is at its line limit
    Overflow,       // labour or a sum too large
    NoLines,        // nothing to delete
    NoRowChosen,    // a grid row is needed
    StillEditing,   // OK while a line is being edited
    PendingEntry,   // OK with an index typed but not added: asked
};

class PaintEditor
{
public:
    // Reads the vehicle data, the stored lines and sums from the session (a copy is kept;
    // nothing is written back before store()). `masters` may be null: every lookup is empty.
    PaintEditor(const PaintMasters *masters, const Session &session);

    // The vehicle as the screen shows it.
    QString customerName() const { return m_customer; }
    QString carName() const { return m_car; }
    QString colourNumber() const { return m_colourNumber; }
    QString paintKind() const { return m_paintKind; }
    QString highFunctionName() const { return m_highFunction; }
    QString vehicleClass() const { return m_vehicleClass; }
    QString colourCode() const { return m_colourCode; }
    QString presetMaterial() const;

    // lblKsu, lblKKihonSisu, lblKouZairyo.
    QString coefficient() const { return m_calc.coefficient(); }
    QString highFunctionIndex() const { return m_hfIndex; }
    QString highFunctionCoefficient() const { return m_hfCoefficient; }

    QList<PaintCategory> categories() const;
    QList<PaintPart> parts(const QString &categoryCode) const;
    QStringList materials() const;
    QList<InnerPanelItem> innerPanelItems() const;

    // txtKisoSisu for a panel count typed or chosen and a paint material: the basic index plus
    // the high-function index, "0.00"; empty when the count is not a whole number from 1 to
    // 32,767 or nothing is found.
    QString basicIndex(const QString &panelsText, const QString &material) const;
    // The 16-bit panel count of the text, 0 when it is none.
    static std::int16_t panelCount(const QString &panelsText);
    // The range column of a basic line ("2枚"), empty without a count.
    static QString rangeText(const QString &panelsText);

    // The addition indices shown when chk2s / chkT are checked.
    QString twoCoatAddition() const;
    QString lowHidingAddition() const;
    // cmdR2 / cmdNotR2, cmdRTei / cmdNotRTei, cmdKoukino.
    SurchargeEntry twoCoatSolid(const QString &currentName, bool roof) const;
    SurchargeEntry lowHiding(const QString &currentName, bool roof) const;
    SurchargeEntry highFunctionSurcharge(const QString &currentName) const;
    bool hasHighFunction() const { return !m_highFunction.isEmpty(); }

    // The low-hiding dialog's lookups by paint location and kind.
    QString lowHidingFor(const QString &location, const QString &kind) const;

    // A complete line from the entry; empty when the index is no number or labour overflows.
    std::optional<PaintLine> makeLine(LineKind kind, const QString &section, const QString &partName,
                                      const QString &partKind, const QString &range, const QString &index,
                                      bool withMaterial) const;

    // The entry line's rules. The kind and part kind of the line being entered follow the
    // last thing that filled its index: a basic index, a surcharge, the low-hiding or
    // inner-panel dialogs, or a line taken back for editing.
    void chooseCategory(const QString &section) { m_section = section; }
    void choosePart(const QString &location) { m_location = location; }
    QString chosenLocation() const { return m_location; }
    void setEntryKind(LineKind kind);
    LineKind entryKind() const { return m_kind; }
    QString entryPartKind() const { return m_partKind; }
    // The entry index of the low-hiding dialog's answer: its index plus the addition.
    QString takeLowHiding(const QString &index, const QString &addition, const QString &partKind);
    // The line the entry makes, or why not.
    std::optional<PaintLine> entryLine(const EntryText &entry, EntryOutcome *why) const;

    // The grid row the user clicked; -1 for none.
    void chooseRow(int row) { m_chosenRow = row; }
    int chosenRow() const { return m_chosenRow; }
    int editingRow() const { return m_editing; }
    bool editing() const { return m_editing >= 0; }
    EntryOutcome addEntry(const EntryText &entry);
    // Before the chosen row, or at the end without one.
    EntryOutcome insertEntry(const EntryText &entry);
    // Without a line being edited: takes the chosen row back into `load` for editing
    // (false when no row is chosen). While editing: replaces that row with the entry.
    EntryOutcome editEntry(const EntryText &entry, std::optional<EntryText> *load);
    void cancelEdit();
    // Whether the chosen row can be deleted (then ask, then removeChosen()).
    EntryOutcome canRemoveChosen() const;
    EntryOutcome removeChosen();
    // Whether OK may close: not while editing; a typed index not added is asked about.
    EntryOutcome canConfirm(const EntryText &entry) const;
    // Forgets the entry's kind after it was added or cleared.
    void resetEntry();

    PaintCalculation &calculation() { return m_calc; }
    const PaintCalculation &calculation() const { return m_calc; }

    // OK: the lines, the state and the totals into the session.
    void store(const PaintChoices &choices, Session &session) const;

private:
    // The coefficient in force and the high-function values from the tables.
    void lookUpCoefficient(QString &coefficient);

    const PaintMasters *m_masters;
    QString m_customer, m_car, m_colourNumber, m_paintKind, m_highFunction, m_vehicleClass, m_colourCode;
    QString m_hfIndex, m_hfCoefficient;
    PaintCalculation m_calc;
    QString m_section;        // category of the entry line
    QString m_location;       // paint location of the chosen panel
    QString m_partKind;       // "新品" / "修正" from the low-hiding dialog
    LineKind m_kind = LineKind::Basic;
    int m_chosenRow = -1;
    int m_editing = -1;
};

} // namespace est::paint
