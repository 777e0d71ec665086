#pragma once
// frmPrinter: the system's printers in cmbPrinter; the one chosen becomes the program's
// printer (remembered between runs); cmdPro shows its properties, cmdExit closes.

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace est::print {

class FrmPrinter : public QWidget
{
    Q_OBJECT
public:
    explicit FrmPrinter(QWidget *parent = nullptr);

private:
    void choose(int index);
    void showProperties();

    QComboBox *m_printers;
    QLabel *m_note;
    QPushButton *m_properties;
};

} // namespace est::print
