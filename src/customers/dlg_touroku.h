#pragma once
// dlgTouroku: composes a registration number from office name, class number, kana and
// number, shown live in lbl2; OK hands it back. cmdTuika opens the office-name list.

#include "uikit/guarded_dialog.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace est::customers {

class SettingLists;

class DlgTouroku : public ui::GuardedDialog
{
    Q_OBJECT
public:
    DlgTouroku(Messages &messages, SettingLists &settings, QWidget *parent = nullptr);

    // The composed number (as lbl2 shows it).
    QString registration() const;

private:
    void loadOffices();
    void compose();
    void addOffice();

    SettingLists &m_settings;
    QComboBox *m_cboT1;
    QLineEdit *m_txtT2, *m_txtT3, *m_txtT4;
    QLabel *m_lbl2;
};

} // namespace est::customers
