#pragma once
// The printed set: the main document in the chosen layout, the paint sheet and the sub
// sheet as chosen, and the whole set once more as the shop's copy. Draws onto any paged
// device (a printer, the preview, a PDF writer).

#include "print/page_kit.h"
#include "print/print_options.h"

#include <QString>
#include <functional>
#include <memory>
#include <vector>

class QPagedPaintDevice;

namespace est::print {

class PrintSet
{
public:
    PrintSet(const PrintDocument &doc, const PrintOptions &options);
    ~PrintSet();

    // Pages of one copy, and of everything printed (twice as many with the shop copy).
    int pagesPerCopy() const;
    int pageCount() const;

    // Draws every page; false when the device cannot be painted on.
    bool render(QPagedPaintDevice &device) const;

private:
    const PrintDocument &m_doc;
    PrintOptions m_options;
    std::vector<std::unique_ptr<Sheet>> m_sheets;
};

// Draws the sheets on A4 one after another, the pages numbered through; with `shopCopy`
// everything once more, marked as the shop's copy. False when the device cannot be painted on.
bool renderSheets(QPagedPaintDevice &device, const std::vector<const Sheet *> &sheets, bool shopCopy = false);

// Draws a whole printed piece onto a device (printer, preview, PDF writer).
using Render = std::function<bool(QPagedPaintDevice &)>;

// Writes what `render` draws as a PDF with the title: through a temporary file renamed over
// the target when complete. Returns a sentence for the user, empty on success.
QString writePdfFile(const QString &path, const QString &title, const Render &render);

// Writes the set as a PDF: a temporary file beside the target, renamed over it when
// complete, so a failure leaves no half file. Returns a sentence for the user, empty on success.
QString writePdf(const PrintDocument &doc, const PrintOptions &options, const QString &path);

} // namespace est::print
