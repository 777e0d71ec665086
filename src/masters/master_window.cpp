#include "masters/master_window.h"

#include "db/database.h"
#include "masters/basic_index_gaps.h"
#include "mastertable/table_store.h"
#include "uikit/named.h"

#include <QLabel>

namespace est::masters {

namespace {

// The line under frmKisoSetting's tabs that names the missing basic-index combinations.
void addGapsLine(ui::TableEditorWindow &window, QSqlDatabase database)
{
    auto *line = ui::named(new QLabel(&window), "lblMissing");
    line->setWordWrap(true);
    const auto refresh = [line, database] {
        QString error;
        const QList<BasicIndexKey> gaps = missingBasicIndexRows(database, &error);
        line->setText(error.isEmpty() ? describeGaps(gaps) : error);
        line->setStyleSheet(gaps.isEmpty() && error.isEmpty() ? QString() : QStringLiteral("color: #b00000;"));
    };
    refresh();
    if (ui::TableEditor *basic = window.editor(QStringLiteral("KihonSisuDB")))
        QObject::connect(basic, &ui::TableEditor::saved, line, refresh);
    window.addPanel(line);
}

} // namespace

std::unique_ptr<ui::TableEditorWindow> makeMasterWindow(const MasterScreen &screen, QSqlDatabase database,
                                                        Messages &messages, QWidget *parent)
{
    auto window = std::make_unique<ui::TableEditorWindow>(screen.objectName, screen.title, messages, parent);
    for (const mastertable::TableSpec &table : screen.tables)
        window->addTable(table, database);
    if (screen.objectName == QStringLiteral("frmKisoSetting"))
        addGapsLine(*window, database);
    return window;
}

void showMasterScreen(const MasterScreen &screen, const QString &appFolder, Messages &messages, QWidget *parent)
{
    const db::OpenResult opened = db::openDatabase(appFolder, screen.database);
    if (!opened.ok()) {
        messages.inform(opened.error, screen.title, MessageIcon::Critical);
        return;
    }
    // One notice for a database that lacks the screen's tables, rather than one per tab.
    QStringList problems;
    for (const mastertable::TableSpec &table : screen.tables)
        if (QString problem = mastertable::TableStore(opened.database, table).checkLayout(); !problem.isEmpty())
            problems << problem;
    if (!problems.isEmpty()) {
        messages.inform(problems.join(QLatin1Char('\n')) + QStringLiteral("\n%1を開けません。").arg(screen.title),
                        screen.title, MessageIcon::Critical);
        return;
    }
    makeMasterWindow(screen, opened.database, messages, parent)->exec();
}

} // namespace est::masters
