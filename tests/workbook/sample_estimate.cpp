#include "sample_estimate.h"

#include "common/number_format.h"
#include "sheet/document_kind.h"
#include "workbook/default_template.h"

#include <QFile>
#include <QTemporaryDir>
#include <random>

namespace est::test {

QByteArray templateBytes()
{
    return workbook::defaultTemplateBytes();
}

namespace {

class Gen
{
public:
    explicit Gen(std::uint32_t seed) : m_rng(seed) {}
    int between(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_rng); }
    bool coin() { return between(0, 1) == 1; }
    QString text(int maxLength = 12)
    {
        static const QString pieces[] = {
            QStringLiteral("見積"), QStringLiteral("　"), QStringLiteral("ﾊﾞﾝﾊﾟｰ"), QStringLiteral("0012"),
            QStringLiteral("A"), QStringLiteral(" "), QStringLiteral("<&>"), QStringLiteral("\"'"),
            QStringLiteral("ﾄﾞｱ"), QStringLiteral("7"), QStringLiteral("_"), QStringLiteral("-"),
            QStringLiteral("右フロント"), QStringLiteral("1.5"), QStringLiteral("株式会社"), QStringLiteral("z"),
        };
        QString out;
        const int n = between(0, maxLength);
        for (int i = 0; i < n && out.size() < maxLength; ++i)
            out += pieces[between(0, 15)];
        return out;
    }
    QString digits(int length)
    {
        QString s;
        for (int i = 0; i < length; ++i)
            s += QChar(u'0' + between(0, 9));
        return s;
    }
    Yen yen(Yen max = 9999999) { return between(0, max); }
    // Amount columns hold "#,###" texts, the index column "0.00".
    QString amountText() { return coin() ? formatThousands(between(0, 2000000)) : QString(); }
    QString indexText() { return coin() ? formatFixed2(between(0, 9999) / 100.0) : QString(); }

private:
    std::mt19937 m_rng;
};

EstimateRow randomRow(Gen &g, int number)
{
    EstimateRow row;
    row[ColNo] = QString::number(number);
    row[ColSection] = g.text(6);
    row[ColPart] = g.text(20);
    row[ColPartNumber] = g.coin() ? g.digits(10) : g.text(8);
    row[ColWork] = g.coin() ? QStringLiteral("取替") : QStringLiteral("修理");
    row[ColIndex] = g.indexText();
    row[ColLabour] = g.amountText();
    row[ColUnitPrice] = g.amountText();
    row[ColQuantity] = g.coin() ? QString::number(g.between(1, 9)) : QString();
    row[ColPartsAmount] = g.amountText();
    row[ColHidden] = g.text(4);
    return row;
}

Session build(Gen &g, bool full)
{
    Session s;
    auto size = [&](int max) { return full ? max : g.between(0, max); };
    auto text = [&](int n = 12) { return full ? QStringLiteral("値") + g.text(n) : g.text(n); };
    EstimateHeader &h = s.header;
    h.documentKind = g.between(0, 6);
    const sheet::DocumentTexts texts = sheet::documentTexts(h.documentKind);
    h.openingText = texts.opening;
    h.closingText = texts.closing;
    h.amountCaption = texts.amountCaption;
    h.customerName = text();
    h.customerCompany = g.coin() || full ? text() : QString();
    h.carName = text();
    h.chassisNumber = text();
    h.firstRegistration = text();
    h.distance = text();
    h.registration = text();
    h.modelCode = text();
    h.classCode = text();
    h.colour = text();
    h.engine = text();
    h.memo = text(40);
    s.slipNumber = g.digits(6) + g.digits(3);
    s.estimateDate = QStringLiteral("令和%1年%2月%3日").arg(g.between(1, 9)).arg(g.between(1, 12)).arg(g.between(1, 28));
    s.fileNameText = text(8);
    s.labourRate = std::int16_t(g.between(0, 32767));
    s.paintLabourRate = std::int16_t(g.between(0, 32767));
    s.roundDigits = std::int16_t(g.between(0, 2));
    s.roundMode = std::int16_t(g.between(0, 2));
    s.totals.labour = g.yen();
    s.totals.parts = g.yen();
    s.totals.workTotalA = g.yen();
    s.totals.paintLabour = g.yen();
    s.totals.paintMaterial = g.yen();
    s.totals.bumperPaint = g.yen();
    s.totals.paintTotalB = g.yen();
    const int rate = full || g.coin() ? g.between(1, 50) : 0;
    s.figures.discountRate = rate ? QString::number(rate) : QString();
    s.figures.rememberedRate = rate ? QString::number(rate) : QStringLiteral("0");
    s.figures.discountAmount = full || g.coin() ? formatThousands(g.yen(999999)) : QString();
    s.figures.advance = full || g.coin() ? formatThousands(g.yen(999999)) : QString();
    for (int i = 0; i < 14; ++i)
        s.company[i] = text();
    s.company[10] = QStringLiteral("00") + g.digits(5);   // account number with leading zeros
    s.company[11] = QString::number(g.between(0, 10));
    s.figures.taxRate = s.company[11];
    for (int i = 0; i < 18; ++i)
        s.customer[i] = text();
    for (int i = 0; i < 19; ++i)
        s.vehicle[i] = text();
    s.vehicle[9] = g.digits(5);   // type designation, "00000"

    const int rows = size(kMaxEstimateRows);
    for (int i = 0; i < rows; ++i)
        s.rows.append(randomRow(g, i + 1));

    const int items = full ? 99 : g.between(0, 30);
    for (int i = 0; i < items; ++i) {
        s.nonTaxable.names.append(text(16));
        s.nonTaxable.amounts.append(g.yen(200000));
    }
    s.nonTaxable.count = std::int16_t(items);
    s.nonTaxable.present = items > 0;
    for (Yen a : s.nonTaxable.amounts)
        s.nonTaxable.sum += a;

    s.bumper.entered = full || g.coin();
    s.bumper.lineCount = g.between(0, 31);
    for (int i = 0; i < 31; ++i)
        s.bumper.lines[i] = text(6);
    s.additional.entered = full || g.coin();
    s.additional.lineCount = g.between(0, 6);
    for (auto &item : s.additional.items)
        for (QString &field : item)
            field = text(6);
    s.paint.baseAdditionIndex = g.yen();
    s.paint.highFunctionBaseIndex = formatFixed2(g.between(0, 999) / 100.0);
    s.paint.highFunctionMaterialIndex = formatFixed2(g.between(0, 999) / 100.0);
    for (int i = 0; i < 11; ++i)
        s.paint.lines[i] = text(6);
    s.paint.vehicleClass = QStringList{QStringLiteral("小型"), QStringLiteral("普通"), QStringLiteral("軽自")}.at(g.between(0, 2));
    s.paint.materialCoefficient = formatFixed2(g.between(0, 300) / 100.0);
    s.paint.entered = full || g.coin();
    const int paintRows = size(73);
    for (int i = 0; i < paintRows; ++i)
        s.paint.rows.append(randomRow(g, i + 1));
    return s;
}

} // namespace

