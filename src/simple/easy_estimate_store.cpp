#include "simple/easy_estimate_store.h"

#include "db/database.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>

namespace est::simple {

const QString EasyEstimateStore::kRelativePath = QStringLiteral("Data\\EasyEstimate.mdb");

namespace {

const QStringList kTables = {QStringLiteral("T_TUnitPrice"), QStringLiteral("M_TSKubun"),
                             QStringLiteral("M_TSyaryoA"), QStringLiteral("M_TSyaryoB"),
                             QStringLiteral("M_TColor")};

QString unusable(const QString &detail)
{
    return QStringLiteral("簡易見積のデータ（Data/EasyEstimate.sqlite）を開けません。\n%1").arg(detail);
}

} // namespace

std::unique_ptr<EasyEstimateStore> EasyEstimateStore::open(const QString &appFolder, QString *error)
{
    db::OpenResult opened = db::openDatabase(appFolder, kRelativePath);
    if (!opened.ok()) {
        if (error)
            *error = unusable(opened.error);
        return nullptr;
    }
    QStringList missing;
    for (const QString &table : kTables)
        if (!db::tableExists(opened.database, table))
            missing.append(table);
    if (!missing.isEmpty()) {
        if (error)
            *error = unusable(QStringLiteral("ファイルが壊れているか、表 %1 がありません。").arg(missing.join(QStringLiteral("、"))));
        return nullptr;
    }
    return std::make_unique<EasyEstimateStore>(opened.database);
}

std::optional<QList<Choice>> EasyEstimateStore::choices(const QString &sql, const QList<int> &values)
{
    QSqlQuery query(m_db);
    query.setForwardOnly(true);
    if (!query.prepare(sql)) {
        m_error = query.lastError().text();
        return std::nullopt;
    }
    for (int value : values)
        query.addBindValue(value);
    if (!query.exec()) {
        m_error = query.lastError().text();
        return std::nullopt;
    }
    QList<Choice> result;
    while (query.next())
        result.append({static_cast<std::int16_t>(query.value(0).toInt()), query.value(1).toString()});
    return result;
}

// Every name in double quotes: the server keeps them as written.
std::optional<QList<Choice>> EasyEstimateStore::workKinds()
{
    return choices(QStringLiteral("SELECT \"No\", \"作業区分\" FROM \"M_TSKubun\" ORDER BY \"No\""), {});
}

std::optional<QList<Choice>> EasyEstimateStore::classesA(int workKind)
{
    return choices(QStringLiteral("SELECT DISTINCT a.\"No\", a.\"車両区分A\" FROM \"M_TSyaryoA\" a "
                                  "JOIN \"T_TUnitPrice\" p ON a.\"No\" = p.\"車両区分A\" "
                                  "WHERE p.\"作業区分\" = ? ORDER BY a.\"No\""),
                   {workKind});
}

std::optional<QList<Choice>> EasyEstimateStore::allClassesA()
{
    return choices(QStringLiteral("SELECT \"No\", \"車両区分A\" FROM \"M_TSyaryoA\" ORDER BY \"No\""), {});
}

std::optional<QList<Choice>> EasyEstimateStore::allClassesB()
{
    return choices(QStringLiteral("SELECT \"No\", \"車両区分B\" FROM \"M_TSyaryoB\" ORDER BY \"No\""), {});
}

std::optional<QList<Choice>> EasyEstimateStore::allColours()
{
    return choices(QStringLiteral("SELECT \"No\", \"色区分\" FROM \"M_TColor\" ORDER BY \"No\""), {});
}

// The prices of a choice whose work kind and classes are all in their tables.
std::optional<QList<Choice>> EasyEstimateStore::classesB(int workKind, int classA)
{
    return choices(QStringLiteral("SELECT DISTINCT b.\"No\", b.\"車両区分B\" FROM \"T_TUnitPrice\" p "
                                  "JOIN \"M_TSKubun\" k ON k.\"No\" = p.\"作業区分\" "
                                  "JOIN \"M_TSyaryoA\" a ON a.\"No\" = p.\"車両区分A\" "
                                  "JOIN \"M_TSyaryoB\" b ON b.\"No\" = p.\"車両区分B\" "
                                  "WHERE p.\"作業区分\" = ? AND p.\"車両区分A\" = ? ORDER BY b.\"No\""),
                   {workKind, classA});
}

std::optional<QList<Choice>> EasyEstimateStore::colours(int workKind, int classA, int classB)
{
    return choices(QStringLiteral("SELECT DISTINCT c.\"No\", c.\"色区分\" FROM \"T_TUnitPrice\" p "
                                  "JOIN \"M_TSKubun\" k ON k.\"No\" = p.\"作業区分\" "
                                  "JOIN \"M_TSyaryoA\" a ON a.\"No\" = p.\"車両区分A\" "
                                  "JOIN \"M_TSyaryoB\" b ON b.\"No\" = p.\"車両区分B\" "
                                  "JOIN \"M_TColor\" c ON c.\"No\" = p.\"色区分\" "
                                  "WHERE p.\"作業区分\" = ? AND p.\"車両区分A\" = ? AND p.\"車両区分B\" = ? "
                                  "ORDER BY c.\"No\""),
                   {workKind, classA, classB});
}

std::optional<QList<UnitPriceRow>> EasyEstimateStore::unitPrices(const Classification &c, int panel, PanelMatch match)
{
    QSqlQuery query(m_db);
    query.setForwardOnly(true);
    if (!query.prepare(QStringLiteral("SELECT \"No\", \"作業部位\", \"作業内容\", \"材料/部品代\", \"工賃\" "
                                      "FROM \"T_TUnitPrice\" WHERE \"作業区分\" = ? AND \"車両区分A\" = ? "
                                      "AND \"車両区分B\" = ? AND \"色区分\" = ? AND \"Num\" = ? ORDER BY \"No\""))) {
        m_error = query.lastError().text();
        return std::nullopt;
    }
    query.addBindValue(int(c.workKind));
    query.addBindValue(int(c.classA));
    query.addBindValue(int(c.classB));
    query.addBindValue(int(c.colour));
    if (match == PanelMatch::AsText)
        query.addBindValue(QString::number(panel));
    else
        query.addBindValue(panel);
    if (!query.exec()) {
        m_error = query.lastError().text();
        return std::nullopt;
    }
    QList<UnitPriceRow> rows;
    while (query.next())
        rows.append({query.value(0).toLongLong(), query.value(1).toString(), query.value(2).toString(),
                     query.value(3).toLongLong(), query.value(4).toLongLong()});
    return rows;
}

} // namespace est::simple
