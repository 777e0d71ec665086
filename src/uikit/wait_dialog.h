#pragma once
// dlgWait: a small window without buttons, shown while a screen loads.

#include <QDialog>

namespace est::ui {

class WaitDialog : public QDialog
{
    Q_OBJECT
public:
    explicit WaitDialog(QWidget *parent = nullptr);
};

// Shows the wait window for the lifetime of the object.
class WaitScope
{
public:
    explicit WaitScope(WaitDialog *dialog);
    ~WaitScope();
    WaitScope(const WaitScope &) = delete;
    WaitScope &operator=(const WaitScope &) = delete;

private:
    WaitDialog *m_dialog;
};

} // namespace est::ui
