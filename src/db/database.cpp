#include "db/database.h"

#include "db/app_folder.h"
#include "db/dialect.h"
#include "db/schema_upgrade.h"
#include "db/server_database.h"
#include "db/server_settings.h"

#include <QDir>
#include <QRegularExpression>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>

namespace est::db {

QString builtInSql(const QString &baseName)
{
    QFile file(QStringLiteral(":/data/%1.sql").arg(baseName));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

QStringList addOnScripts(const QString &baseName)
{
    QStringList scripts;
    const QStringList names = QDir(QStringLiteral(":/data"))
                                  .entryList({baseName + QStringLiteral(".*.sql")}, QDir::Files, QDir::Name);
    for (const QString &name : names) {
        QFile file(QStringLiteral(":/data/") + name);
        if (file.open(QIODevice::ReadOnly))
            scripts.append(QString::fromUtf8(file.readAll()));
    }
    return scripts;
}

QString statementTable(const QString &statement)
{
    static const QRegularExpression pattern(
        QStringLiteral(R"(^\s*(?:CREATE\s+TABLE(?:\s+IF\s+NOT\s+EXISTS)?|INSERT\s+INTO|)"
                       R"(CREATE\s+(?:UNIQUE\s+)?INDEX\s+(?:IF\s+NOT\s+EXISTS\s+)?\S+\s+ON)\s+)"
                       R"(("(?:[^"]|"")+"|\[[^\]]+\]|[^\s(]+))"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = pattern.match(statement);
    if (!match.hasMatch())
        return {};
    QString name = match.captured(1);
    if (name.startsWith(QLatin1Char('"')))
        return name.mid(1, name.size() - 2).replace(QStringLiteral("\"\""), QStringLiteral("\""));
    if (name.startsWith(QLatin1Char('[')))
        return name.mid(1, name.size() - 2);
    return name;
}

QStringList splitStatements(const QString &script)
{
    QStringList statements;
    QString current;
    enum class In { Code, Single, Double, LineComment } state = In::Code;
    for (qsizetype i = 0; i < script.size(); ++i) {
        const QChar c = script.at(i);
        switch (state) {
        case In::Code:
            if (c == QLatin1Char('-') && i + 1 < script.size() && script.at(i + 1) == QLatin1Char('-')) {
                state = In::LineComment;
                continue;
            }
            if (c == QLatin1Char(';')) {
                if (!current.trimmed().isEmpty())
                    statements.append(current.trimmed());
                current.clear();
                continue;
            }
            if (c == QLatin1Char('\''))
                state = In::Single;
            else if (c == QLatin1Char('"'))
                state = In::Double;
            break;
        case In::Single:
            if (c == QLatin1Char('\''))
                state = In::Code; // a doubled quote re-enters at once on the next character
            break;
        case In::Double:
            if (c == QLatin1Char('"'))
                state = In::Code;
            break;
        case In::LineComment:
            if (c == QLatin1Char('\n')) {
                state = In::Code;
                current.append(c);
            }
            continue;
        }
        current.append(c);
    }
    if (!current.trimmed().isEmpty())
        statements.append(current.trimmed());
    return statements;
}

QString runScript(QSqlDatabase &database, const QString &script)
{
    if (!database.transaction())
        return database.lastError().text();
    QSqlQuery query(database);
    for (const QString &statement : splitStatements(script)) {
        if (!query.exec(isServer(database) ? toServerStatement(statement) : statement)) {
            const QString error = query.lastError().text() + QStringLiteral("\n") + statement.left(200);
            database.rollback();
            return error;
        }
    }
    if (!database.commit())
        return database.lastError().text();
    return {};
}

namespace {

QSqlDatabase connectionFor(const QString &fullPath)
{
    const QString name = QFileInfo(fullPath).absoluteFilePath();
    if (QSqlDatabase::contains(name))
        return QSqlDatabase::database(name, false);
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
    database.setDatabaseName(name);
    return database;
}

QString openConnection(QSqlDatabase &database, OpenResult &result)
{
    if (database.isOpen()) {
        result.readOnly = database.connectOptions().contains(QLatin1String("QSQLITE_OPEN_READONLY"));
        return {};
    }
    if (!database.open())
        return database.lastError().text();
    QSqlQuery pragma(database);
    pragma.exec(QStringLiteral("PRAGMA foreign_keys = ON"));
    // A file made by an earlier version is upgraded; one made by a newer version is read as
    // it is and never written.
    const QString path = database.databaseName();
    const UpgradeOutcome outcome = upgradeDatabase(database, schemaSteps(QFileInfo(path).completeBaseName()), path);
    result.notice = outcome.message;
    if (outcome.state == UpgradeOutcome::State::Newer) {
        database.close();
        database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        if (!database.open())
            return database.lastError().text();
        result.readOnly = true;
    }
    return {};
}

// Builds the new file under a temporary name and renames it into place, so an
// interrupted start never leaves a half-made database behind.
QString createFromSchema(const QString &fullPath, const QString &script)
{
    const QString temporary = fullPath + QStringLiteral(".new");
    QFile::remove(temporary);
    QString error;
    {
        const QString connection = QStringLiteral("create:") + temporary;
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(temporary);
        if (!database.open())
            error = database.lastError().text();
        else
            error = runScript(database, script);
        if (error.isEmpty())
            error = markLayout(database, currentLayout(schemaSteps(QFileInfo(fullPath).completeBaseName())));
        database.close();
        database = QSqlDatabase();
        QSqlDatabase::removeDatabase(connection);
    }
    if (error.isEmpty() && !QFile::rename(temporary, fullPath))
        error = QStringLiteral("%1 を作成できませんでした。").arg(fullPath);
    if (!error.isEmpty())
        QFile::remove(temporary);
    return error;
}

} // namespace

OpenResult openExistingDatabase(const QString &fullPath)
{
    OpenResult result;
    if (!QFileInfo::exists(fullPath)) {
        result.error = QStringLiteral("%1 が見つかりません。").arg(QDir::toNativeSeparators(fullPath));
        return result;
    }
    result.database = connectionFor(fullPath);
    result.error = openConnection(result.database, result);
    return result;
}

OpenResult openDatabase(const QString &appFolder, const QString &relative)
{
    OpenResult result;
    const QString fullPath = resolve(appFolder, relative);
    const QFileInfo info(fullPath);
    if (const QString server = serverConnection(); !server.isEmpty() && isServerDatabase(info.completeBaseName()))
        return openServerDatabase(server, info.completeBaseName());
    if (!info.exists()) {
        if (!QDir().mkpath(info.absolutePath())) {
            result.error = QStringLiteral("フォルダ %1 を作成できませんでした。")
                               .arg(QDir::toNativeSeparators(info.absolutePath()));
            return result;
        }
        const QString script = (QStringList{builtInSql(info.completeBaseName())}
                                + addOnScripts(info.completeBaseName())).join(QStringLiteral(";\n"));
        if (splitStatements(script).isEmpty()) {
            result.error = QStringLiteral("%1 が見つかりません。").arg(QDir::toNativeSeparators(fullPath));
            return result;
        }
        result.error = createFromSchema(fullPath, script);
        if (!result.ok())
            return result;
        result.created = true;
    }
    result.database = connectionFor(fullPath);
    result.error = openConnection(result.database, result);
    return result;
}

OpenResult openIfPresent(const QString &appFolder, const QString &relative)
{
    const QString fullPath = resolve(appFolder, relative);
    const QString baseName = QFileInfo(fullPath).completeBaseName();
    if (const QString server = serverConnection(); !server.isEmpty() && isServerDatabase(baseName))
        return openServerDatabase(server, baseName, false);
    return openExistingDatabase(fullPath);
}

void closeDatabase(const QString &fullPath)
{
    const QString name = QFileInfo(fullPath).absoluteFilePath();
    if (!QSqlDatabase::contains(name))
        return;
    {
        QSqlDatabase database = QSqlDatabase::database(name, false);
        database.close();
    }
    QSqlDatabase::removeDatabase(name);
}

bool tableExists(const QSqlDatabase &database, const QString &table)
{
    QSqlQuery query(database);
    query.prepare(isServer(database) ? QStringLiteral("SELECT 1 FROM information_schema.tables WHERE table_schema = "
                                                      "current_schema() AND table_name = ?")
                                     : QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ?"));
    query.addBindValue(table);
    return query.exec() && query.next();
}

QString quoteIdentifier(const QString &name)
{
    QString inner = name;
    inner.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + inner + QLatin1Char('"');
}

} // namespace est::db
