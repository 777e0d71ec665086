#include "reports/estimate_summary.h"

#include "common/number_format.h"
#include "sheet/era_date.h"
#include "sheet/totals_chain.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"
#include "workbook/xls_book.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace est::reports {

namespace {

Yen yen(const QString &text)
{
    return parseDisplayedYen(text).value_or(0);
}

struct Era
{
    const char16_t *name;
    int firstYear;
};
constexpr Era kEras[] = {{u"令和", 2019}, {u"平成", 1989}, {u"昭和", 1926}};

} // namespace

bool isSale(int documentKind)
{
    return documentKind >= 3 && documentKind <= 6;
}

QDate parseEraDate(const QString &text)
{
    static const QRegularExpression pattern(
        QStringLiteral("^\\s*(\\S{2})(元|\\d{1,2})年(\\d{1,2})月(\\d{1,2})日\\s*$"));
    const auto m = pattern.match(text.normalized(QString::NormalizationForm_KC));
    if (!m.hasMatch())
        return {};
    for (const Era &era : kEras) {
        if (m.captured(1) != QString::fromUtf16(era.name))
            continue;
        const int year = m.captured(2) == QStringLiteral("元") ? 1 : m.captured(2).toInt();
        return QDate(era.firstYear + year - 1, m.captured(3).toInt(), m.captured(4).toInt());
    }
    return {};
}

QDate documentDay(const QString &eraDate, const QString &slipNumber, const QString &fileName)
{
    if (const QDate day = parseEraDate(eraDate); day.isValid())
        return day;
    if (const auto day = sheet::parseDayKey(slipNumber.left(6)))
        return *day;
    if (const auto day = sheet::parseDayKey(QFileInfo(fileName).fileName().left(6)))
        return *day;
    return {};
}

EstimateSummary summarize(const Session &session, const QString &fileName)
{
    // The figures below the rows are worked out again, as the sheet does when it shows a
    // reopened estimate, so a summary never depends on what a screen last displayed.
    SheetFigures figures = session.figures;
    figures.nonTaxable = formatThousands(session.nonTaxable.sum);
    sheet::TotalsChain chain(figures, session.totals);
    chain.setTaxRate(session.company.value(11));
    chain.sumsChanged();

    const EstimateHeader &h = session.header;
    EstimateSummary s;
    s.fileName = fileName;
    s.slipNumber = session.slipNumber;
    s.day = documentDay(session.estimateDate, session.slipNumber, fileName);
    s.documentKind = h.documentKind;
    s.customer = h.customerName;
    s.company = h.customerCompany;
    s.car = h.carName;
    s.registration = h.registration;
    s.chassis = h.chassisNumber;
    s.totalA = session.totals.workTotalA;
    s.totalB = session.totals.paintTotalB;
    s.discount = yen(figures.discountAmount);
    s.tax = yen(figures.tax);
    s.nonTaxable = session.nonTaxable.sum;
    s.grandTotal = yen(figures.grandTotal);
    s.amountDue = yen(figures.amountDue);
    return s;
}

EstimateSummary readSummary(const QString &path, const QString &fileName)
{
    try {
        auto book = workbook::openForReading(path);
        Session session;
        workbook::readEstimate(*book, session);
        return summarize(session, fileName);
    } catch (const workbook::WorkbookError &e) {
        EstimateSummary s;
        s.fileName = fileName;
        s.readable = false;
        s.error = workbook::describeError(e);
        s.day = documentDay({}, {}, fileName);
        return s;
    } catch (const std::exception &e) {
        EstimateSummary s;
        s.fileName = fileName;
        s.readable = false;
        s.error = QString::fromUtf8(e.what());
        s.day = documentDay({}, {}, fileName);
        return s;
    }
}

} // namespace est::reports
