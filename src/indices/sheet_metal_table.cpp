#include "indices/sheet_metal_table.h"

#include "common/number_format.h"
#include "indices/index_value.h"
#include "indices/sheet_metal.h"

#include <QSet>
#include <QSqlQuery>

#include <algorithm>

namespace est::indices {

SheetMetalTable::SheetMetalTable(QSqlDatabase database) : m_database(std::move(database)) {}

std::optional<std::array<QString, 3>> SheetMetalTable::grades(int areaClass) const
{
    QSqlQuery q(m_database);
    q.prepare(QStringLiteral("SELECT \"A\", \"B\", \"C\" FROM \"bankinsisu\" WHERE \"Area\" = ?"));
    q.addBindValue(QString::number(areaClass));
    if (!q.exec() || !q.next())
        return std::nullopt;
    return std::array<QString, 3>{indexText(q.value(0)), indexText(q.value(1)), indexText(q.value(2))};
}

QList<SheetMetalRow> SheetMetalTable::rows() const
{
    QList<SheetMetalRow> rows;
    QSqlQuery q(m_database);
    if (!q.exec(QStringLiteral("SELECT \"Area\", \"A\", \"B\", \"C\" FROM \"bankinsisu\"")))
        return rows;
    while (q.next())
        rows.append({q.value(0).toString(), {indexText(q.value(1)), indexText(q.value(2)), indexText(q.value(3))}});
    std::stable_sort(rows.begin(), rows.end(), [](const SheetMetalRow &a, const SheetMetalRow &b) {
        return a.area.toInt() < b.area.toInt();
    });
    return rows;
}

QString checkRows(const QList<SheetMetalRow> &rows)
{
    QSet<int> seen;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const SheetMetalRow &row = rows.at(i);
        const QString line = QString::number(i + 1);
        bool ok = false;
        const int area = row.area.trimmed().toInt(&ok);
        if (!ok || area < 1 || area > kAreaClasses || QString::number(area) != row.area.trimmed())
            return QStringLiteral("%1 行目の面積区分「%2」は 1 から %3 の整数で入力してください。")
                .arg(line, row.area).arg(kAreaClasses);
        if (seen.contains(area))
            return QStringLiteral("面積区分 %1 が2回以上あります。").arg(area);
        seen.insert(area);
        static const char *const names[] = {"A", "B", "C"};
        for (int g = 0; g < 3; ++g) {
            const auto value = parseDisplayedNumber(row.grades[size_t(g)]);
            if (!value || *value < 0)
                return QStringLiteral("%1 行目の指数 %2 は 0 以上の数値で入力してください。")
                    .arg(line, QLatin1String(names[g]));
        }
    }
    for (int area = 1; area <= kAreaClasses; ++area)
        if (!seen.contains(area))
            return QStringLiteral("面積区分 %1 がありません。1 から %2 まですべて入力してください。")
                .arg(area).arg(kAreaClasses);
    return {};
}

} // namespace est::indices
