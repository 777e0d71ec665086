// The photo pages: the estimate's photos in their order, four to a page (two by two, each
// with "写真N" and its caption under it) or one large on each page.

#include "print/page_kit.h"
#include "photos/photo_import.h"

namespace est::print {

namespace {

constexpr double kTop = kMargin + 12.0;
constexpr double kBottom = kFooterTop - 2.0;
constexpr double kCaption = 7.0;
constexpr double kGap = 4.0;

class PhotoSheet final : public Sheet
{
public:
    PhotoSheet(const PrintDocument &doc, bool large) : m_doc(doc), m_perPage(large ? 1 : 4) {}

    int pageCount() const override { return int((m_doc.photos.size() + m_perPage - 1) / m_perPage); }

    void drawPage(Canvas &c, int page, const PageInfo &info) const override
    {
        drawContinuationHeader(c, m_doc, QStringLiteral("写真"));
        const int columns = m_perPage == 1 ? 1 : 2;
        const double cellWidth = (kContentWidth - (columns - 1) * kGap) / columns;
        const double cellHeight = (kBottom - kTop - (columns - 1) * kGap) / columns;
        for (int slot = 0; slot < m_perPage; ++slot) {
            const int index = page * m_perPage + slot;
            if (index >= m_doc.photos.size())
                break;
            const double x = kMargin + (slot % columns) * (cellWidth + kGap);
            const double y = kTop + (slot / columns) * (cellHeight + kGap);
            drawPhoto(c, index, x, y, cellWidth, cellHeight);
        }
        drawFooter(c, m_doc, info);
    }

private:
    void drawPhoto(Canvas &c, int index, double x, double y, double w, double h) const
    {
        const EstimatePhoto &photo = m_doc.photos.at(index);
        const double imageHeight = h - kCaption;
        // Enough pixels for the printed size at about 300 dpi, never more than stored.
        const int pixels = int(std::max(w, imageHeight) / 25.4 * 300);
        const QImage image = photos::photoImage(photo.image, std::min(pixels, kMaxPhotoSide));
        if (image.isNull()) {
            c.box(x, y, w, imageHeight);
            c.text(x, y, w, imageHeight, QStringLiteral("（この写真は表示できません）"), c.font(9), Qt::AlignCenter);
        } else {
            QSizeF shown = QSizeF(image.size()).scaled(w, imageHeight, Qt::KeepAspectRatio);
            // Each picture stands on its caption.
            c.painter().drawImage(c.rect(x + (w - shown.width()) / 2, y + imageHeight - shown.height(),
                                         shown.width(), shown.height()),
                                  image);
        }
        const QString caption = QStringLiteral("写真%1").arg(index + 1)
                                + (photo.caption.isEmpty() ? QString() : QStringLiteral("　") + photo.caption);
        c.text(x, y + imageHeight + 1, w, kCaption - 1, caption, c.font(9), Qt::AlignHCenter | Qt::AlignVCenter);
    }

    const PrintDocument &m_doc;
    int m_perPage;
};

} // namespace

std::unique_ptr<Sheet> makePhotoSheet(const PrintDocument &doc, bool large)
{
    return std::make_unique<PhotoSheet>(doc, large);
}

} // namespace est::print
