#include "xls_samples.h"

#include "sample_estimate.h"

#include <QFile>

#include <limits>

namespace est::test {

namespace {

Session awkwardTexts()
{
    Session s = randomEstimate(25);
    s.header.customerName = QStringLiteral("ﾔﾏﾀﾞ　ﾀﾛｳ \"様\" 'A'");
    s.header.customerCompany = QStringLiteral("株式会社　ｶﾞﾚｰｼﾞ＆\"ｻｰﾋﾞｽ\"");
    s.header.memo = QStringLiteral("　先頭と末尾に全角空白　");
    s.company[10] = QStringLiteral("0012");
    s.vehicle[9] = QStringLiteral("00123");
    if (s.rows.isEmpty())
        s.rows.append(EstimateRow{});
    s.rows[0][ColPart] = QStringLiteral("ﾌﾛﾝﾄﾊﾞﾝﾊﾟｰ \"ﾌｪｲｽ\"");
    s.rows[0][ColPartNumber] = QStringLiteral("0012");
    s.rows[0][ColWork] = QStringLiteral("'取替'");
    return s;
}

Session limits()
{
    Session s = randomEstimate(32);
    const std::int32_t high = std::numeric_limits<std::int32_t>::max();
    const std::int32_t low = std::numeric_limits<std::int32_t>::min();
    s.totals.workTotalA = high;
    s.totals.labour = low;
    s.totals.parts = high;
    s.totals.paintTotalB = low;
    s.totals.paintLabour = high;
    s.totals.paintMaterial = low;
    s.totals.bumperPaint = high;
    s.paint.baseAdditionIndex = low;
    s.nonTaxable.sum = high;
    s.labourRate = 32767;
    s.paintLabourRate = -32768;
    return s;
}

} // namespace

std::vector<XlsSample> xlsSamples()
{
    std::vector<XlsSample> samples;
    samples.push_back({QStringLiteral("full"), fullEstimate(7)});
    for (int kind = 0; kind <= 6; ++kind) {
        Session s = randomEstimate(100 + std::uint32_t(kind));
        s.header.documentKind = kind;
        samples.push_back({QStringLiteral("kind%1").arg(kind), s});
    }
    samples.push_back({QStringLiteral("texts"), awkwardTexts()});
    samples.push_back({QStringLiteral("limits"), limits()});
    Session empty = randomEstimate(3);
    empty.rows.clear();
    empty.paint.rows.clear();
    empty.nonTaxable = NonTaxableItems{};
    samples.push_back({QStringLiteral("empty"), empty});
    return samples;
}

QString xlsSampleFolder()
{
    return QStringLiteral(ESTIMATE_XLS_SAMPLES);
}

QByteArray fileBytes(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace est::test
