#include "masters/master_window.h"

#include "masters/basic_index_gaps.h"
#include "masters/bumper_gaps.h"
#include "uikit/named.h"
#include "uikit/table_screen_window.h"

#include <QLabel>
#include <functional>

namespace est::masters {

namespace {

// A line under the tabs that names the rows the pricing screens can ask for but the tables do
// not hold, refreshed whenever one of the tables it reads is saved.
struct GapCheck
{
    QStringList tables;
    std::function<QString(const QSqlDatabase &, bool *complete)> describe;
};

void addGapsLine(ui::TableEditorWindow &window, QSqlDatabase database, const GapCheck &check)
{
    auto *line = ui::named(new QLabel(&window), "lblMissing");
    line->setWordWrap(true);
    const auto refresh = [line, database, describe = check.describe] {
        bool complete = false;
        line->setText(describe(database, &complete));
        line->setStyleSheet(complete ? QString() : QStringLiteral("color: #b00000;"));
    };
    refresh();
    for (const QString &table : check.tables)
        if (ui::TableEditor *editor = window.editor(table))
            QObject::connect(editor, &ui::TableEditor::saved, line, refresh);
    window.addPanel(line);
}

GapCheck basicIndexGaps()
{
    return {{QStringLiteral("KihonSisuDB")}, [](const QSqlDatabase &database, bool *complete) {
                QString error;
                const QList<BasicIndexKey> gaps = missingBasicIndexRows(database, &error);
                *complete = error.isEmpty() && gaps.isEmpty();
                return error.isEmpty() ? describeGaps(gaps) : error;
            }};
}

GapCheck bumperGaps()
{
    return {{QStringLiteral("BanpaDB"), QStringLiteral("BampaTantaiDB")}, [](const QSqlDatabase &database, bool *complete) {
                QString error;
                const BumperGaps gaps = missingBumperRows(database, &error);
                *complete = error.isEmpty() && gaps.empty();
                return error.isEmpty() ? describeBumperGaps(gaps) : error;
            }};
}

} // namespace

std::unique_ptr<ui::TableEditorWindow> makeMasterWindow(const mastertable::TableScreen &screen, QSqlDatabase database,
                                                        Messages &messages, QWidget *parent)
{
    auto window = ui::makeTableScreenWindow(screen, database, messages, parent);
    if (screen.objectName == QStringLiteral("frmKisoSetting"))
        addGapsLine(*window, database, basicIndexGaps());
    else if (screen.objectName == QStringLiteral("frmBSetting"))
        addGapsLine(*window, database, bumperGaps());
    return window;
}

void showMasterScreen(const mastertable::TableScreen &screen, const QString &appFolder, Messages &messages,
                      QWidget *parent)
{
    if (const std::optional<QSqlDatabase> database = ui::openScreenDatabase(screen, appFolder, messages))
        makeMasterWindow(screen, *database, messages, parent)->exec();
}

} // namespace est::masters
