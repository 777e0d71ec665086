#include "simple/price_form.h"

#include "common/number_format.h"

#include <cmath>

namespace est::simple {

PriceForm::PriceForm(EasyEstimateStore *store, const SimpleEstimateState &state)
    : m_store(store), m_class{state.workKind, state.classA, state.classB, state.colour}
{
}

void PriceForm::open()
{
    if (m_class.workKind != 2)
        load(PanelMatch::AsText);
}

bool PriceForm::choosePanel(int num)
{
    m_panel = num;
    return load(PanelMatch::AsNumber);
}

bool PriceForm::load(PanelMatch match)
{
    if (!m_store)
        return false;
    const auto rows = m_store->unitPrices(m_class, m_panel, match);
    if (!rows)
        return false;
    m_rows = *rows;
    return true;
}

std::optional<UnitPriceRow> PriceForm::row(int index) const
{
    if (index < 0 || index >= m_rows.size())
        return std::nullopt;
    return m_rows.at(index);
}

namespace {

// Whole yen of at least 0; blank is 0.
std::optional<Yen> wholeYen(const QString &text)
{
    if (isBlank(text))
        return 0;
    const auto value = parseDisplayedNumber(text);
    if (!value || *value < 0 || std::floor(*value) != *value)
        return std::nullopt;
    return parseDisplayedYen(text);
}

} // namespace

std::optional<SimpleEntry> PriceForm::entry(const QString &part, const QString &content, const QString &labour,
                                            const QString &material, QString *error)
{
    const auto setError = [error](const QString &text) {
        if (error)
            *error = text;
    };
    if (part.trimmed().isEmpty() && content.trimmed().isEmpty()) {
        setError(QStringLiteral("単価の行を選択してください。"));
        return std::nullopt;
    }
    const auto labourYen = wholeYen(labour);
    const auto materialYen = wholeYen(material);
    if (!labourYen || !materialYen) {
        setError(QStringLiteral("工賃と材料／部品代は０以上の円単位の金額で入力してください。"));
        return std::nullopt;
    }
    return SimpleEntry{part.trimmed(), content.trimmed(), *labourYen, *materialYen};
}

} // namespace est::simple
