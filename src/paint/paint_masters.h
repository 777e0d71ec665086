#pragma once
// The paint master tables of temp\PartDB: categories and panels, the basic index, the
// high-function additions, material coefficients, the low-hiding and two-coat solid
// surcharges and the inner-panel menu. A missing table or row gives an empty answer, never
// an error that stops a screen. Index values come back as texts shown "0.00", so that the
// arithmetic after them stays exact.

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <optional>

namespace est::paint {

struct PaintCategory
{
    QString code;  // KCode
    QString name;  // shown beside the code
};

struct PaintPart
{
    QString name;      // panel name
    QString location;  // "ルーフ" or "ルーフ以外"
};

// The high-function additions for one paint kind.
struct HighFunctionValues
{
    QString baseIndex;   // KisoSisu
    QString fluorine;    // FusoSisu
    QString other;       // TaisuriSisu
};

// One item of the inner-panel menu.
struct InnerPanelItem
{
    QVariant key;        // position 0, identifies the record when it is edited
    QString part;        // position 1
    QString content;     // position 2
    QString index;       // position 3, small and ordinary cars
    QString lightIndex;  // position 4, light cars
    QString memo;        // position 5
};

inline constexpr int kInnerPanelItems = 7;

class PaintMasters
{
public:
    explicit PaintMasters(QSqlDatabase database) : m_db(std::move(database)) {}

    // Opens (creating when missing) temp\PartDB below the application folder; null and a
    // sentence in `error` when that fails.
    static std::unique_ptr<PaintMasters> open(const QString &appFolder, QString *error);

    QList<PaintCategory> categories() const;
    QList<PaintPart> parts(const QString &categoryCode) const;
    // The paint materials of the basic-index table, in table order without repeats.
    QStringList materials() const;

    // Basic index for `panels` panels painted together; empty when no row or field matches.
    std::optional<QString> baseIndex(const QString &vehicleClass, const QString &colourCode,
                                     const QString &material, int panels) const;
    std::optional<HighFunctionValues> highFunction(const QString &paintKind) const;
    std::optional<QString> materialCoefficient(const QString &paintKind) const;
    // Low-hiding index by kind alone (paint screen) or by location and kind (low-hiding dialog).
    std::optional<QString> lowHidingIndex(const QString &kind) const;
    std::optional<QString> lowHidingIndex(const QString &location, const QString &kind) const;
    std::optional<QString> twoCoatSolidIndex(const QString &part) const;

    // The inner-panel menu in table order (at most seven items).
    QList<InnerPanelItem> innerPanelItems() const;
    // Writes one item back (by its key); false and lastError() when that fails.
    bool saveInnerPanelItem(const InnerPanelItem &item);
    QString lastError() const { return m_error; }

private:
    std::optional<QString> indexAt(const QString &sql, const QVariantList &values, int position) const;

    QSqlDatabase m_db;
    QString m_error;
};

// A stored index value as a text shown "0.00"; empty for NULL or a value that is no number.
std::optional<QString> indexText(const QVariant &value);

} // namespace est::paint
