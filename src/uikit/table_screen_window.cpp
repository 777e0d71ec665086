#include "uikit/table_screen_window.h"

#include "db/database.h"
#include "uikit/named.h"

#include <QLabel>

namespace est::ui {

std::unique_ptr<TableEditorWindow> makeTableScreenWindow(const mastertable::TableScreen &screen, QSqlDatabase database,
                                                         Messages &messages, QWidget *parent)
{
    auto window = std::make_unique<TableEditorWindow>(screen.objectName, screen.title, messages, parent);
    for (const mastertable::TableSpec &table : screen.tables)
        window->addTable(table, database);
    if (!screen.hint.isEmpty()) {
        auto *hint = named(new QLabel(screen.hint, window.get()), "lblHint");
        hint->setWordWrap(true);
        window->addPanel(hint);
    }
    return window;
}

std::optional<QSqlDatabase> openScreenDatabase(const mastertable::TableScreen &screen, const QString &appFolder,
                                               Messages &messages)
{
    const db::OpenResult opened = db::openDatabase(appFolder, screen.database);
    const QString problem = opened.ok() ? mastertable::checkScreenLayout(screen, opened.database)
                                        : QStringLiteral("%1\n%2を開けません。").arg(opened.error, screen.title);
    if (!problem.isEmpty()) {
        messages.inform(problem, screen.title, MessageIcon::Critical);
        return std::nullopt;
    }
    return opened.database;
}

void showTableScreen(const mastertable::TableScreen &screen, const QString &appFolder, Messages &messages,
                     QWidget *parent)
{
    if (const std::optional<QSqlDatabase> database = openScreenDatabase(screen, appFolder, messages))
        makeTableScreenWindow(screen, *database, messages, parent)->exec();
}

} // namespace est::ui
