#include "reports/price_import.h"

#include "common/number_format.h"

namespace est::reports {

namespace {

constexpr int kShownProblems = 20;

QString yenText(Yen value)
{
    return value == 0 ? QStringLiteral("なし") : formatThousands(value) + QStringLiteral("円");
}

} // namespace

PriceImport::PriceImport(QString appFolder, QStringList tables)
    : m_appFolder(std::move(appFolder)), m_tables(std::move(tables))
{
}

bool PriceImport::load(const QString &dbName, const QByteArray &csv)
{
    m_catalogue.reset();
    m_preview = PricePreview();
    m_error.clear();
    m_csv = readPriceCsv(csv);
    if (!m_csv.usable())
        return false;
    m_catalogue = PriceCatalogue::open(m_appFolder, dbName, m_tables, &m_error);
    if (!m_catalogue)
        return false;
    m_preview = m_catalogue->preview(m_csv.entries);
    return true;
}

bool PriceImport::canApply() const
{
    return m_catalogue && m_csv.usable() && m_preview.changed > 0;
}

QString PriceImport::report() const
{
    if (!m_csv.fatal.isEmpty())
        return QStringLiteral("このファイルは取り込めません。\n") + m_csv.fatal;
    QStringList lines;
    const QString encoding =
        m_csv.encoding == mastertable::CsvEncoding::ShiftJis ? QStringLiteral("Shift_JIS") : QStringLiteral("UTF-8");
    if (!m_csv.problems.isEmpty()) {
        lines << QStringLiteral("このファイルは取り込めません（文字コード %1）。次の行を直してから、もう一度選んでください。")
                     .arg(encoding);
        for (qsizetype i = 0; i < m_csv.problems.size() && i < kShownProblems; ++i)
            lines << QStringLiteral("　%1 行目: %2").arg(m_csv.problems.at(i).line).arg(m_csv.problems.at(i).message);
        if (m_csv.problems.size() > kShownProblems)
            lines << QStringLiteral("　ほか %1 行").arg(m_csv.problems.size() - kShownProblems);
        return lines.join(QLatin1Char('\n'));
    }
    if (!m_error.isEmpty())
        return QStringLiteral("部品データを開けません。\n") + m_error;
    const PricePreview &p = m_preview;
    lines << QStringLiteral("文字コード %1、価格 %2 行を読みました。").arg(encoding).arg(m_csv.entries.size());
    lines << QStringLiteral("価格が変わる品番: %1 件（部品 %2 点）").arg(p.changed).arg(p.partsChanged);
    for (const PriceChange &c : p.changedExamples)
        lines << QStringLiteral("　%1 %2: %3 → %4").arg(c.partNumber, c.partName, yenText(c.oldPrice), yenText(c.newPrice));
    lines << QStringLiteral("価格が同じ品番: %1 件").arg(p.unchanged);
    lines << QStringLiteral("該当する部品がない品番: %1 件").arg(p.unmatched);
    if (!p.unmatchedExamples.isEmpty())
        lines << QStringLiteral("　例: ") + p.unmatchedExamples.join(QStringLiteral("、"));
    return lines.join(QLatin1Char('\n'));
}

QString PriceImport::apply()
{
    if (!canApply())
        return QStringLiteral("取り込む価格がありません。");
    const QString error = m_catalogue->apply(m_csv.entries);
    if (error.isEmpty())
        m_preview = m_catalogue->preview(m_csv.entries);
    return error;
}

} // namespace est::reports
