#pragma once
// What the work item editor does, without its widgets: the input line and what follows from
// what is typed into it (labour from index and rate, the part total), the gate of the rate
// box, and whether rows are being browsed, inserted or edited. The screen forwards each text
// the user changes and then shows inputs(), the rows and buttons().

#include "common/messages.h"
#include "common/session.h"
#include "workitems/index_hand_over.h"
#include "workitems/labour.h"
#include "workitems/work_item_table.h"

#include <cstdint>

namespace est::workitems {

// Which row commands are available.
struct WorkItemButtons
{
    bool grid = true;       // the row grid takes clicks
    bool add = true;        // cmdAdd
    bool insert = false;    // cmdInsRow
    bool edit = false;      // cmdEdit
    bool remove = true;     // cmdDel
    bool sort = false;      // cmdSort
    bool confirmEdit = false; // cmdEOK
    bool cancelEdit = false;  // cmdECancel
};

class WorkItemEditor
{
public:
    WorkItemEditor(const Session &session, Messages &messages);

    const WorkItemTable &table() const { return m_table; }

    // ---- the rate box ----
    // The text the rate box shows. The box only gates the computation: labour is always
    // index × the estimate's labour rate (set in the rate dialog), never the box's number.
    const QString &rateText() const { return m_rateText; }
    // The user changed the rate box's text.
    void rateTyped(const QString &text);
    // Labour is computed from an index only while the rate box holds something.
    bool rateGiven() const;

    // ---- the input line ----
    const WorkItemRow &inputs() const { return m_inputs; }
    // A text column typed or picked (location, part name, part number, work, catalogue number).
    void setText(WorkItemColumn column, const QString &text);
    void indexTyped(const QString &text);
    // The index field was left. True when the user must be sent to the rate box.
    bool indexLeft();
    void directLabourTyped(const QString &text);
    void unitPriceTyped(const QString &text);
    void quantityTyped(const QString &text);
    // The sheet-metal screen's choice: the remark as the part number column, the index as if
    // typed (labour follows when the rate box holds something).
    void takeIndex(const IndexHandOver &handOver);
    // The simple estimate's priced job: part name, work content and labour as typed; a
    // material cost becomes the part price of one piece (none when it is 0).
    void takeSimpleEntry(const SimpleEntry &entry);

    // ---- the rows ----
    // `selected` is the grid's current row (-1 for none).
    void add();
    void insertBefore(int selected);
    void edit(int selected);
    void confirmEdit();
    void cancelEdit();
    void remove(int selected);
    void sort();
    bool editing() const { return m_editing >= 0; }
    // OK with an edited row or a typed item not yet added: asks whether to apply it (Yes),
    // drop it (No) or go back (Cancel). True when the editor may hand its rows back.
    bool settlePending();
    bool inserting() const { return m_inserting; }
    WorkItemButtons buttons() const;

    // OK: the rows and their totals go back to the estimate.
    void handBack(Session &session);

private:
    void recomputeLabour();
    void recomputePartTotal();
    void clearInputs();
    void reportRowLimit();
    void reportTooLarge();

    Messages &m_messages;
    WorkItemTable m_table;
    const std::int16_t m_rate; // the estimate's labour rate
    QString m_rateText;
    Rounding m_rounding;
    WorkItemRow m_inputs;
    bool m_inserting = false;
    int m_insertAt = -1;
    int m_editing = -1;
    bool m_addRefused = false; // the row limit was reported; adding stays off until a row goes
};

} // namespace est::workitems
