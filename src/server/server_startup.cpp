#include "server/server_startup.h"

#include "db/server_database.h"

namespace est::server {

bool connectAtStartup(Messages &messages, const PasswordAsker &askPassword)
{
    const QString connection = db::serverConnection();
    if (connection.isEmpty())
        return true;
    for (;;) {
        db::ServerCheck check = db::checkServer(connection, db::rememberedPassword(connection));
        if (!check.ok && check.needsPassword && askPassword) {
            if (const std::optional<QString> password = askPassword(ServerForm::passwordPrompt(connection))) {
                db::rememberPassword(connection, *password);
                continue;
            }
        }
        QString reason = check.message;
        if (check.ok) {
            reason = db::prepareServer(connection);
            if (reason.isEmpty())
                return true;
        }
        const Answer answer = messages.askYesNoCancel(
            reason + QStringLiteral("\n\nこのPCのデータで作業しますか？\n"
                                    "「はい」：この起動の間だけ、このPCのデータで作業します（共有サーバーのデータは変わりません）。\n"
                                    "「いいえ」：もう一度接続します。\n"
                                    "「キャンセル」：プログラムを終わります。"),
            QStringLiteral("共有サーバー"), MessageIcon::Exclamation);
        if (answer == Answer::Yes) {
            db::useLocalDataForThisSession();
            return true;
        }
        if (answer != Answer::No)
            return false;
    }
}

} // namespace est::server
