#include "db/server_settings.h"

#include <QHash>
#include <QSysInfo>
#include <QSettings>

namespace est::db {

namespace {

bool g_localForSession = false;

QHash<QString, QString> &passwords()
{
    static QHash<QString, QString> store;
    return store;
}

QString quoteValue(const QString &value)
{
    if (!value.isEmpty() && !value.contains(QLatin1Char(' ')) && !value.contains(QLatin1Char('\''))
        && !value.contains(QLatin1Char('\\')))
        return value;
    QString quoted = value;
    quoted.replace(QLatin1Char('\\'), QStringLiteral("\\\\")).replace(QLatin1Char('\''), QStringLiteral("\\'"));
    return QLatin1Char('\'') + quoted + QLatin1Char('\'');
}

// Splits libpq's keyword=value list; values may be single-quoted with backslash escapes.
QList<std::pair<QString, QString>> pairs(const QString &connection)
{
    QList<std::pair<QString, QString>> result;
    qsizetype i = 0;
    const qsizetype n = connection.size();
    while (i < n) {
        while (i < n && connection.at(i).isSpace())
            ++i;
        const qsizetype keyStart = i;
        while (i < n && connection.at(i) != QLatin1Char('=') && !connection.at(i).isSpace())
            ++i;
        const QString key = connection.mid(keyStart, i - keyStart);
        while (i < n && connection.at(i).isSpace())
            ++i;
        if (i >= n || connection.at(i) != QLatin1Char('='))
            break;
        ++i;
        while (i < n && connection.at(i).isSpace())
            ++i;
        QString value;
        if (i < n && connection.at(i) == QLatin1Char('\'')) {
            for (++i; i < n && connection.at(i) != QLatin1Char('\''); ++i) {
                if (connection.at(i) == QLatin1Char('\\') && i + 1 < n)
                    ++i;
                value.append(connection.at(i));
            }
            ++i;
        } else {
            while (i < n && !connection.at(i).isSpace())
                value.append(connection.at(i++));
        }
        if (!key.isEmpty())
            result.append({key, value});
    }
    return result;
}

} // namespace

QString serverConnection()
{
    if (g_localForSession)
        return {};
    if (qEnvironmentVariableIsSet("ESTIMATE_DB"))
        return qEnvironmentVariable("ESTIMATE_DB").trimmed();
    return storedConnection();
}

QString storedConnection()
{
    QSettings settings;
    return composeConnection(parseConnection(settings.value(kServerGroup + QLatin1Char('/') + kConnectionKey).toString()));
}

void storeConnection(const QString &connection)
{
    QSettings settings;
    settings.setValue(kServerGroup + QLatin1Char('/') + kConnectionKey, composeConnection(parseConnection(connection)));
}

QString seatName()
{
    QSettings settings;
    const QString seat = settings.value(kServerGroup + QLatin1Char('/') + kSeatKey).toString().trimmed();
    return seat.isEmpty() ? QSysInfo::machineHostName() : seat;
}

void storeSeatName(const QString &seat)
{
    QSettings settings;
    settings.setValue(kServerGroup + QLatin1Char('/') + kSeatKey, seat.trimmed());
}

void useLocalDataForThisSession()
{
    g_localForSession = true;
}

bool usingLocalDataForThisSession()
{
    return g_localForSession;
}

void forgetLocalDataChoice()
{
    g_localForSession = false;
}

void rememberPassword(const QString &connection, const QString &password)
{
    passwords().insert(connection, password);
}

QString rememberedPassword(const QString &connection)
{
    return passwords().value(connection);
}

ConnectionFields parseConnection(const QString &connection)
{
    ConnectionFields fields;
    QStringList other;
    for (const auto &[key, value] : pairs(connection)) {
        if (key == QStringLiteral("host"))
            fields.host = value;
        else if (key == QStringLiteral("port"))
            fields.port = value;
        else if (key == QStringLiteral("dbname"))
            fields.database = value;
        else if (key == QStringLiteral("user"))
            fields.user = value;
        else if (key == QStringLiteral("sslmode"))
            fields.sslMode = value;
        else if (key != QStringLiteral("password"))
            other.append(key + QLatin1Char('=') + quoteValue(value));
    }
    fields.other = other.join(QLatin1Char(' '));
    return fields;
}

QString composeConnection(const ConnectionFields &fields)
{
    QStringList parts;
    const std::pair<const char *, const QString *> named[] = {{"host", &fields.host},
                                                              {"port", &fields.port},
                                                              {"dbname", &fields.database},
                                                              {"user", &fields.user},
                                                              {"sslmode", &fields.sslMode}};
    for (const auto &[key, value] : named)
        if (!value->trimmed().isEmpty())
            parts.append(QLatin1String(key) + QLatin1Char('=') + quoteValue(value->trimmed()));
    // Only what parses survives: a password slipped into `other` is dropped too.
    for (const auto &[key, value] : pairs(fields.other))
        if (key != QStringLiteral("password"))
            parts.append(key + QLatin1Char('=') + quoteValue(value));
    return parts.join(QLatin1Char(' '));
}

} // namespace est::db
