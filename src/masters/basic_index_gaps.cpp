#include "masters/basic_index_gaps.h"

#include "masters/master_screens.h"

#include <QSet>
#include <QSqlError>
#include <QSqlQuery>

namespace est::masters {

QList<BasicIndexKey> missingBasicIndexRows(const QSqlDatabase &database, QString *error)
{
    QList<BasicIndexKey> gaps;
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("SELECT \"Syaryo\", \"Iro\", \"Toryo\" FROM \"KihonSisuDB\" ORDER BY rowid"))) {
        *error = QStringLiteral("基礎指数の表を読めませんでした。\n") + query.lastError().text();
        return gaps;
    }
    QSet<QString> present;
    QStringList materials{QStringLiteral("速乾")};
    while (query.next()) {
        const QString material = query.value(2).toString();
        present.insert(query.value(0).toString() + QLatin1Char('\t') + query.value(1).toString() + QLatin1Char('\t')
                       + material);
        if (!material.isEmpty() && !materials.contains(material))
            materials << material;
    }
    for (const QString &vehicle : vehicleClasses())
        for (const QString &colour : colourKindCodes())
            for (const QString &material : materials)
                if (!present.contains(vehicle + QLatin1Char('\t') + colour + QLatin1Char('\t') + material))
                    gaps << BasicIndexKey{vehicle, colour, material};
    error->clear();
    return gaps;
}

QString describeGaps(const QList<BasicIndexKey> &gaps, int shown)
{
    if (gaps.isEmpty())
        return QStringLiteral("車種・色種・塗料のすべての組み合わせに基礎指数があります。");
    QStringList names;
    for (int i = 0; i < gaps.size() && i < shown; ++i)
        names << QStringLiteral("%1・%2・%3").arg(gaps.at(i).vehicleClass, gaps.at(i).colourCode, gaps.at(i).material);
    QString text = QStringLiteral("基礎指数の無い組み合わせ（%1件）：").arg(gaps.size()) + names.join(QStringLiteral("、"));
    if (gaps.size() > shown)
        text += QStringLiteral(" ほか");
    return text;
}

} // namespace est::masters
