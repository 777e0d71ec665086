#include "sheet/company_extras.h"

#include "db/dialect.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace est::sheet {

namespace {
const QString kCreate = QStringLiteral(
    "CREATE TABLE IF NOT EXISTS \"Jisya_Tuika\" (\"JNo\" INTEGER PRIMARY KEY, \"TourokuNo\" TEXT, "
    "\"MitumoriPrint\" INTEGER NOT NULL DEFAULT 0, \"Daihyousya\" TEXT)");
}

bool isRegistrationNumber(const QString &text)
{
    if (text.size() != 14 || text.at(0) != QLatin1Char('T'))
        return false;
    for (int i = 1; i < 14; ++i)
        if (text.at(i) < QLatin1Char('0') || text.at(i) > QLatin1Char('9'))
            return false;
    return true;
}

QString normalizeRegistrationNumber(const QString &text)
{
    QString out;
    for (QChar c : text) {
        if (c.isSpace())
            continue;
        if (c.unicode() >= 0xFF01 && c.unicode() <= 0xFF5E)   // full-width ASCII
            c = QChar(c.unicode() - 0xFEE0);
        if (c == QLatin1Char('t'))
            c = QLatin1Char('T');
        out += c;
    }
    return out;
}

std::optional<QString> checkRegistrationNumber(const QString &text)
{
    const QString number = normalizeRegistrationNumber(text);
    if (number.isEmpty() || isRegistrationNumber(number))
        return std::nullopt;
    return QStringLiteral("登録番号は「T」と13桁の数字で入力してください。\n（例：T1234567890123）");
}

CompanyExtrasStore::CompanyExtrasStore(QSqlDatabase database) : m_db(std::move(database))
{
    QSqlQuery q(m_db);
    if (!q.exec(kCreate))
        m_error = q.lastError().text();
}

CompanyExtras CompanyExtrasStore::read(int jNo) const
{
    CompanyExtras r;
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("SELECT \"TourokuNo\", \"MitumoriPrint\", \"Daihyousya\" FROM \"Jisya_Tuika\" WHERE \"JNo\" = ?"));
    q.addBindValue(jNo);
    if (!q.exec()) {
        m_error = q.lastError().text();
        return r;
    }
    if (q.next()) {
        r.registrationNumber = q.value(0).toString();
        r.numberOnEstimates = q.value(1).toInt() != 0;
        r.representative = q.value(2).toString();
    }
    // A file that could not gain the address table (read only) simply has no address.
    QSqlQuery peppol(m_db);
    peppol.prepare(QStringLiteral("SELECT \"PeppolID\" FROM \"Jisya_Peppol\" WHERE \"JNo\" = ?"));
    peppol.addBindValue(jNo);
    if (peppol.exec() && peppol.next())
        r.peppolId = peppol.value(0).toString();
    return r;
}

bool CompanyExtrasStore::write(int jNo, const CompanyExtras &extras)
{
    QSqlQuery q(m_db);
    q.prepare(db::upsertStatement(QStringLiteral("Jisya_Tuika"),
                                  {QStringLiteral("JNo"), QStringLiteral("TourokuNo"), QStringLiteral("MitumoriPrint"),
                                   QStringLiteral("Daihyousya")},
                                  {QStringLiteral("JNo")}));
    q.addBindValue(jNo);
    q.addBindValue(extras.registrationNumber);
    q.addBindValue(extras.numberOnEstimates ? 1 : 0);
    q.addBindValue(extras.representative);
    if (!q.exec()) {
        m_error = q.lastError().text();
        return false;
    }
    QSqlQuery peppol(m_db);
    peppol.prepare(db::upsertStatement(QStringLiteral("Jisya_Peppol"), {QStringLiteral("JNo"), QStringLiteral("PeppolID")},
                                       {QStringLiteral("JNo")}));
    peppol.addBindValue(jNo);
    peppol.addBindValue(db::nonNullText(extras.peppolId));
    if (!peppol.exec()) {
        m_error = peppol.lastError().text();
        return false;
    }
    return true;
}

bool CompanyExtrasStore::remove(int jNo)
{
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("DELETE FROM \"Jisya_Tuika\" WHERE \"JNo\" = ?"));
    q.addBindValue(jNo);
    QSqlQuery peppol(m_db);
    peppol.prepare(QStringLiteral("DELETE FROM \"Jisya_Peppol\" WHERE \"JNo\" = ?"));
    peppol.addBindValue(jNo);
    peppol.exec();
    if (!q.exec()) {
        m_error = q.lastError().text();
        return false;
    }
    return true;
}

} // namespace est::sheet