Session fullEstimate(std::uint32_t seed)
{
    Gen g(seed);
    return build(g, true);
}

Session randomEstimate(std::uint32_t seed)
{
    Gen g(seed);
    return build(g, false);
}

QStringList storedFields(const Session &s)
{
    QStringList f;
    auto add = [&f](const QString &name, const QString &value) { f.append(name + QStringLiteral(" = ") + value); };
    auto list = [&](const QString &name, const QStringList &values) {
        for (int i = 0; i < values.size(); ++i)
            add(QStringLiteral("%1[%2]").arg(name).arg(i), values.at(i));
    };
    auto rows = [&](const QString &name, const QList<EstimateRow> &table) {
        add(name + QStringLiteral(".size"), QString::number(table.size()));
        for (int r = 0; r < table.size(); ++r)
            for (int c = 0; c < EstimateColumnCount; ++c)
                add(QStringLiteral("%1[%2][%3]").arg(name).arg(r).arg(c), table.at(r).at(size_t(c)));
    };
    const EstimateHeader &h = s.header;
    add(QStringLiteral("documentKind"), QString::number(h.documentKind));
    add(QStringLiteral("openingText"), h.openingText);
    add(QStringLiteral("closingText"), h.closingText);
    add(QStringLiteral("amountCaption"), h.amountCaption);
    list(QStringLiteral("header"), {h.customerName, h.customerCompany, h.carName, h.chassisNumber,
                                    h.firstRegistration, h.distance, h.registration, h.modelCode, h.classCode,
                                    h.colour, h.engine, h.memo});
    add(QStringLiteral("slipNumber"), s.slipNumber);
    add(QStringLiteral("estimateDate"), s.estimateDate);
    add(QStringLiteral("revision"), QString::number(s.revision));
    add(QStringLiteral("fileNameText"), s.fileNameText);
    list(QStringLiteral("rates"), {QString::number(s.labourRate), QString::number(s.paintLabourRate),
                                   QString::number(s.roundDigits), QString::number(s.roundMode)});
    const EditorTotals &t = s.totals;
    list(QStringLiteral("totals"), {QString::number(t.labour), QString::number(t.parts), QString::number(t.workTotalA),
                                    QString::number(t.paintLabour), QString::number(t.paintMaterial),
                                    QString::number(t.bumperPaint), QString::number(t.paintTotalB)});
    list(QStringLiteral("figures"), {s.figures.discountRate, s.figures.discountAmount, s.figures.advance,
                                     s.figures.taxRate, s.figures.rememberedRate});
    list(QStringLiteral("company"), s.company);
    list(QStringLiteral("customer"), s.customer);
    list(QStringLiteral("vehicle"), s.vehicle);
    rows(QStringLiteral("rows"), s.rows);
    const NonTaxableItems &n = s.nonTaxable;
    add(QStringLiteral("nonTaxable.count"), QString::number(n.count));
    add(QStringLiteral("nonTaxable.sum"), QString::number(n.sum));
    add(QStringLiteral("nonTaxable.present"), QString::number(n.present));
    list(QStringLiteral("nonTaxable.names"), n.names);
    for (int i = 0; i < n.amounts.size(); ++i)
        add(QStringLiteral("nonTaxable.amounts[%1]").arg(i), QString::number(n.amounts.at(i)));
    add(QStringLiteral("bumper.entered"), QString::number(s.bumper.entered));
    add(QStringLiteral("bumper.lineCount"), QString::number(s.bumper.lineCount));
    list(QStringLiteral("bumper.lines"), s.bumper.lines);
    add(QStringLiteral("additional.entered"), QString::number(s.additional.entered));
    add(QStringLiteral("additional.lineCount"), QString::number(s.additional.lineCount));
    for (int r = 0; r < kAdditionalItems; ++r)
        for (int c = 0; c < kAdditionalFields; ++c)
            add(QStringLiteral("additional.items[%1][%2]").arg(r).arg(c), s.additional.items[size_t(r)][size_t(c)]);
    const PaintState &p = s.paint;
    add(QStringLiteral("paint.baseAdditionIndex"), QString::number(p.baseAdditionIndex));
    list(QStringLiteral("paint.texts"), {p.highFunctionBaseIndex, p.highFunctionMaterialIndex, p.vehicleClass,
                                         p.materialCoefficient});
    add(QStringLiteral("paint.entered"), QString::number(p.entered));
    list(QStringLiteral("paint.lines"), p.lines);
    rows(QStringLiteral("paint.rows"), p.rows);
    return f;
}

} // namespace est::test
