#pragma once
// Data/EasyEstimate: the unit prices of the simple estimate and their classification tables.
// Lists for the classification dialogs, narrowed so that only combinations with a unit price
// are offered, and the unit-price rows of one classification and panel.

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <cstdint>
#include <memory>
#include <optional>

namespace est::simple {

// One entry of a classification list: its number and its name.
struct Choice
{
    std::int16_t no = 0;
    QString name;
};

// The four classification numbers that select unit prices.
struct Classification
{
    std::int16_t workKind = 0;
    std::int16_t classA = 0;
    std::int16_t classB = 0;
    std::int16_t colour = 0;
};

// One unit-price row as the price screen lists it.
struct UnitPriceRow
{
    qint64 no = 0;
    QString part;       // 作業部位
    QString content;    // 作業内容
    qint64 material = 0; // 材料/部品代
    qint64 labour = 0;  // 工賃
};

// How the panel number enters the unit-price query: compared as the text the screen holds
// when it opens, or as the number of a clicked panel. SQLite compares both with the integer
// column alike.
enum class PanelMatch { AsText, AsNumber };

class EasyEstimateStore
{
public:
    // The file's place below the application folder.
    static const QString kRelativePath;

    explicit EasyEstimateStore(QSqlDatabase database) : m_db(std::move(database)) {}

    // Opens (creating from the sample data when missing) the file below `appFolder` and checks
    // its tables; null with a sentence for the user in `error` when it cannot be used.
    static std::unique_ptr<EasyEstimateStore> open(const QString &appFolder, QString *error);

    QSqlDatabase database() const { return m_db; }
    QString lastError() const { return m_error; }

    // M_TSKubun in number order.
    std::optional<QList<Choice>> workKinds();
    // Vehicle classes A that have a unit price for the work kind.
    std::optional<QList<Choice>> classesA(int workKind);
    // Every vehicle class A (for showing names).
    std::optional<QList<Choice>> allClassesA();
    // Every vehicle class B and every colour class: the lists before class A is chosen.
    std::optional<QList<Choice>> allClassesB();
    std::optional<QList<Choice>> allColours();
    // Classes B with a unit price for the work kind and class A.
    std::optional<QList<Choice>> classesB(int workKind, int classA);
    // Colours with a unit price for the work kind, class A and class B.
    std::optional<QList<Choice>> colours(int workKind, int classA, int classB);

    // The unit prices of one classification and panel, in row-number order.
    std::optional<QList<UnitPriceRow>> unitPrices(const Classification &c, int panel, PanelMatch match);

private:
    std::optional<QList<Choice>> choices(const QString &sql, const QList<int> &values);

    QSqlDatabase m_db;
    QString m_error;
};

} // namespace est::simple
