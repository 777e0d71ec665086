#pragma once
// dlgNewTouroku: the list of registration-office names (TourokuDB). cmdNew, cmdEdit and
// cmdDel choose what to do with the name in the text box; OK carries it out.

#include "customers/setting_lists.h"
#include "uikit/guarded_dialog.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace est::customers {

class DlgNewTouroku : public ui::GuardedDialog
{
    Q_OBJECT
public:
    DlgNewTouroku(Messages &messages, SettingLists &settings, QWidget *parent = nullptr);

    enum class Pending { None, Add, Edit, Delete };
    Pending pending() const { return m_pending; }

private:
    void load();
    void begin(Pending action);
    void carryOut();
    void updateControls();
    const RegistrationOffice *selectedOffice() const;

    SettingLists &m_settings;
    QList<RegistrationOffice> m_offices;
    Pending m_pending = Pending::None;
    qint64 m_pendingId = 0;
    QListWidget *m_list;
    QLineEdit *m_txtTouroku;
    QLabel *m_lblMode;
    QPushButton *m_cmdNew, *m_cmdEdit, *m_cmdDel, *m_ok;
};

} // namespace est::customers
