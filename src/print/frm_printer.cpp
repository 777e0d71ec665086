#include "print/frm_printer.h"

#include "print/printer_choice.h"
#include "uikit/named.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPageSetupDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

namespace est::print {

using ui::named;

FrmPrinter::FrmPrinter(QWidget *parent) : QWidget(parent, Qt::Window)
{
    setObjectName(QStringLiteral("frmPrinter"));
    setWindowTitle(QStringLiteral("プリンタの設定"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("印刷に使うプリンタを選んでください。"), this));
    m_printers = named(new QComboBox(this), "cmbPrinter");
    m_printers->setMinimumWidth(320);
    layout->addWidget(m_printers);
    m_note = named(new QLabel(this), "lblNote");
    layout->addWidget(m_note);
    auto *buttons = new QHBoxLayout;
    m_properties = named(new QPushButton(QStringLiteral("プロパティ"), this), "cmdPro");
    auto *exit = named(new QPushButton(QStringLiteral("閉じる"), this), "cmdExit");
    buttons->addStretch();
    buttons->addWidget(m_properties);
    buttons->addWidget(exit);
    layout->addLayout(buttons);

    // In the system's order; the program's printer is shown chosen.
    const QStringList names = QPrinterInfo::availablePrinterNames();
    m_printers->addItems(names);
    const QPrinterInfo current = programPrinter();
    m_printers->setCurrentIndex(current.isNull() ? -1 : int(names.indexOf(current.printerName())));
    if (names.isEmpty())
        m_note->setText(QStringLiteral("プリンタがインストールされていません。\nプレビューとPDF保存は使えます。"));
    m_properties->setEnabled(!names.isEmpty());

    connect(m_printers, &QComboBox::activated, this, &FrmPrinter::choose);
    connect(m_properties, &QPushButton::clicked, this, &FrmPrinter::showProperties);
    connect(exit, &QPushButton::clicked, this, &QWidget::close);
}

void FrmPrinter::choose(int index)
{
    if (index >= 0)
        rememberPrinterName(m_printers->itemText(index));
}

void FrmPrinter::showProperties()
{
    const QPrinterInfo info = programPrinter();
    if (info.isNull())
        return;
    QPrinter printer(info, QPrinter::HighResolution);
    QPageSetupDialog dialog(&printer, this);
    dialog.setObjectName(QStringLiteral("dlgPrinterProperties"));
    dialog.exec();
}

} // namespace est::print
