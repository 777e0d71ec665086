#pragma once
// What the price-import dialog keeps: the chosen maker, the price list read from its file,
// the preview against the maker's catalogue, and the texts that describe them.

#include "reports/price_catalogue.h"
#include "reports/price_csv.h"

#include <memory>

namespace est::reports {

class PriceImport
{
public:
    // `tables` are the vehicle-type tables every maker's catalogue holds.
    PriceImport(QString appFolder, QStringList tables);

    // Reads the price list for the maker's catalogue (its DBName) and previews it.
    // False when it cannot be applied (see report()).
    bool load(const QString &dbName, const QByteArray &csv);
    // Whether apply() would change anything.
    bool canApply() const;
    const PricePreview &preview() const { return m_preview; }
    const PriceCsv &priceList() const { return m_csv; }
    // What the dialog shows: counts and examples, or why the file cannot be applied.
    QString report() const;
    // Writes the prices in one transaction. Returns an error text.
    QString apply();

private:
    QString m_appFolder;
    QStringList m_tables;
    PriceCsv m_csv;
    QString m_error;
    std::unique_ptr<PriceCatalogue> m_catalogue;
    PricePreview m_preview;
};

} // namespace est::reports
