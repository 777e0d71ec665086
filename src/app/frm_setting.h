#pragma once
// frmSetting: the settings hub, a panel of buttons that each open one master-data editor.

#include <QWidget>
#include <functional>

class QPushButton;

namespace est::app {

class FrmSetting : public QWidget
{
    Q_OBJECT
public:
    explicit FrmSetting(QWidget *parent = nullptr);

    // Enables the button and makes it open a screen; buttons without a screen stay disabled.
    void setScreen(const QString &buttonName, std::function<void()> open);
    QPushButton *button(const QString &objectName) const;

Q_SIGNALS:
    // cmdExit or the close box: the start dialog comes back.
    void closed();

protected:
    void closeEvent(QCloseEvent *event) override;
};

} // namespace est::app
