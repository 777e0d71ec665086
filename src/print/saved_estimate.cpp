#include "print/saved_estimate.h"

#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"
#include "workbook/photo_sheet.h"
#include "workbook/xls_book.h"

#include <QFileInfo>

namespace est::print {

std::optional<SavedEstimate> loadSavedEstimate(const QString &path, QString *error)
{
    try {
        auto book = workbook::openForReading(path);
        SavedEstimate saved;
        workbook::readEstimate(*book, saved.session);
        saved.session.photos = workbook::readPhotosOf(*book);
        const workbook::SheetCells *d = book->cells(QStringLiteral("D"));
        saved.title = workbook::cellText(d->value(1, 2));
        saved.honorific = workbook::cellText(d->value(1, 3));
        saved.session.workbookPath = path;
        saved.session.fileName = QFileInfo(path).fileName();
        return saved;
    } catch (const workbook::WorkbookError &e) {
        if (error)
            *error = QFileInfo(path).fileName() + QStringLiteral(" を読めません。\n") + workbook::describeError(e);
        return std::nullopt;
    } catch (const std::exception &e) {
        if (error)
            *error = QFileInfo(path).fileName() + QStringLiteral(" を読めません。\n") + QString::fromUtf8(e.what());
        return std::nullopt;
    }
}

} // namespace est::print
