#pragma once
// dlgToryo: the paint kind dialog. Before painting is estimated it asks for the vehicle
// class, the colour number, the paint kind and the high-function paint. OK writes them into
// the session it was given (the caller hands it a draft of the estimate).

#include "common/session.h"
#include "uikit/guarded_dialog.h"

#include <QStringList>

class QComboBox;
class QLineEdit;

namespace est::paint {

class DlgToryo : public ui::GuardedDialog
{
    Q_OBJECT
public:
    // `paintKinds` and `highFunctions` are the choice lists of the settings database.
    DlgToryo(Session &session, Messages &messages, const QStringList &paintKinds, const QStringList &highFunctions,
             QWidget *parent = nullptr);

    // The class key chosen in cboJidousya ("" when none).
    QString classKey() const { return m_classKey; }

private:
    void confirm();

    Session &m_session;
    QComboBox *m_class;
    QLineEdit *m_colourNumber;
    QComboBox *m_kind;
    QComboBox *m_highFunction;
    QString m_classKey;
};

} // namespace est::paint
