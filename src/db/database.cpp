#include "db/database.h"

#include "db/app_folder.h"

#include <QDir>
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
        if (!query.exec(statement)) {
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

QString openConnection(QSqlDatabase &database)
{
    if (database.isOpen())
        return {};
    if (!database.open())
        return database.lastError().text();
    QSqlQuery pragma(database);
    pragma.exec(QStringLiteral("PRAGMA foreign_keys = ON"));
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
    result.error = openConnection(result.database);
    return result;
}

OpenResult openDatabase(const QString &appFolder, const QString &relative)
{
    OpenResult result;
    const QString fullPath = resolve(appFolder, relative);
    const QFileInfo info(fullPath);
    if (!info.exists()) {
        if (!QDir().mkpath(info.absolutePath())) {
            result.error = QStringLiteral("フォルダ %1 を作成できませんでした。")
                               .arg(QDir::toNativeSeparators(info.absolutePath()));
            return result;
        }
        const QString script = builtInSql(info.completeBaseName());
        if (script.isEmpty()) {
            result.error = QStringLiteral("%1 が見つかりません。").arg(QDir::toNativeSeparators(fullPath));
            return result;
        }
        result.error = createFromSchema(fullPath, script);
        if (!result.ok())
            return result;
        result.created = true;
    }
    result.database = connectionFor(fullPath);
    result.error = openConnection(result.database);
    return result;
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
    query.prepare(QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ?"));
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
