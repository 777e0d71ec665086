#include "sheet/company_store.h"

#include "sheet/company_block.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace est::sheet {

QStringList companyBlock(const CompanyRecord &r)
{
    return {QString::number(r.jNo), r.comment,    r.name,       r.address,        r.tel,
            r.fax,                  r.bank,       r.bankBranch, formatBranchNumber(r.branchNo),
            r.accountType,          r.accountNo,  r.taxRate.trimmed(), r.accountHolder,
            r.printAccount ? QStringLiteral("1") : QStringLiteral("0")};
}

namespace {

std::optional<long long> wholeNumber(const QString &text)
{
    bool ok = false;
    const long long value = text.trimmed().toLongLong(&ok);
    if (!ok)
        return std::nullopt;
    return value;
}

QVariant numberOrNull(const QString &text)
{
    const auto value = wholeNumber(text);
    return value ? QVariant(*value) : QVariant(QMetaType::fromType<qlonglong>());
}

QString textOf(const QVariant &v)
{
    return v.isNull() ? QString() : v.toString();
}

const char *kColumns = "\"Coment\", \"Jisyamei\", \"JJyusyo\", \"JTEL\", \"JFAX\", \"Ginkou\", \"Siten\", "
                       "\"Kouza\", \"MiseNo\", \"KozaNo\", \"Zeiritu\", \"KozaName\", \"KozaPrint\"";

void bindFields(QSqlQuery &q, const CompanyRecord &r)
{
    q.addBindValue(r.comment);
    q.addBindValue(r.name);
    q.addBindValue(r.address);
    q.addBindValue(r.tel);
    q.addBindValue(r.fax);
    q.addBindValue(r.bank);
    q.addBindValue(r.bankBranch);
    q.addBindValue(r.accountType);
    q.addBindValue(numberOrNull(r.branchNo));
    q.addBindValue(r.accountNo);
    q.addBindValue(numberOrNull(r.taxRate));
    q.addBindValue(r.accountHolder);
    q.addBindValue(r.printAccount ? 1 : 0);
}

} // namespace

std::optional<QString> checkCompanyRecord(const CompanyRecord &r)
{
    const auto rate = wholeNumber(r.taxRate);
    if (!rate || *rate < 0 || *rate > 100)
        return QStringLiteral("消費税率は 0 から 100 までの整数（%）で入力してください。");
    if (!r.branchNo.trimmed().isEmpty()) {
        const auto branch = wholeNumber(r.branchNo);
        if (!branch || *branch < 0 || *branch > 999999)
            return QStringLiteral("店番号は数字で入力してください。");
    }
    return std::nullopt;
}

CompanyStore::CompanyStore(QSqlDatabase database) : m_db(std::move(database)) {}

QList<CompanyRecord> CompanyStore::records() const
{
    QList<CompanyRecord> list;
    QSqlQuery q(m_db);
    if (!q.exec(QStringLiteral("SELECT \"JNo\", %1 FROM \"Jisya_Jyouhou\" ORDER BY \"JNo\"")
                    .arg(QLatin1String(kColumns)))) {
        m_error = q.lastError().text();
        return list;
    }
    while (q.next()) {
        CompanyRecord r;
        r.jNo = q.value(0).toInt();
        r.comment = textOf(q.value(1));
        r.name = textOf(q.value(2));
        r.address = textOf(q.value(3));
        r.tel = textOf(q.value(4));
        r.fax = textOf(q.value(5));
        r.bank = textOf(q.value(6));
        r.bankBranch = textOf(q.value(7));
        r.accountType = textOf(q.value(8));
        r.branchNo = textOf(q.value(9));
        r.accountNo = textOf(q.value(10));
        r.taxRate = textOf(q.value(11));
        r.accountHolder = textOf(q.value(12));
        r.printAccount = q.value(13).toInt() != 0;
        list.append(r);
    }
    return list;
}

bool CompanyStore::insert(CompanyRecord &record)
{
    QSqlQuery next(m_db);
    if (!next.exec(QStringLiteral("SELECT COALESCE(MAX(\"JNo\"), 0) + 1 FROM \"Jisya_Jyouhou\"")) || !next.next()) {
        m_error = next.lastError().text();
        return false;
    }
    const int jNo = next.value(0).toInt();
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("INSERT INTO \"Jisya_Jyouhou\" (\"JNo\", %1) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
                             "?, ?, ?, ?)")
                  .arg(QLatin1String(kColumns)));
    q.addBindValue(jNo);
    bindFields(q, record);
    if (!q.exec()) {
        m_error = q.lastError().text();
        return false;
    }
    record.jNo = jNo;
    return true;
}

bool CompanyStore::update(const CompanyRecord &record)
{
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("UPDATE \"Jisya_Jyouhou\" SET \"Coment\" = ?, \"Jisyamei\" = ?, \"JJyusyo\" = ?, "
                             "\"JTEL\" = ?, \"JFAX\" = ?, \"Ginkou\" = ?, \"Siten\" = ?, \"Kouza\" = ?, "
                             "\"MiseNo\" = ?, \"KozaNo\" = ?, \"Zeiritu\" = ?, \"KozaName\" = ?, "
                             "\"KozaPrint\" = ? WHERE \"JNo\" = ?"));
    bindFields(q, record);
    q.addBindValue(record.jNo);
    if (!q.exec()) {
        m_error = q.lastError().text();
        return false;
    }
    if (q.numRowsAffected() != 1) {
        m_error = QStringLiteral("レコード %1 が見つかりません。").arg(record.jNo);
        return false;
    }
    return true;
}

bool CompanyStore::remove(int jNo)
{
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("DELETE FROM \"Jisya_Jyouhou\" WHERE \"JNo\" = ?"));
    q.addBindValue(jNo);
    if (!q.exec()) {
        m_error = q.lastError().text();
        return false;
    }
    return true;
}

QList<int> CompanyStore::findByName(const QString &name) const
{
    QList<int> found;
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("SELECT \"JNo\" FROM \"Jisya_Jyouhou\" WHERE \"Jisyamei\" = ? ORDER BY \"JNo\""));
    q.addBindValue(name);
    if (!q.exec()) {
        m_error = q.lastError().text();
        return found;
    }
    while (q.next())
        found.append(q.value(0).toInt());
    return found;
}

} // namespace est::sheet
