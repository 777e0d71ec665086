#include "masters/bumper_gaps.h"

#include "indices/bumper_calculation.h"
#include "masters/master_screens.h"

#include <QSet>
#include <QSqlError>
#include <QSqlQuery>
#include <optional>

namespace est::masters {

namespace {

// The values of one column, or nothing with `error` set.
std::optional<QStringList> column(const QSqlDatabase &database, const QString &sql, QString *error)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.exec(sql)) {
        *error = QStringLiteral("バンパー指数の表を読めませんでした。\n") + query.lastError().text();
        return std::nullopt;
    }
    QStringList values;
    while (query.next())
        values << query.value(0).toString();
    return values;
}

QString joined(const QStringList &parts) { return parts.join(QStringLiteral("・")); }

} // namespace

BumperGaps missingBumperRows(const QSqlDatabase &database, QString *error)
{
    BumperGaps gaps;
    const auto base = column(database,
                             // A tab written into the text: SQLite's char(9) is no function on the server.
                             QStringLiteral("SELECT \"作業\" || '\t' || \"車種\" || '\t' || \"色種\" || '\t' || "
                                            "\"内容\" FROM \"BanpaDB\""),
                             error);
    const auto offVehicle =
        base ? column(database, QStringLiteral("SELECT \"Colr\" FROM \"BampaTantaiDB\""), error) : std::nullopt;
    const auto priced = offVehicle ? column(database, QStringLiteral("SELECT \"塗装種類\" FROM \"PZairyohi\" ORDER BY rowid"), error)
                                   : std::nullopt;
    if (!priced)
        return gaps;
    QStringList kinds;
    const auto addKind = [&kinds](const QString &kind) {
        if (!kind.isEmpty() && !kinds.contains(kind))
            kinds << kind;
    };
    for (const QString &kind : *priced)
        addKind(kind);
    const QSet<QString> present(base->begin(), base->end());
    for (const QString &row : *base)
        addKind(row.section(QLatin1Char('\t'), 2, 2));
    for (const QString &kind : *offVehicle)
        addKind(kind);

    for (const QString &work : indices::BumperCalculation::workKinds())
        for (const QString &vehicle : vehicleClasses())
            for (const QString &kind : kinds)
                for (const QString &content : indices::BumperCalculation::contents()) {
                    const QString key = QStringList{indices::BumperCalculation::workCode(work), vehicle, kind, content}
                                            .join(QLatin1Char('\t'));
                    if (!present.contains(key))
                        gaps.baseRows << joined({work, vehicle, kind, content});
                }
    for (const QString &kind : kinds)
        if (!offVehicle->contains(kind))
            gaps.offVehicleKinds << kind;
    error->clear();
    return gaps;
}

QString describeBumperGaps(const BumperGaps &gaps, int shown)
{
    if (gaps.empty())
        return QStringLiteral("作業・車種・色種・内容のすべての組み合わせにバンパー指数があります。");
    QStringList lines;
    if (!gaps.baseRows.isEmpty()) {
        QString line = QStringLiteral("バンパー指数の無い組み合わせ（%1件）：").arg(gaps.baseRows.size())
                       + gaps.baseRows.mid(0, shown).join(QStringLiteral("、"));
        if (gaps.baseRows.size() > shown)
            line += QStringLiteral(" ほか");
        lines << line;
    }
    if (!gaps.offVehicleKinds.isEmpty())
        lines << QStringLiteral("単体塗装の指数が無い色種：") + gaps.offVehicleKinds.join(QStringLiteral("、"));
    return lines.join(QLatin1Char('\n'));
}

} // namespace est::masters
