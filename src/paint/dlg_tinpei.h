#pragma once
// dlgTInpei: the low-hiding paint option. The user says whether the panel is new or
// repaired; the index for the panel's paint location and that kind, and on OK the
// location's addition index, go to the paint screen's entry line.

#include "paint/paint_editor.h"
#include "uikit/guarded_dialog.h"

class QButtonGroup;
class QLabel;

namespace est::paint {

class DlgTInpei : public ui::GuardedDialog
{
    Q_OBJECT
public:
    DlgTInpei(const PaintEditor &editor, const QString &location, Messages &messages, QWidget *parent = nullptr);

    QString index() const { return m_index; }        // for txtTInpei
    QString partKind() const { return m_partKind; }  // "新品" or "修正"
    QString addition() const { return m_addition; }  // the location's addition index

private:
    void chosen(int option);
    void confirm();

    const PaintEditor &m_editor;
    QString m_location;
    QButtonGroup *m_options;
    QLabel *m_shown;
    QString m_index, m_partKind, m_addition;
};

} // namespace est::paint
