#pragma once
// Part prices in one maker's catalogue (Data/<DBName>.sqlite): every vehicle-type table gains
// the columns 部品番号 and 部品価格 when it lacks them. A price list is matched by part number
// over all of the maker's tables, previewed, and applied in one transaction.

#include "reports/price_csv.h"

#include <QHash>
#include <QSqlDatabase>
#include <QStringList>
#include <memory>

namespace est::reports {

inline const QString kPartNumberColumn = QStringLiteral("部品番号");
inline const QString kPartPriceColumn = QStringLiteral("部品価格");

struct PriceChange
{
    QString partNumber;
    QString partName;
    Yen oldPrice = 0;   // 0 when the part had no price
    Yen newPrice = 0;
};

struct PricePreview
{
    int changed = 0;      // price-list lines that change at least one part's price
    int unchanged = 0;    // lines whose parts already have that price
    int unmatched = 0;    // lines whose part number is in no table
    int partsChanged = 0; // catalogue rows that change (one number may be in several tables)
    QList<PriceChange> changedExamples;
    QStringList unmatchedExamples;
};

class PriceCatalogue
{
public:
    // Opens the maker's catalogue and adds the price columns where missing. Empty with
    // `error` set when the file or its tables cannot be opened.
    static std::unique_ptr<PriceCatalogue> open(const QString &appFolder, const QString &dbName,
                                                const QStringList &tables, QString *error);

    PricePreview preview(const QList<PriceEntry> &entries, int examples = 5) const;
    // Writes every price; all or nothing. Returns an error text, empty on success.
    QString apply(const QList<PriceEntry> &entries);

private:
    struct Part
    {
        QString table;
        qint64 rowId = 0;
        QString name;
        Yen price = 0;
    };
    PriceCatalogue(QSqlDatabase db, QStringList tables);
    QString load();

    QSqlDatabase m_db;
    QStringList m_tables;
    QHash<QString, QList<Part>> m_parts;   // by partNumberKey
};

} // namespace est::reports
