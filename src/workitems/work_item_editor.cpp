#include "workitems/work_item_editor.h"

#include "common/number_format.h"

namespace est::workitems {

namespace {

// Rows are sorted on the location, so that the rows of one part of the car come together.
constexpr int kSortColumn = WiSection;

} // namespace

WorkItemEditor::WorkItemEditor(const Session &session, Messages &messages)
    : m_messages(messages), m_table(session.rows), m_rate(session.labourRate),
      m_rateText(session.labourRate != 0 ? formatThousands(session.labourRate) : QString()),
      m_rounding{session.roundDigits, session.roundMode}
{
    clearInputs();
}

// ---- the rate box ----------------------------------------------------------------------

void WorkItemEditor::rateTyped(const QString &text)
{
    // Digits and the separators the box was shown with; anything else is dropped.
    QString kept;
    for (const QChar c : text)
        if (c.isDigit() || c == QLatin1Char(','))
            kept.append(c);
    m_rateText = kept;
}

bool WorkItemEditor::rateGiven() const
{
    return !isBlank(m_rateText);
}

// ---- the input line --------------------------------------------------------------------

void WorkItemEditor::setText(WorkItemColumn column, const QString &text)
{
    m_inputs[column] = text;
}

void WorkItemEditor::indexTyped(const QString &text)
{
    const QString filtered = filterNumericText(text, true);
    m_inputs[WiIndex] = filtered;
    if (!rateGiven())
        return;
    if (isBlank(filtered)) {
        m_inputs[WiLabour].clear();
        return;
    }
    m_inputs[WiDirectLabour].clear();
    recomputeLabour();
}

void WorkItemEditor::recomputeLabour()
{
    const QString &index = m_inputs[WiIndex];
    if (isBlank(index) || !rateGiven())
        return;
    const auto amount = labourFromIndex(index, m_rate, m_rounding, m_messages);
    m_inputs[WiLabour] = amount ? QString::number(*amount) : QString();
}

bool WorkItemEditor::indexLeft()
{
    // A reformatted text is a change of the index like any other: the labour follows the two
    // decimals the row shows, so 1.257 at 1,000 yen becomes 1.26 and 1,260 yen.
    QString &index = m_inputs[WiIndex];
    const QString shown = isBlank(index) ? index : reformatIndex(index);
    if (shown != index) {
        index = shown;
        recomputeLabour();
    }
    if (rateGiven())
        return false;
    // Leaving the field without a rate is reported even when no index was typed: the rate is
    // what the index is for, so the user is sent to it.
    if (!isBlank(index)) {
        index.clear();
        // A labour typed directly stays; one left from an index goes with it.
        if (isBlank(m_inputs[WiDirectLabour]))
            m_inputs[WiLabour].clear();
    }
    m_messages.inform(QStringLiteral("レーバーレートに金額が入力されておりません。"), QStringLiteral("注意"),
                      MessageIcon::Critical);
    return true;
}

void WorkItemEditor::directLabourTyped(const QString &text)
{
    const QString digits = filterNumericText(text, false);
    m_inputs[WiDirectLabour] = digits;
    m_inputs[WiIndex].clear();
    m_inputs[WiLabour] = digits;
}

void WorkItemEditor::unitPriceTyped(const QString &text)
{
    m_inputs[WiUnitPrice] = text;
    recomputePartTotal();
}

void WorkItemEditor::quantityTyped(const QString &text)
{
    m_inputs[WiQuantity] = text;
    recomputePartTotal();
}

void WorkItemEditor::takeIndex(const IndexHandOver &handOver)
{
    m_inputs[WiPartNumber] = handOver.remark;
    indexTyped(handOver.index);
}

void WorkItemEditor::takeSimpleEntry(const SimpleEntry &entry)
{
    m_inputs[WiPart] = entry.partName;
    m_inputs[WiWork] = entry.content;
    m_inputs[WiCatalogueNum].clear();
    directLabourTyped(QString::number(entry.labour));
    if (entry.material != 0) {
        m_inputs[WiUnitPrice] = QString::number(entry.material);
        m_inputs[WiQuantity] = QStringLiteral("1");
    } else {
        m_inputs[WiUnitPrice].clear();
        m_inputs[WiQuantity].clear();
    }
    recomputePartTotal();
}

void WorkItemEditor::recomputePartTotal()
{
    for (const int column : {WiUnitPrice, WiQuantity})
        m_inputs[column] = filterNumericText(m_inputs[column], true);
    const auto total = partTotal(m_inputs[WiUnitPrice], m_inputs[WiQuantity]);
    m_inputs[WiPartsTotal] = total ? QString::number(*total) : QString();
}

void WorkItemEditor::clearInputs()
{
    m_inputs = WorkItemRow();
    m_inputs[WiNo] = QString::number(m_inserting ? m_insertAt + 1 : m_table.nextNumber());
}

// ---- the rows --------------------------------------------------------------------------

namespace {

// The row as it is stored: the index shows its two decimals.
WorkItemRow storedRow(WorkItemRow row)
{
    if (!isBlank(row[WiIndex]))
        row[WiIndex] = reformatIndex(row[WiIndex]);
    else
        row[WiIndex].clear();
    return row;
}

} // namespace

void WorkItemEditor::reportRowLimit()
{
    m_messages.inform(QStringLiteral("行の上限です。\nこれ以上書き込めません。"), QStringLiteral("警告"),
                      MessageIcon::Critical);
}

void WorkItemEditor::reportTooLarge()
{
    m_messages.inform(QStringLiteral("金額が大きすぎるため計算できません。\n"
                                     "合計が 2,147,483,647 円までになるように入力してください。"),
                      QStringLiteral("金額の確認"), MessageIcon::Exclamation);
}

void WorkItemEditor::add()
{
    if (editing())
        return;
    if (m_inserting) {
        if (m_table.replace(m_insertAt, storedRow(m_inputs)) == WorkItemTable::Change::TooLarge) {
            reportTooLarge();
            return;
        }
        m_inserting = false;
        m_insertAt = -1;
    } else {
        if (m_table.full()) {
            reportRowLimit();
            m_addRefused = true;
            clearInputs();
            return;
        }
        if (m_table.append(storedRow(m_inputs)) == WorkItemTable::Change::TooLarge) {
            reportTooLarge();
            return;
        }
    }
    clearInputs();
}

void WorkItemEditor::insertBefore(int selected)
{
    if (m_inserting || editing() || selected < 0)
        return;
    if (m_table.insertEmpty(selected) == WorkItemTable::Change::Full) {
        reportRowLimit();
        return;
    }
    m_inserting = true;
    m_insertAt = selected;
    clearInputs();
}

void WorkItemEditor::edit(int selected)
{
    if (m_inserting || editing() || selected < 0)
        return;
    m_editing = selected;
    m_inputs = m_table.row(selected);
}

void WorkItemEditor::confirmEdit()
{
    if (!editing())
        return;
    // The edited row's labour and part total follow its inputs as they are now.
    recomputeLabour();
    recomputePartTotal();
    if (m_table.replace(m_editing, storedRow(m_inputs)) == WorkItemTable::Change::TooLarge) {
        reportTooLarge();
        return;
    }
    m_editing = -1;
    clearInputs();
}

void WorkItemEditor::cancelEdit()
{
    m_editing = -1;
    clearInputs();
}

void WorkItemEditor::remove(int selected)
{
    if (editing() || m_inserting)
        return;
    if (m_table.count() == 0) {
        m_messages.inform(QStringLiteral("削除するデータはありません．"), QStringLiteral("警告"),
                          MessageIcon::Exclamation);
        return;
    }
    if (selected < 0) {
        m_messages.inform(QStringLiteral("削除する行を一覧で選んでから、削除をクリックしてください。"),
                          QStringLiteral("削除"), MessageIcon::Exclamation);
        return;
    }
    if (m_messages.askYesNo(QStringLiteral("削除します。\nこのデータは失われます。\nよろしいですか？"),
                            QStringLiteral("削除"), MessageIcon::Question) != Answer::Yes)
        return;
    m_table.remove(selected);
    m_addRefused = false;
    clearInputs();
}

void WorkItemEditor::sort()
{
    if (editing() || m_inserting)
        return;
    m_table.sortBy(kSortColumn);
}

WorkItemButtons WorkItemEditor::buttons() const
{
    const bool browsing = !editing() && !m_inserting;
    WorkItemButtons b;
    b.grid = browsing;
    b.add = !editing() && !m_addRefused;
    b.insert = browsing && m_table.count() > 0 && !m_table.full();
    b.edit = browsing && m_table.count() > 0;
    b.remove = browsing;
    b.sort = browsing && m_table.count() > 1;
    b.confirmEdit = editing();
    b.cancelEdit = editing();
    return b;
}

bool WorkItemEditor::settlePending()
{
    const QString title = QStringLiteral("作業作成");
    if (editing()) {
        switch (m_messages.askYesNoCancel(QStringLiteral("修正中の行があります。\n修正を確定しますか？"), title,
                                          MessageIcon::Question)) {
        case Answer::Yes:
            confirmEdit();
            return !editing(); // a refused row keeps the editor open
        case Answer::No:
            cancelEdit();
            return true;
        default:
            return false;
        }
    }
    bool typed = false;
    for (int c = WiSection; c < WorkItemColumnCount; ++c)
        typed = typed || !isBlank(m_inputs[c]);
    if (!typed)
        return true;
    switch (m_messages.askYesNoCancel(QStringLiteral("入力中の作業項目があります。\n追加しますか？"), title,
                                      MessageIcon::Question)) {
    case Answer::Yes: {
        const int before = m_table.count();
        const bool wasInserting = m_inserting;
        add();
        // Added when the row count grew or the inserted row was filled.
        return m_table.count() > before || (wasInserting && !m_inserting);
    }
    case Answer::No:
        clearInputs();
        return true;
    default:
        return false;
    }
}

void WorkItemEditor::handBack(Session &session)
{
    // An inserted row that was never filled is not part of the estimate.
    if (m_inserting) {
        m_table.remove(m_insertAt);
        m_inserting = false;
    }
    session.rows = m_table.toEstimateRows();
    session.totals.labour = m_table.totals().labour;
    session.totals.parts = m_table.totals().parts;
    session.totals.workTotalA = m_table.totals().grand;
}

} // namespace est::workitems
