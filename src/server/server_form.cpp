#include "server/server_form.h"

#include <QRegularExpression>

namespace est::server {

const QList<TlsMode> &tlsModes()
{
    static const QList<TlsMode> modes{
        {QStringLiteral("prefer"), QStringLiteral("使えるときは暗号化する")},
        {QStringLiteral("require"), QStringLiteral("必ず暗号化する")},
        {QStringLiteral("verify-full"), QStringLiteral("必ず暗号化し、サーバーの証明書を確かめる")},
        {QStringLiteral("disable"), QStringLiteral("暗号化しない")},
    };
    return modes;
}

ServerForm::ServerForm()
{
    const QString stored = db::storedConnection();
    shared = !stored.isEmpty();
    fields = db::parseConnection(stored);
    seat = db::seatName();
}

QString ServerForm::connection() const
{
    if (!shared)
        return {};
    db::ConnectionFields f = fields;
    if (f.sslMode == QStringLiteral("prefer"))
        f.sslMode.clear(); // libpq's own default: the string stays short
    return db::composeConnection(f);
}

QString ServerForm::problem() const
{
    if (seat.trimmed().isEmpty())
        return QStringLiteral("この席の名前を入力してください。");
    if (!shared)
        return {};
    if (fields.host.trimmed().isEmpty())
        return QStringLiteral("サーバー名を入力してください。");
    static const QRegularExpression digits(QStringLiteral("^[0-9]{1,5}$"));
    const QString port = fields.port.trimmed();
    if (!port.isEmpty() && (!digits.match(port).hasMatch() || port.toInt() < 1 || port.toInt() > 65535))
        return QStringLiteral("ポート番号は 1 から 65535 までの数字で入力してください。");
    if (fields.database.trimmed().isEmpty())
        return QStringLiteral("データベース名を入力してください。");
    if (fields.user.trimmed().isEmpty())
        return QStringLiteral("ユーザー名を入力してください。");
    return {};
}

db::ServerCheck ServerForm::test(const PasswordAsker &askPassword) const
{
    const QString conn = connection();
    db::ServerCheck check = db::checkServer(conn, db::rememberedPassword(conn));
    while (!check.ok && check.needsPassword && askPassword) {
        const std::optional<QString> password = askPassword(passwordPrompt(conn));
        if (!password)
            break;
        check = db::checkServer(conn, *password);
        if (check.ok)
            db::rememberPassword(conn, *password);
    }
    return check;
}

void ServerForm::save() const
{
    db::storeConnection(connection());
    db::storeSeatName(seat);
}

bool ServerForm::overridden()
{
    return qEnvironmentVariableIsSet("ESTIMATE_DB");
}

QString ServerForm::passwordPrompt(const QString &connection)
{
    const db::ConnectionFields f = db::parseConnection(connection);
    return QStringLiteral("共有サーバー %1 のユーザー %2 のパスワードを入力してください。\n"
                          "パスワードはこのプログラムを終わるまで覚えておき、どこにも書き込みません。")
        .arg(f.host.isEmpty() ? QStringLiteral("（既定）") : f.host, f.user.isEmpty() ? QStringLiteral("（既定）") : f.user);
}

} // namespace est::server
