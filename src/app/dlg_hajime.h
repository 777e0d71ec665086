#pragma once
// dlgHajime: the start dialog with its five choices.

#include <QDialog>

class QPushButton;

namespace est::app {

class DlgHajime : public QDialog
{
    Q_OBJECT
public:
    explicit DlgHajime(QWidget *parent = nullptr);

    QPushButton *button(const char *objectName) const;

Q_SIGNALS:
    void newEstimateChosen();     // cmdSin
    void openEstimateChosen();    // cmdHen
    void openWorkbookChosen();    // cmdXls
    void settingsChosen();        // cmdSetting
    void cancelled();             // CancelButton or the close box: the program ends

protected:
    void closeEvent(QCloseEvent *event) override;
    void reject() override;
};

} // namespace est::app
