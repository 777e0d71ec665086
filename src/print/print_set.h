#pragma once
// The printed set: the main document in the chosen layout, the paint sheet and the sub
// sheet as chosen, and the whole set once more as the shop's copy. Draws onto any paged
// device (a printer, the preview, a PDF writer).

#include "print/page_kit.h"
#include "print/print_options.h"

#include <QString>
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

// Writes the set as a PDF: a temporary file beside the target, renamed over it when
// complete, so a failure leaves no half file. Returns a sentence for the user, empty on success.
QString writePdf(const PrintDocument &doc, const PrintOptions &options, const QString &path);

} // namespace est::print
