#pragma once
// frmBankin: the sheet-metal index screen. The user types a dent's height and width; the
// screen shows its area class and the indices of grades A, B and C; choosing a grade hands a
// remark and that index to the work item editor.

#include "common/messages.h"
#include "indices/sheet_metal.h"
#include "indices/sheet_metal_table.h"
#include "uikit/guarded_dialog.h"
#include "workitems/index_hand_over.h"

#include <QSqlDatabase>
#include <array>
#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace est::indices {

class FrmBankin : public ui::GuardedDialog
{
    Q_OBJECT
public:
    // `partDb` holds the table bankinsisu (a closed or empty connection finds nothing).
    FrmBankin(QSqlDatabase partDb, Messages &messages, QWidget *parent = nullptr);

    // The grade chosen, once the screen closed through cmdA, cmdB or cmdC.
    const std::optional<workitems::IndexHandOver> &choice() const { return m_choice; }

private:
    void sizeChanged();
    // The grade buttons whose index is there; none for an empty array.
    void enableGrades(const std::array<QString, 3> &indices);
    void choose(Grade grade);

    SheetMetalTable m_table;
    std::optional<AreaClass> m_shown;
    std::optional<workitems::IndexHandOver> m_choice;
    QLineEdit *m_height = nullptr;
    QLineEdit *m_width = nullptr;
    QLabel *m_area = nullptr;
    QLabel *m_qualifier = nullptr;
    std::array<QLabel *, 3> m_indices{};
    std::array<QPushButton *, 3> m_grades{};
};

} // namespace est::indices
