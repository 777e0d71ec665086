#include "print/print_set.h"

#include <QDir>
#include <QFileInfo>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace est::print {

PrintSet::PrintSet(const PrintDocument &doc, const PrintOptions &options) : m_doc(doc), m_options(options)
{
    m_sheets.push_back(options.layout == Layout::B ? makeMainSheetB(doc) : makeMainSheetA(doc));
    if (options.paintSheet)
        m_sheets.push_back(makePaintSheet(doc, options.layout == Layout::B));
    if (options.subSheet)
        m_sheets.push_back(makeSubSheet(doc));
    if (options.photos != PhotoPages::None && !doc.photos.isEmpty())
        m_sheets.push_back(makePhotoSheet(doc, options.photos == PhotoPages::One));
}

PrintSet::~PrintSet() = default;

int PrintSet::pagesPerCopy() const
{
    int pages = 0;
    for (const auto &sheet : m_sheets)
        pages += sheet->pageCount();
    return pages;
}

int PrintSet::pageCount() const
{
    return pagesPerCopy() * (m_options.shopCopy ? 2 : 1);
}

bool PrintSet::render(QPagedPaintDevice &device) const
{
    std::vector<const Sheet *> sheets;
    for (const auto &sheet : m_sheets)
        sheets.push_back(sheet.get());
    return renderSheets(device, sheets, m_options.shopCopy);
}

bool renderSheets(QPagedPaintDevice &device, const std::vector<const Sheet *> &sheets, bool shopCopy)
{
    device.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    Canvas canvas(painter);
    int total = 0;
    for (const Sheet *sheet : sheets)
        total += sheet->pageCount();
    bool first = true;
    for (int copy = 0; copy < (shopCopy ? 2 : 1); ++copy) {
        int number = 1;
        for (const Sheet *sheet : sheets) {
            for (int page = 0; page < sheet->pageCount(); ++page) {
                if (!first)
                    device.newPage();
                first = false;
                sheet->drawPage(canvas, page, PageInfo{number++, total, copy == 1});
            }
        }
    }
    return painter.end();
}

QString writePdfFile(const QString &path, const QString &title, const Render &render)
{
    const QString name = QFileInfo(path).fileName();
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return QStringLiteral("PDFファイル %1 を作成できません。\n%2").arg(name, file.errorString());
    {
        QPdfWriter writer(&file);
        writer.setResolution(600);
        writer.setTitle(title);
        writer.setCreator(QStringLiteral("見積書作成"));
        if (!render(writer)) {
            file.cancelWriting();
            return QStringLiteral("PDFファイル %1 を作成できません。").arg(name);
        }
    }
    if (file.error() != QFileDevice::NoError || !file.commit())
        return QStringLiteral("PDFファイル %1 を書き込めませんでした（ディスクの空きや書き込み権限を確認してください）。\n%2")
            .arg(name, file.errorString());
    return QString();
}

QString writePdf(const PrintDocument &doc, const PrintOptions &options, const QString &path)
{
    const PrintSet set(doc, options);
    return writePdfFile(path, doc.title + QStringLiteral(" ") + doc.slipNumber,
                        [&set](QPagedPaintDevice &device) { return set.render(device); });
}

} // namespace est::print
