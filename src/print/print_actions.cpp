#include "print/print_actions.h"

#include "print/print_flow.h"
#include "print/print_set.h"
#include "print/printer_choice.h"
#include "uikit/wait_dialog.h"

#include <QDir>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <memory>

namespace est::print {

PrintActions::PrintActions(Messages &messages, ui::WaitDialog *wait, QWidget *parent)
    : m_messages(messages), m_wait(wait), m_parent(parent)
{
}

bool PrintActions::print(const PrintDocument &doc, const PrintOptions &options)
{
    const PrintSet set(doc, options);
    return print(doc.title + QStringLiteral(" ") + doc.slipNumber,
                 [&set](QPagedPaintDevice &device) { return set.render(device); });
}

void PrintActions::preview(const PrintDocument &doc, const PrintOptions &options)
{
    const PrintSet set(doc, options);
    preview([&set](QPagedPaintDevice &device) { return set.render(device); });
}

bool PrintActions::savePdf(const PrintDocument &doc, const PrintOptions &options, const QString &path)
{
    const PrintSet set(doc, options);
    return savePdf(doc.title + QStringLiteral(" ") + doc.slipNumber,
                   [&set](QPagedPaintDevice &device) { return set.render(device); }, path);
}

bool PrintActions::print(const QString &name, const Render &render)
{
    const QPrinterInfo info = programPrinter();
    if (info.isNull()) {
        m_messages.inform(QStringLiteral("プリンタがインストールされていないため印刷できません。\n"
                                         "プレビューまたはPDF保存をお使いください。"),
                          kPrintTitle, MessageIcon::Exclamation);
        return false;
    }
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setFullPage(true);
    printer.setDocName(name);
    bool ok = false;
    {
        ui::WaitScope wait(m_wait);
        ok = render(printer);
    }
    if (!ok)
        m_messages.inform(QStringLiteral("プリンタ %1 に印刷できませんでした。").arg(info.printerName()), kPrintTitle,
                          MessageIcon::Critical);
    return ok;
}

void PrintActions::preview(const Render &render)
{
    const QPrinterInfo info = programPrinter();
    auto printer = info.isNull() ? std::make_unique<QPrinter>(QPrinter::HighResolution)
                                 : std::make_unique<QPrinter>(info, QPrinter::HighResolution);
    printer->setFullPage(true);
    QPrintPreviewDialog dialog(printer.get(), m_parent);
    dialog.setObjectName(QStringLiteral("dlgPrintPreview"));
    dialog.setWindowTitle(QStringLiteral("印刷プレビュー"));
    dialog.resize(900, 700);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&render](QPrinter *target) { render(*target); });
    dialog.exec();
}

bool PrintActions::savePdf(const QString &name, const Render &render, const QString &path)
{
    QString error;
    {
        ui::WaitScope wait(m_wait);
        error = writePdfFile(path, name, render);
    }
    if (!error.isEmpty()) {
        m_messages.inform(error, QStringLiteral("PDF保存"), MessageIcon::Critical);
        return false;
    }
    m_messages.inform(QStringLiteral("PDFファイルを保存しました。\n") + QDir::toNativeSeparators(path),
                      QStringLiteral("PDF保存"), MessageIcon::Information);
    return true;
}

} // namespace est::print
