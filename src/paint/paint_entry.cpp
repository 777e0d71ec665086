// The paint screen's entry line and grid actions, without widgets.
#include "paint/paint_editor.h"

#include "common/number_format.h"
#include "workitems/labour.h"

namespace est::paint {

namespace {

EntryOutcome outcomeOf(PaintCalculation::Change change)
{
    switch (change) {
    case PaintCalculation::Change::Done:
        return EntryOutcome::Done;
    case PaintCalculation::Change::Full:
        return EntryOutcome::Full;
    case PaintCalculation::Change::Overflow:
        return EntryOutcome::Overflow;
    case PaintCalculation::Change::NoSuchLine:
        return EntryOutcome::NoRowChosen;
    }
    return EntryOutcome::NoRowChosen;
}

} // namespace

void PaintEditor::setEntryKind(LineKind kind)
{
    m_kind = kind;
    // Only a low-hiding line says whether the part is new or repaired.
    if (kind != LineKind::LowHiding)
        m_partKind.clear();
}

QString PaintEditor::takeLowHiding(const QString &index, const QString &addition, const QString &partKind)
{
    setEntryKind(LineKind::LowHiding);
    m_partKind = partKind;
    if (addition.isEmpty())
        return index;
    return workitems::decimalSum(index, addition).value_or(index);
}

std::optional<PaintLine> PaintEditor::entryLine(const EntryText &entry, EntryOutcome *why) const
{
    const QString index = workitems::reformatIndex(entry.index);
    if (isBlank(index)) {
        *why = EntryOutcome::NoIndex;
        return std::nullopt;
    }
    const QString range = m_kind == LineKind::Basic ? rangeText(entry.panels) : QString();
    auto line = makeLine(m_kind, m_section, entry.partName, m_partKind, range, index, entry.withMaterial);
    *why = line ? EntryOutcome::Done : EntryOutcome::Overflow;
    return line;
}

EntryOutcome PaintEditor::addEntry(const EntryText &entry)
{
    if (m_calc.full())
        return EntryOutcome::Full;
    EntryOutcome why;
    const auto line = entryLine(entry, &why);
    if (!line)
        return why;
    return outcomeOf(m_calc.add(*line));
}

EntryOutcome PaintEditor::insertEntry(const EntryText &entry)
{
    if (m_calc.full())
        return EntryOutcome::Full;
    EntryOutcome why;
    const auto line = entryLine(entry, &why);
    if (!line)
        return why;
    const int at = m_chosenRow >= 0 ? m_chosenRow : m_calc.count();
    return outcomeOf(m_calc.insert(at, *line));
}

EntryOutcome PaintEditor::editEntry(const EntryText &entry, std::optional<EntryText> *load)
{
    if (m_editing >= 0) {
        EntryOutcome why;
        const auto line = entryLine(entry, &why);
        if (!line)
            return why;
        const EntryOutcome done = outcomeOf(m_calc.replace(m_editing, *line));
        if (done == EntryOutcome::Done)
            m_editing = -1;
        return done;
    }
    if (m_chosenRow < 0 || m_chosenRow >= m_calc.count())
        return EntryOutcome::NoRowChosen;
    m_editing = m_chosenRow;
    const PaintLine &line = m_calc.lines().at(m_editing);
    m_section = line.section;
    setEntryKind(line.kind);
    m_partKind = line.partKind;
    const QString suffix = QStringLiteral("枚");
    *load = EntryText{line.partName, line.range.endsWith(suffix) ? line.range.chopped(1) : line.range, line.index,
                      line.withMaterial};
    return EntryOutcome::Done;
}

void PaintEditor::cancelEdit()
{
    m_editing = -1;
    resetEntry();
}

EntryOutcome PaintEditor::canRemoveChosen() const
{
    if (m_calc.count() == 0)
        return EntryOutcome::NoLines;
    if (m_chosenRow < 0 || m_chosenRow >= m_calc.count())
        return EntryOutcome::NoRowChosen;
    return EntryOutcome::Done;
}

EntryOutcome PaintEditor::removeChosen()
{
    if (const EntryOutcome can = canRemoveChosen(); can != EntryOutcome::Done)
        return can;
    const EntryOutcome done = outcomeOf(m_calc.remove(m_chosenRow));
    if (done == EntryOutcome::Done)
        m_chosenRow = -1;
    return done;
}

EntryOutcome PaintEditor::canConfirm(const EntryText &entry) const
{
    if (m_editing >= 0)
        return EntryOutcome::StillEditing;
    if (!isBlank(entry.index))
        return EntryOutcome::PendingEntry;
    return EntryOutcome::Done;
}

void PaintEditor::resetEntry()
{
    m_partKind.clear();
    m_kind = LineKind::Basic;
}

} // namespace est::paint
