#pragma once
// A dialog whose title-bar close box is refused with the standard notice; the dialog ends
// only through its own buttons. Escape is refused too, unless the dialog lets it stand for
// its cancel button.

#include "common/messages.h"

#include <QDialog>

namespace est::ui {

// The notice shown when a dialog is closed by its close box.
void refuseCloseBox(Messages &messages);

class GuardedDialog : public QDialog
{
    Q_OBJECT
public:
    GuardedDialog(Messages &messages, QWidget *parent = nullptr);

protected:
    // Escape then ends the dialog as its cancel button does.
    void setEscapeCancels(bool on) { m_escapeCancels = on; }
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void reject() override;
    // Called by the dialog's own cancel button: ends the dialog as rejected.
    void cancelByButton();
    Messages &messages() const { return m_messages; }

private:
    Messages &m_messages;
    bool m_closingByButton = false;
    bool m_escapeCancels = false;
};

} // namespace est::ui
