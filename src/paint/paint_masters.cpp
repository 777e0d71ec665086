#include "paint/paint_masters.h"

#include "db/database.h"
#include "db/dialect.h"
#include "db/part_db.h"
#include "workitems/labour.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

namespace est::paint {

namespace {

QSqlQuery run(const QSqlDatabase &db, const QString &sql, const QVariantList &values = {})
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    if (query.prepare(sql)) {
        for (const QVariant &v : values)
            query.addBindValue(v);
        query.exec();
    }
    return query;
}

} // namespace

std::optional<QString> indexText(const QVariant &value)
{
    if (value.isNull() || !value.isValid())
        return std::nullopt;
    QString text = value.toString().trimmed();
    if (value.typeId() == QMetaType::Double)
        text = QString::number(value.toDouble(), 'f', 6);
    return workitems::decimalSum(text, QStringLiteral("0"));
}

std::unique_ptr<PaintMasters> PaintMasters::open(const QString &appFolder, QString *error)
{
    db::OpenResult opened = db::openDatabase(appFolder, db::kPartDb);
    if (!opened.ok()) {
        if (error)
            *error = opened.error;
        return nullptr;
    }
    return std::make_unique<PaintMasters>(opened.database);
}

QList<PaintCategory> PaintMasters::categories() const
{
    QList<PaintCategory> list;
    QSqlQuery q = run(m_db, QStringLiteral("SELECT * FROM \"TKubunDB\""));
    while (q.next())
        list.append({q.value(0).toString(), db::fieldCount(q.record()) > 1 ? q.value(1).toString() : QString()});
    return list;
}

QList<PaintPart> PaintMasters::parts(const QString &categoryCode) const
{
    QList<PaintPart> list;
    QSqlQuery q = run(m_db,
                      QStringLiteral("SELECT \"Buhin\", \"Basyo\" FROM \"PaintDB\" WHERE \"KCode\" = ? ORDER BY rowid"),
                      {categoryCode});
    while (q.next())
        list.append({q.value(0).toString(), q.value(1).toString()});
    return list;
}

QStringList PaintMasters::materials() const
{
    QStringList list;
    QSqlQuery q = run(m_db, QStringLiteral("SELECT \"Toryo\" FROM \"KihonSisuDB\" ORDER BY rowid"));
    while (q.next()) {
        const QString material = q.value(0).toString();
        if (!material.isEmpty() && !list.contains(material))
            list.append(material);
    }
    return list;
}

std::optional<QString> PaintMasters::indexAt(const QString &sql, const QVariantList &values, int position) const
{
    QSqlQuery q = run(m_db, sql, values);
    if (!q.next() || position < 0 || position >= db::fieldCount(q.record()))
        return std::nullopt;
    return indexText(q.value(position));
}

std::optional<QString> PaintMasters::baseIndex(const QString &vehicleClass, const QString &colourCode,
                                               const QString &material, int panels) const
{
    if (panels <= 0)
        return std::nullopt;
    return indexAt(
        QStringLiteral("SELECT * FROM \"KihonSisuDB\" WHERE \"Syaryo\" = ? AND \"Iro\" = ? AND \"Toryo\" = ?"),
                   {vehicleClass, colourCode, material}, panels + 3);
}

std::optional<HighFunctionValues> PaintMasters::highFunction(const QString &paintKind) const
{
    QSqlQuery q = run(m_db,
                      QStringLiteral("SELECT \"KisoSisu\", \"FusoSisu\", \"TaisuriSisu\" FROM \"KoukinoDB\" "
                                     "WHERE \"Iro\" = ?"),
                      {paintKind});
    if (!q.next())
        return std::nullopt;
    HighFunctionValues v;
    v.baseIndex = indexText(q.value(0)).value_or(QString());
    v.fluorine = indexText(q.value(1)).value_or(QString());
    v.other = indexText(q.value(2)).value_or(QString());
    return v;
}

std::optional<QString> PaintMasters::materialCoefficient(const QString &paintKind) const
{
    return indexAt(QStringLiteral("SELECT * FROM \"PZairyohi\" WHERE \"塗装種類\" = ?"), {paintKind}, 2);
}

std::optional<QString> PaintMasters::lowHidingIndex(const QString &kind) const
{
    return indexAt(QStringLiteral("SELECT * FROM \"TeiInpeiDB\" WHERE \"Syu\" = ?"), {kind}, 2);
}

std::optional<QString> PaintMasters::lowHidingIndex(const QString &location, const QString &kind) const
{
    return indexAt(QStringLiteral("SELECT * FROM \"TeiInpeiDB\" WHERE \"Bui\" = ? AND \"Syu\" = ?"), {location, kind},
                   2);
}

std::optional<QString> PaintMasters::twoCoatSolidIndex(const QString &part) const
{
    return indexAt(QStringLiteral("SELECT * FROM \"SoridTone\" WHERE \"Bui\" = ?"), {part}, 2);
}

QList<InnerPanelItem> PaintMasters::innerPanelItems() const
{
    QList<InnerPanelItem> items;
    QSqlQuery q = run(m_db, QStringLiteral("SELECT * FROM \"NaibanPaintDB\" ORDER BY rowid"));
    while (items.size() < kInnerPanelItems && q.next()) {
        if (db::fieldCount(q.record()) < 6)
            break;
        InnerPanelItem item;
        item.key = q.value(0);
        item.part = q.value(1).toString();
        item.content = q.value(2).toString();
        item.index = indexText(q.value(3)).value_or(QString());
        item.lightIndex = indexText(q.value(4)).value_or(QString());
        item.memo = q.value(5).toString();
        items.append(item);
    }
    return items;
}

bool PaintMasters::saveInnerPanelItem(const InnerPanelItem &item)
{
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("UPDATE \"NaibanPaintDB\" SET \"Bui\" = ?, \"Naiyo\" = ?, \"Sisu\" = ?, \"KeiSisu\" = ?, "
                             "\"Memo\" = ? WHERE \"No\" = ?"));
    for (const QVariant &v : QVariantList{item.part, item.content, item.index, item.lightIndex,
                                          item.memo, item.key})
        q.addBindValue(v);
    if (!q.exec()) {
        m_error = q.lastError().text();
        return false;
    }
    if (q.numRowsAffected() != 1) {
        m_error = QStringLiteral("内板塗装の項目が見つかりません。");
        return false;
    }
    m_error.clear();
    return true;
}

} // namespace est::paint
