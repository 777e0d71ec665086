#include "sheet/slip_ledger.h"

#include "db/transaction_guard.h"
#include "sheet/era_date.h"

#include <QSettings>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>
#include <limits>

namespace est::sheet {

namespace {

const QString kDayFormat = QStringLiteral("yyyy-MM-dd");
const QString kTakenOverKey = QStringLiteral("DenpyoNo/TakenOver");
constexpr int kLastCounter = std::numeric_limits<std::int16_t>::max();

QString text(QDate day)
{
    return day.toString(kDayFormat);
}

QString reason(const QSqlQuery &q)
{
    return q.lastError().text();
}

} // namespace

SlipLedger::SlipLedger(QSqlDatabase database) : m_db(std::move(database)) {}

std::optional<SlipLedgerState> SlipLedger::state(QDate day) const
{
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("SELECT (SELECT \"LastNo\" FROM \"SlipCounter\" WHERE \"Day\" = ?), "
                             "(SELECT MAX(\"ConfirmedOn\") FROM \"SlipCounter\")"));
    q.addBindValue(text(day));
    if (!q.exec() || !q.next()) {
        m_error = reason(q);
        return std::nullopt;
    }
    SlipLedgerState s;
    s.lastOfDay = q.value(0).toInt();
    const QDate confirmed = QDate::fromString(q.value(1).toString(), kDayFormat);
    if (confirmed.isValid())
        s.lastConfirmed = confirmed;
    return s;
}

SlipIssue SlipLedger::issue(QDate day, QDate today)
{
    // One statement reads and advances the row, under the write lock: seats take turns.
    SlipIssue result;
    db::TransactionGuard transaction = db::TransactionGuard::forWriting(m_db);
    if (!transaction.started()) {
        result.error = transaction.error();
        return result;
    }
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral(
        "INSERT INTO \"SlipCounter\" (\"Day\", \"LastNo\", \"ConfirmedOn\") VALUES (?, 1, ?) "
        "ON CONFLICT (\"Day\") DO UPDATE SET \"LastNo\" = \"SlipCounter\".\"LastNo\" + 1, "
        "\"ConfirmedOn\" = CASE WHEN excluded.\"ConfirmedOn\" > \"SlipCounter\".\"ConfirmedOn\" "
        "THEN excluded.\"ConfirmedOn\" ELSE \"SlipCounter\".\"ConfirmedOn\" END "
        "WHERE \"SlipCounter\".\"LastNo\" < ? RETURNING \"LastNo\""));
    q.addBindValue(text(day));
    q.addBindValue(text(today));
    q.addBindValue(kLastCounter);
    if (!q.exec()) {
        result.error = reason(q);
        return result;
    }
    if (q.next())
        result.counter = q.value(0).toInt();
    else
        result.full = true;
    q.finish();
    if (!transaction.commit()) {
        result.counter = 0;
        result.error = m_db.lastError().text();
    }
    return result;
}

bool SlipLedger::raise(QDate day, int counter, QDate confirmedOn)
{
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral(
        "INSERT INTO \"SlipCounter\" (\"Day\", \"LastNo\", \"ConfirmedOn\") VALUES (?, ?, ?) "
        "ON CONFLICT (\"Day\") DO UPDATE SET "
        "\"LastNo\" = CASE WHEN excluded.\"LastNo\" > \"SlipCounter\".\"LastNo\" "
        "THEN excluded.\"LastNo\" ELSE \"SlipCounter\".\"LastNo\" END, "
        "\"ConfirmedOn\" = CASE WHEN excluded.\"ConfirmedOn\" > \"SlipCounter\".\"ConfirmedOn\" "
        "THEN excluded.\"ConfirmedOn\" ELSE \"SlipCounter\".\"ConfirmedOn\" END"));
    q.addBindValue(text(day));
    q.addBindValue(counter);
    q.addBindValue(text(confirmedOn));
    if (!q.exec()) {
        m_error = reason(q);
        return false;
    }
    return true;
}

SlipConfirmation issueProposal(SlipLedger &ledger, const SlipProposal &proposal, QDate today)
{
    SlipConfirmation c;
    c.proposal = proposal;
    const SlipIssue issued = ledger.issue(proposal.day, today);
    if (!issued.error.isEmpty()) {
        c.error = QStringLiteral("伝票番号を記録できません。\n") + issued.error;
        return c;
    }
    if (issued.full) {
        c.error = QStringLiteral("伝票番号がこれ以上増やせません。");
        return c;
    }
    if (issued.counter != proposal.counter) {
        c.proposal = issuedAs(proposal, issued.counter);
        c.notice = QStringLiteral("伝票番号 %1 はほかの席で使われました。\n伝票番号は %2 です。")
                       .arg(proposal.number, c.proposal.number);
    }
    return c;
}

db::OpenResult openSlipLedgerDatabase(const QString &appFolder)
{
    return db::openDatabase(appFolder, QStringLiteral("temp\\Jisya_Jyouhou.mdb"));
}

bool takeOverSlipSettings(SlipLedger &ledger, QSettings &settings)
{
    if (settings.value(kTakenOverKey).toBool())
        return true;
    const std::optional<QDate> day = parseDayKey(settings.value(QStringLiteral("DenpyoDDay/DDay")).toString());
    bool ok = false;
    const int counter = settings.value(QStringLiteral("DenpyoNo/DNo")).toString().trimmed().toInt(&ok);
    if (day && ok && counter > 0 && !ledger.raise(*day, counter, *day))
        return false;
    settings.setValue(kTakenOverKey, true);
    settings.sync();
    return true;
}

} // namespace est::sheet
