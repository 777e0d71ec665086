#pragma once
// The steps between "印刷" / "プレビュー" / "PDF保存" and the rendering: what is printed is
// the estimate as saved, so unsaved changes are offered to be saved first; the saved
// workbook is read, checked for its title and honorific, and turned into the printed
// document with the shop's current block.

#include "common/messages.h"
#include "common/session.h"
#include "print/print_document.h"
#include "print/saved_estimate.h"

#include <QString>
#include <functional>
#include <optional>

namespace est::print {

class PrintFlow
{
public:
    // `save` runs the sheet's usual save and says whether the workbook was written.
    PrintFlow(Session &session, Messages &messages, QString appFolder, std::function<bool()> save);

    // The document to print, or nothing when the user cancelled or the workbook cannot be
    // printed (the user has been told why).
    std::optional<PrintDocument> prepare();
    // The same steps up to the saved estimate itself, for what is made from it besides paper.
    // `title` and `action` word the save questions ("保存してから" + action + "しますか？").
    std::optional<SavedEstimate> prepareSaved(const QString &title = QStringLiteral("印刷"),
                                              const QString &action = QStringLiteral("印刷"));

    // The saved workbook of the open estimate, and the PDF beside it (Mitsumori/<name>.pdf).
    QString workbookPath() const;
    QString pdfPath() const;

private:
    bool ensureSaved(const QString &title, const QString &action);

    Session &m_session;
    Messages &m_messages;
    QString m_appFolder;
    std::function<bool()> m_save;
};

inline const QString kPrintTitle = QStringLiteral("印刷");

} // namespace est::print
