#include "fuzz_support.h"

#include "sample_estimate.h"
#include "workbook/estimate_layout.h"
#include "workbook/photo_sheet.h"
#include "workbook/workbook.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImage>

namespace est::fuzz {

void initialise()
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
}

const Session &smallEstimate()
{
    static const Session s = [] {
        Session e = test::randomEstimate(3);
        e.rows.resize(std::min<qsizetype>(e.rows.size(), 5));
        e.paint.rows.resize(std::min<qsizetype>(e.paint.rows.size(), 3));
        return e;
    }();
    return s;
}

const QByteArray &savedEstimate()
{
    static const QByteArray bytes = [] {
        auto book = workbook::Workbook::fromBytes(test::templateBytes());
        workbook::writeEstimate(*book, smallEstimate());
        return book->toBytes();
    }();
    return bytes;
}

namespace {
QByteArray smallPhoto(const char *format)
{
    QImage image(8, 6, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}
} // namespace

const QByteArray &savedEstimateWithPhotos()
{
    static const QByteArray bytes = [] {
        auto book = workbook::Workbook::fromBytes(test::templateBytes());
        workbook::writeEstimate(*book, smallEstimate());
        workbook::writePhotos(*book, {{smallPhoto("JPEG"), QStringLiteral("右フロント")}, {smallPhoto("PNG"), QString()}});
        return book->toBytes();
    }();
    return bytes;
}

} // namespace est::fuzz
