#pragma once
// dlgFname: asks for the text of a new estimate's file name and shows, on every keystroke,
// the name that will be used: "<yymmdd><text>.xlsx".

#include "common/clock.h"
#include "uikit/guarded_dialog.h"

class QLabel;
class QLineEdit;

namespace est::workbook {

class DlgFname : public ui::GuardedDialog
{
    Q_OBJECT
public:
    DlgFname(const Clock &clock, Messages &messages, QWidget *parent = nullptr);

    QString typedText() const;   // txtFname
    void setTypedText(const QString &text);
    QString fileName() const;    // lblFname

private:
    void updateName();

    const Clock &m_clock;
    QLineEdit *m_text;
    QLabel *m_name;
};

} // namespace est::workbook
