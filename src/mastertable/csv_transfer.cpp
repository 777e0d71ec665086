#include "mastertable/csv_transfer.h"

#include "mastertable/table_checks.h"

#include <QSet>
#include <algorithm>

namespace est::mastertable {

namespace {

constexpr int kShownRefusals = 20;

// For each tableSpec column, the position of its field in the file; missing captions listed.
QList<int> mapHeader(const TableSpec &tableSpec, const QStringList &header, QStringList *missing)
{
    QList<int> positions;
    for (const ColumnSpec &column : tableSpec.columns) {
        int found = -1;
        for (int i = 0; i < header.size() && found < 0; ++i) {
            const QString name = header.at(i).trimmed();
            if (name == column.caption || name.compare(column.field, Qt::CaseInsensitive) == 0)
                found = i;
        }
        if (found < 0)
            *missing << QStringLiteral("「%1」").arg(column.caption);
        positions << found;
    }
    return positions;
}

bool extraFieldsEmpty(const QStringList &record, qsizetype from)
{
    for (qsizetype i = from; i < record.size(); ++i)
        if (!record.at(i).trimmed().isEmpty())
            return false;
    return true;
}

} // namespace

QString ImportReport::summary() const
{
    if (applied)
        return QStringLiteral("%1行を読み込みました。").arg(rowCount);
    if (!error.isEmpty())
        return error + QStringLiteral("\n表は変更していません。");
    QString text = QStringLiteral("次の行に誤りがあるため、読み込みませんでした（表は変更していません）。\n");
    text += refusedRows.mid(0, kShownRefusals).join(QLatin1Char('\n'));
    if (refusedRows.size() > kShownRefusals)
        text += QStringLiteral("\nほかに%1件").arg(refusedRows.size() - kShownRefusals);
    return text;
}

ImportReport importCsv(const TableStore &store, const QByteArray &bytes, CsvEncoding encoding)
{
    ImportReport report;
    const TableSpec &tableSpec = store.tableSpec();
    if (report.error = store.checkLayout(); !report.error.isEmpty())
        return report;
    const DecodedCsv decoded = decodeCsv(bytes, encoding);
    if (report.error = decoded.error; !report.error.isEmpty())
        return report;
    const CsvRecords parsed = parseCsv(decoded.text);
    if (report.error = parsed.error; !report.error.isEmpty())
        return report;
    if (parsed.records.isEmpty()) {
        report.error = QStringLiteral("ファイルが空です。");
        return report;
    }
    QStringList missing;
    const QList<int> positions = mapHeader(tableSpec, parsed.records.first(), &missing);
    if (!missing.isEmpty()) {
        report.error = QStringLiteral("1行目の見出しに、列%1がありません。").arg(missing.join(QStringLiteral("、")));
        return report;
    }
    if (parsed.records.size() == 1) {
        report.error = QStringLiteral("データの行がありません。");
        return report;
    }
    const qsizetype headerSize = parsed.records.first().size();

    QList<QStringList> rows;
    QList<Problem> problems;
    for (int r = 1; r < parsed.records.size(); ++r) {
        const QStringList &record = parsed.records.at(r);
        const int rowIndex = int(rows.size());
        if (record.size() < headerSize || !extraFieldsEmpty(record, headerSize)) {
            problems << Problem{rowIndex, -1,
                                QStringLiteral("列の数（%1）が見出し（%2）と違います。").arg(record.size()).arg(headerSize)};
        }
        QStringList values;
        for (int c = 0; c < tableSpec.columns.size(); ++c) {
            const CellCheck check = checkCell(tableSpec.columns.at(c), record.value(positions.at(c)));
            if (!check.ok())
                problems << Problem{rowIndex, c, check.reason};
            values << check.value;
        }
        rows << values;
    }
    problems << duplicateKeys(tableSpec, rows, parsed.lines.mid(1));
    // References are looked up for the rows without another problem, so that one report
    // names every refused row.
    QSet<int> refused;
    for (const Problem &p : std::as_const(problems))
        refused.insert(p.row);
    QList<int> checkable;
    for (int i = 0; i < rows.size(); ++i)
        if (!refused.contains(i))
            checkable << i;
    problems << missingReferences(store, rows, checkable);
    std::stable_sort(problems.begin(), problems.end(), [](const Problem &a, const Problem &b) { return a.row < b.row; });
    if (!problems.isEmpty()) {
        for (const Problem &p : problems) {
            Problem atLine = p;
            atLine.row = parsed.lines.at(p.row + 1) - 1;
            report.refusedRows << describe(atLine, tableSpec);
        }
        return report;
    }
    if (const QStringList whole = wholeTableProblems(store, rows); !whole.isEmpty()) {
        report.error = whole.join(QLatin1Char('\n'));
        return report;
    }
    if (report.error = store.replaceAll(rows); !report.error.isEmpty())
        return report;
    report.applied = true;
    report.rowCount = int(rows.size());
    return report;
}

QByteArray exportCsv(const TableStore &store, QString *error)
{
    const QList<StoredRow> rows = store.load(error);
    if (!error->isEmpty())
        return {};
    QList<QStringList> records;
    QStringList header;
    for (const ColumnSpec &column : store.tableSpec().columns)
        header << column.caption;
    records << header;
    for (const StoredRow &row : rows)
        records << row.values;
    return writeCsv(records);
}

} // namespace est::mastertable
