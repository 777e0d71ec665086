#pragma once
// The slip counter shared by every seat: one row per day of the slip number in the shop's
// own-company database, with the last number issued for that day and the last day a slip of
// that row was confirmed on. A number is issued by one statement that reads and advances the
// row, so two seats confirming at once get consecutive numbers, and a number once issued is
// never issued again, whatever date was typed or how the clock was set.

#include "db/database.h"
#include "sheet/slip_numbering.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>
#include <optional>

class QSettings;

namespace est::sheet {

struct SlipIssue
{
    int counter = 0;     // the counter given, when error is empty and full is false
    bool full = false;   // the day's counter no longer fits its 16 bits
    QString error;       // the database's reason, for the user

    bool issued() const { return error.isEmpty() && !full && counter > 0; }
};

class SlipLedger
{
public:
    explicit SlipLedger(QSqlDatabase database);

    // What the proposal for `day` is made from; nothing when the database cannot be read.
    std::optional<SlipLedgerState> state(QDate day) const;
    // Issues the next counter of `day`, confirmed `today`.
    SlipIssue issue(QDate day, QDate today);
    // Raises the counter of `day` to at least `counter` (never lowers it).
    bool raise(QDate day, int counter, QDate confirmedOn);

    QString lastError() const { return m_error; }

private:
    QSqlDatabase m_db;
    mutable QString m_error;
};

// Issues the number of a proposal. When another seat took the proposed number in the
// meantime, the result is the next free one and `notice` says so; `error` is set (and
// nothing issued) when the ledger could not be written or the day's counter is full.
struct SlipConfirmation
{
    SlipProposal proposal;
    QString notice;
    QString error;
};
SlipConfirmation issueProposal(SlipLedger &ledger, const SlipProposal &proposal, QDate today);

// The ledger's database in the application folder (the own-company file).
db::OpenResult openSlipLedgerDatabase(const QString &appFolder);

// Earlier versions kept the counter and the day of the last slip in the per-user settings.
// They are taken over into the ledger once per seat (the counter raised, never lowered); the
// old keys stay as they are. Returns false when the ledger could not be written.
bool takeOverSlipSettings(SlipLedger &ledger, QSettings &settings);

} // namespace est::sheet
