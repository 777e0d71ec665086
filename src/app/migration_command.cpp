#include "app/migration_command.h"

#include "db/migration.h"
#include "db/server_settings.h"

#include <QDir>

namespace est::app {

int runMigrationCommand(const QString &appFolder, const QString &folder, QTextStream &out, QTextStream &progress)
{
    const QString connection = db::serverConnection();
    if (connection.isEmpty()) {
        progress << QStringLiteral("共有サーバーが設定されていません。環境変数 ESTIMATE_DB に接続文字列を指定するか、"
                                   "画面「共有サーバー」で保存してください。\n");
        progress.flush();
        return MigrationNoServer;
    }
    const auto show = [&progress](const QString &line) {
        progress << line << '\n';
        progress.flush();
    };
    const db::MigrationResult result = folder.isEmpty() ? db::copyFolderToServer(appFolder, connection, show)
                                                        : db::copyServerToFolder(connection, folder, show);
    for (const QString &line : result.report)
        out << line << '\n';
    switch (result.outcome) {
    case db::MigrationResult::Outcome::Copied:
        out << (folder.isEmpty() ? QStringLiteral("共有サーバーに写しました。すべての表の件数と合計が一致しました。\n")
                                 : QStringLiteral("%1 に写しました。すべての表の件数と合計が一致しました。\n")
                                       .arg(QDir::toNativeSeparators(folder)));
        out.flush();
        return MigrationDone;
    case db::MigrationResult::Outcome::TargetHoldsData:
        out.flush();
        progress << result.error << '\n';
        progress.flush();
        return MigrationTargetHoldsData;
    case db::MigrationResult::Outcome::Failed:
        break;
    }
    out.flush();
    progress << result.error << '\n';
    progress.flush();
    return MigrationFailed;
}

} // namespace est::app
