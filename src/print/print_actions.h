#pragma once
// What dlgPrint's three buttons do with a prepared document: send it to the program's
// printer, show it in the print preview, or save it as a PDF beside the workbook. The
// wait window shows while a document renders.

#include "common/messages.h"
#include "print/print_document.h"
#include "print/print_options.h"
#include "print/print_set.h"

class QWidget;

namespace est::ui { class WaitDialog; }

namespace est::print {

class PrintActions
{
public:
    PrintActions(Messages &messages, ui::WaitDialog *wait, QWidget *parent);

    // On the program's printer; false (with a message) when there is none or it fails.
    bool print(const PrintDocument &doc, const PrintOptions &options);
    // QPrintPreviewDialog, modal.
    void preview(const PrintDocument &doc, const PrintOptions &options);
    // The PDF at `path`, written atomically; tells the user where it went or why it failed.
    bool savePdf(const PrintDocument &doc, const PrintOptions &options, const QString &path);

    // The same for any printed piece: `name` is the printer job's and the PDF's title.
    bool print(const QString &name, const Render &render);
    void preview(const Render &render);
    bool savePdf(const QString &name, const Render &render, const QString &path);

private:
    Messages &m_messages;
    ui::WaitDialog *m_wait;
    QWidget *m_parent;
};

} // namespace est::print
