#include "db/schema_upgrade.h"

#include "db/app_folder.h"
#include "db/database.h"
#include "db/dialect.h"
#include "db/transaction_guard.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>

#include <algorithm>

namespace est::db {

namespace {

QString resourceScript(const QString &name)
{
    QFile file(QStringLiteral(":/data/%1.sql").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

QString runAddOn(QSqlDatabase &database, const QString &name)
{
    const QString script = resourceScript(name);
    if (script.isEmpty())
        return QStringLiteral("追加の表の定義 %1 がありません。").arg(name);
    return createMissingTables(database, script, /*withRows=*/true);
}

// Jisya_Jyouhou 2: the registration number and representative beside the company record.
// Empty: the sample representative of a new installation is not the shop's.
QString addCompanyExtras(QSqlDatabase &database)
{
    return createMissingTables(database, builtInSql(QStringLiteral("Jisya_Jyouhou")), /*withRows=*/false,
                               {QStringLiteral("Jisya_Tuika")});
}

// Jisya_Jyouhou 3: the shop's Peppol ID.
QString addShopPeppolId(QSqlDatabase &database)
{
    return runAddOn(database, QStringLiteral("Jisya_Jyouhou.peppol"));
}

// Jisya_Jyouhou 4: the slip ledger, empty (the counters of the settings join it at start-up).
QString addSlipLedger(QSqlDatabase &database)
{
    return runAddOn(database, QStringLiteral("Jisya_Jyouhou.slips"));
}

// KokyakuDB 2: the customers' Peppol IDs and corporate numbers.
QString addCustomerPeppolIds(QSqlDatabase &database)
{
    return runAddOn(database, QStringLiteral("KokyakuDB.peppol"));
}

// PartDB 2: the bumper, additional and sheet-metal index tables, with their sample rows.
QString addIndexTables(QSqlDatabase &database)
{
    return runAddOn(database, QStringLiteral("PartDB.indices"));
}

QString fileName(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

// Copies the file beside itself through a temporary name, replacing an older copy.
QString backUp(const QString &filePath, int version, QString *backupPath)
{
    *backupPath = filePath + QStringLiteral(".bak-%1").arg(version);
    const QString temporary = *backupPath + QStringLiteral(".new");
    QFile::remove(temporary);
    if (!QFile::copy(filePath, temporary)) {
        QFile::remove(temporary);
        return QStringLiteral("更新前の写し %1 を作れませんでした。").arg(fileName(*backupPath));
    }
    QFile::remove(*backupPath);
    if (!QFile::rename(temporary, *backupPath)) {
        QFile::remove(temporary);
        return QStringLiteral("更新前の写し %1 を作れませんでした。").arg(fileName(*backupPath));
    }
    return {};
}

QString runStep(QSqlDatabase &database, const SchemaStep &step)
{
    TransactionGuard guard(database);
    if (!guard.started())
        return database.lastError().text();
    QString error = step.apply(database);
    if (error.isEmpty())
        error = recordLayout(database, step.version);
    if (error.isEmpty() && !guard.commit())
        error = database.lastError().text();
    return error;
}

} // namespace

QList<SchemaStep> schemaSteps(const QString &baseName)
{
    if (baseName == QLatin1String("Jisya_Jyouhou"))
        return {{2, addCompanyExtras}, {3, addShopPeppolId}, {4, addSlipLedger}};
    if (baseName == QLatin1String("KokyakuDB"))
        return {{2, addCustomerPeppolIds}};
    if (baseName == QLatin1String("PartDB"))
        return {{2, addIndexTables}};
    return {};
}

int currentLayout(const QList<SchemaStep> &steps)
{
    return steps.isEmpty() ? 1 : steps.last().version;
}

int recordedLayout(const QSqlDatabase &database)
{
    if (!tableExists(database, kVersionTable))
        return 1;
    QSqlQuery query(database);
    if (!query.exec(QStringLiteral("SELECT MAX(\"version\") FROM ") + quoteIdentifier(kVersionTable)) || !query.next())
        return -1;
    if (query.value(0).isNull())
        return 1;
    return std::max(query.value(0).toInt(), -1);
}

QString recordLayout(QSqlDatabase &database, int version)
{
    const QString table = quoteIdentifier(kVersionTable);
    QSqlQuery query(database);
    if (!query.exec(QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (\"version\" INTEGER NOT NULL)").arg(table))
        || !query.exec(QStringLiteral("DELETE FROM ") + table))
        return query.lastError().text();
    query.prepare(QStringLiteral("INSERT INTO %1 (\"version\") VALUES (?)").arg(table));
    query.addBindValue(version);
    if (!query.exec())
        return query.lastError().text();
    return {};
}

QStringList upgradeAllDatabases(const QString &appFolder)
{
    QStringList notices;
    for (const char *folder : {"temp", "Data"}) {
        const QDir dir(resolve(appFolder, QLatin1String(folder)));
        for (const QFileInfo &file : dir.entryInfoList({QStringLiteral("*.sqlite")}, QDir::Files, QDir::Name)) {
            const QString path = file.absoluteFilePath();
            const bool wasOpen = QSqlDatabase::contains(path);
            const OpenResult opened = openExistingDatabase(path);
            if (!opened.ok())
                notices.append(opened.error);
            else if (!opened.notice.isEmpty())
                notices.append(opened.notice);
            if (!wasOpen)
                closeDatabase(path);
        }
    }
    return notices;
}

QString markLayout(QSqlDatabase &database, int version)
{
    TransactionGuard guard(database);
    if (!guard.started())
        return database.lastError().text();
    const QString error = recordLayout(database, version);
    if (!error.isEmpty())
        return error;
    return guard.commit() ? QString() : database.lastError().text();
}

QString createMissingTables(QSqlDatabase &database, const QString &script, bool withRows, const QStringList &only)
{
    static const QRegularExpression insert(QStringLiteral(R"(^\s*INSERT\s)"), QRegularExpression::CaseInsensitiveOption);
    const QStringList statements = splitStatements(script);
    QStringList missing;
    for (const QString &statement : statements) {
        const QString table = statementTable(statement);
        if (table.isEmpty())
            return QStringLiteral("追加の表を作れない文があります: %1").arg(statement.left(80));
        if ((only.isEmpty() || only.contains(table)) && !missing.contains(table) && !tableExists(database, table))
            missing.append(table);
    }
    QSqlQuery query(database);
    for (const QString &statement : statements) {
        if (!missing.contains(statementTable(statement)) || (!withRows && insert.match(statement).hasMatch()))
            continue;
        if (!query.exec(isServer(database) ? toServerStatement(statement) : statement))
            return query.lastError().text() + QStringLiteral("\n") + statement.left(200);
    }
    return {};
}

UpgradeOutcome upgradeDatabase(QSqlDatabase &database, const QList<SchemaStep> &steps, const QString &filePath)
{
    UpgradeOutcome outcome;
    const QString name = fileName(filePath.isEmpty() ? database.databaseName() : filePath);
    const int current = currentLayout(steps);
    outcome.from = outcome.to = recordedLayout(database);
    if (outcome.from < 0) {
        outcome.state = UpgradeOutcome::State::Failed;
        outcome.message = QStringLiteral("%1 の形式の版を読めませんでした。変更せずに開きます。").arg(name);
        return outcome;
    }
    if (outcome.from > current) {
        outcome.state = UpgradeOutcome::State::Newer;
        outcome.message = QStringLiteral("%1 はこのプログラムより新しい版で作られています（形式 %2、このプログラムは形式 %3 まで）。"
                                         "変更しないよう、読み取り専用で開きます。")
                              .arg(name).arg(outcome.from).arg(current);
        return outcome;
    }
    QList<SchemaStep> pending;
    for (const SchemaStep &step : steps)
        if (step.version > outcome.from)
            pending.append(step);
    if (pending.isEmpty()) {
        // A file made before versions were recorded gets its record; should that fail (a
        // read-only file), it is still read as it is: layout 1 is what a missing record means.
        if (!tableExists(database, kVersionTable)) {
            markLayout(database, current);
            return outcome;
        }
        // A record of a layout before the first.
        if (outcome.from != current) {
            const QString error = markLayout(database, current);
            if (!error.isEmpty()) {
                outcome.state = UpgradeOutcome::State::Failed;
                outcome.message = QStringLiteral("%1 の形式の版を記録できませんでした（%2）。").arg(name, error);
                return outcome;
            }
            outcome.state = UpgradeOutcome::State::Upgraded;
            outcome.to = current;
        }
        return outcome;
    }
    if (!filePath.isEmpty()) {
        const QString error = backUp(filePath, outcome.from, &outcome.backupPath);
        if (!error.isEmpty()) {
            outcome.state = UpgradeOutcome::State::Failed;
            outcome.message = error + QStringLiteral("%1 は形式 %2 のまま、変更していません。").arg(name).arg(outcome.from);
            return outcome;
        }
    }
    for (const SchemaStep &step : pending) {
        const QString error = runStep(database, step);
        if (!error.isEmpty()) {
            outcome.state = UpgradeOutcome::State::Failed;
            outcome.message = QStringLiteral("%1 を形式 %2 から %3 に更新できませんでした（%4）。"
                                             "ファイルは形式 %2 のまま、変更していません。")
                                  .arg(name).arg(outcome.to).arg(step.version).arg(error);
            if (!outcome.backupPath.isEmpty())
                outcome.message += QStringLiteral("更新前の写しは %1 です。").arg(fileName(outcome.backupPath));
            return outcome;
        }
        outcome.to = step.version;
    }
    outcome.state = UpgradeOutcome::State::Upgraded;
    return outcome;
}

} // namespace est::db
