#pragma once
// The parts catalogue: the register of makers and vehicle types (CarSet) and one catalogue
// database per maker holding one table per vehicle type. Each table is a three-level tree,
// classification (BNum, 分類) > section (KNum, 区分) > part (Num, 部品名), with the names of
// the upper levels repeated on every row.

#include <QList>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <cstdint>
#include <memory>

namespace est::workitems {

struct Maker
{
    QString name;   // Name, as shown
    QString dbName; // DBName, the catalogue file's base name in Data
};

struct VehicleType
{
    QString type;      // Type, as shown
    QString tableName; // TName, the catalogue table
};

struct Classification
{
    std::int16_t bnum = 0;
    QString name; // 分類
};

struct Section
{
    std::int16_t bnum = 0;
    std::int16_t knum = 0;
    QString name; // 区分
};

struct CataloguePart
{
    std::int32_t num = 0;
    QString name; // 部品名
};

// One whole catalogue row, as the catalogue editor shows and writes it.
struct CatalogueRow
{
    qint64 rowId = 0; // the row's identity in its table (not shown)
    std::int32_t num = 0;
    std::int16_t bnum = 0;
    QString bunrui;
    std::int16_t knum = 0;
    QString kubun;
    QString partName;
};

// The register and catalogue connections that the screens share while the program runs.
class CatalogueConnections
{
public:
    explicit CatalogueConnections(QString appFolder);

    // Opens data\CarSet (made from the built-in sample when missing). Returns an error text.
    QString openCarSet();
    void closeCarSet();
    QList<Maker> makers() const;
    QList<VehicleType> vehicleTypes() const;

    // Opens Data\<dbName> as the current catalogue. Returns an error text; on error no
    // catalogue is open.
    QString openCatalogue(const QString &dbName);
    void closeCatalogue();
    bool catalogueOpen() const { return m_catalogue.isOpen(); }
    QSqlDatabase catalogue() const { return m_catalogue; }
    QString catalogueDbName() const { return m_catalogueDbName; }

private:
    QString m_appFolder;
    QSqlDatabase m_carSet;
    QString m_carSetPath;
    QSqlDatabase m_catalogue;
    QString m_cataloguePath;
    QString m_catalogueDbName;
};

// Whether a DBName may name a file in Data: a plain base name, no folders.
bool isPlainFileName(const QString &name);

// Creates a vehicle-type table in the binding column order, with its indexes.
QString createCatalogueTable(QSqlDatabase &database, const QString &table);

// Queries and changes on one vehicle-type table of an open catalogue. The table name is
// checked against the tables that exist before it enters any statement.
class CatalogueTable
{
public:
    // Empty, with `error` set, when the table does not exist or cannot be read.
    static std::unique_ptr<CatalogueTable> open(const QSqlDatabase &database, const QString &table,
                                                QString *error = nullptr);

    const QString &name() const { return m_table; }

    // Classifications in the order the grouping gives them.
    QList<Classification> classifications();
    // Sections of one classification, by KNum.
    QList<Section> sections(std::int16_t bnum);
    // Parts of one section, by Num (the work item editor's list).
    QList<CataloguePart> parts(std::int16_t bnum, std::int16_t knum);
    // Whole rows of one section, by Num (the catalogue editor's grid).
    QList<CatalogueRow> sectionRows(std::int16_t bnum, std::int16_t knum);

    // Number for a new part: highest Num of the section + 1; 1 for a section without parts.
    std::int32_t nextNumber(std::int16_t bnum, std::int16_t knum);

    // Each returns an error text, empty on success.
    QString addPart(const CatalogueRow &row);
    QString renamePart(qint64 rowId, const QString &partName);
    QString deletePart(qint64 rowId);

    // The distinct (first, second) pairs of two indexed columns, in index order, found by
    // seeking from one pair to the next instead of reading every row. `prefix` optionally
    // fixes a leading column of the index ("BNum" for the sections of one classification).
    class DistinctPairs
    {
    public:
        DistinctPairs(const QSqlDatabase &db);
        QString prepare(const QString &table, const QString &prefix, const QString &first, const QString &second);
        QList<std::pair<QVariant, QVariant>> run(const QVariant &prefixValue = QVariant());

    private:
        bool fetch(QSqlQuery &query, const QVariant &prefixValue, const QVariantList &values, QVariant *a,
                   QVariant *b);
        bool m_hasPrefix = false;
        QSqlQuery m_first, m_sameFirst, m_sameFirstAfterNull, m_nextFirst, m_nextFirstAfterNull;
    };

private:
    CatalogueTable(QSqlDatabase database, QString table);
    QString prepareAll();

    QSqlDatabase m_db;
    QString m_table;
    DistinctPairs m_classifications, m_sections;
    QSqlQuery m_parts, m_rows, m_last;
};

} // namespace est::workitems
