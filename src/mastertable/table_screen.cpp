#include "mastertable/table_screen.h"

#include "mastertable/table_store.h"
#include "db/dialect.h"

#include <QDir>
#include <QSqlError>
#include <QSqlQuery>

namespace est::mastertable {

QString checkScreenLayout(const TableScreen &screen, const QSqlDatabase &database)
{
    const QString cannotOpen = QStringLiteral("%1を開けません。").arg(screen.title);
    // SQLite opens any file lazily; the first read tells whether it is a database at all.
    if (const QString failure = db::probe(database); !failure.isEmpty()) {
        return QStringLiteral("%1 は壊れているか、データベースのファイルではありません。\n%2\n%3")
            .arg(QDir::toNativeSeparators(database.databaseName()), failure, cannotOpen);
    }
    QStringList problems;
    for (const TableSpec &table : screen.tables)
        if (QString problem = TableStore(database, table).checkLayout(); !problem.isEmpty())
            problems << problem;
    if (problems.isEmpty())
        return {};
    return problems.join(QLatin1Char('\n')) + QLatin1Char('\n') + cannotOpen;
}

} // namespace est::mastertable
