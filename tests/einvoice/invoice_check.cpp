#include "invoice_check.h"

#include "db/database.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

namespace est::test {

QJsonArray InvoiceReport::subtotals() const
{
    return all.value(QStringLiteral("subtotals")).toArray();
}

InvoiceReport checkInvoice(const QString &xmlPath)
{
    InvoiceReport report;
    QProcess p;
    p.start(QStringLiteral("python3"), {QStringLiteral(PINT_CHECK), xmlPath});
    if (!p.waitForFinished(60000) || p.exitCode() != 0)
        return report;
    const QJsonDocument json = QJsonDocument::fromJson(p.readAllStandardOutput());
    report.all = json.object();
    report.read = !report.all.isEmpty();
    for (const QJsonValue &v : report.all.value(QStringLiteral("failed")).toArray())
        report.failed.append(v.toString());
    report.figures = report.all.value(QStringLiteral("figures")).toObject();
    return report;
}

bool wellFormed(const QString &xmlPath)
{
    QProcess p;
    p.start(QStringLiteral("xmllint"), {QStringLiteral("--noout"), xmlPath});
    return p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
}

void installCustomerAddress(const QString &appFolder, const QString &kno, const customers::ElectronicAddress &address)
{
    db::OpenResult opened = db::openDatabase(appFolder, QStringLiteral("temp\\KokyakuDB.mdb"));
    customers::ElectronicAddressStore(opened.database).write(kno, address);
}

} // namespace est::test
