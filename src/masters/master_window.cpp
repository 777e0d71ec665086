#include "masters/master_window.h"

#include "masters/basic_index_gaps.h"
#include "uikit/named.h"
#include "uikit/table_screen_window.h"

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

std::unique_ptr<ui::TableEditorWindow> makeMasterWindow(const mastertable::TableScreen &screen, QSqlDatabase database,
                                                        Messages &messages, QWidget *parent)
{
    auto window = ui::makeTableScreenWindow(screen, database, messages, parent);
    if (screen.objectName == QStringLiteral("frmKisoSetting"))
        addGapsLine(*window, database);
    return window;
}

void showMasterScreen(const mastertable::TableScreen &screen, const QString &appFolder, Messages &messages,
                      QWidget *parent)
{
    if (const std::optional<QSqlDatabase> database = ui::openScreenDatabase(screen, appFolder, messages))
        makeMasterWindow(screen, *database, messages, parent)->exec();
}

} // namespace est::masters
