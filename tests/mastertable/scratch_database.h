#pragma once
// A SQLite file in a temporary folder with a master table, a category table it refers to, and
// an index table with a two-column key: enough to exercise every column rule.

#include "mastertable/column_spec.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QUuid>

#include <ostream>

// Readable texts in GoogleTest's failure messages.
inline void PrintTo(const QString &text, std::ostream *os) { *os << '"' << text.toStdString() << '"'; }

namespace est::test {

class ScratchDatabase
{
public:
    ScratchDatabase()
    {
        m_name = QStringLiteral("scratch-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
        m_db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name);
        m_db.setDatabaseName(m_dir.filePath(QStringLiteral("PartDB.sqlite")));
        m_db.open();
        run("CREATE TABLE TKubunDB (KCode TEXT, Namae TEXT)");
        run("INSERT INTO TKubunDB VALUES ('A', 'フロント'), ('B', 'リヤ')");
        run("CREATE TABLE PaintDB (KCode TEXT, Buhin TEXT, Kazu INTEGER)");
        run("INSERT INTO PaintDB VALUES ('A', 'ボンネット', 1), ('B', 'トランク', 2)");
        run("CREATE TABLE \"2ToneDB\" (Syaryo TEXT, Tone TEXT, Memo TEXT, Mai1 REAL, Mai2 REAL)");
        run("INSERT INTO \"2ToneDB\" VALUES ('小型', 'ﾂｰﾄｰﾝ', '', 1.5, 2.25), ('普通', 'ﾂｰﾄｰﾝ', '', 1.8, 2.6)");
    }
    ~ScratchDatabase()
    {
        m_db.close();
        m_db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_name);
    }

    QSqlDatabase database() const { return m_db; }
    bool run(const char *sql) { return QSqlQuery(m_db).exec(QString::fromUtf8(sql)); }
    // The whole table as "a|b|c" lines in rowid order, for comparing before and after.
    QStringList dump(const QString &table) const
    {
        QStringList rows;
        QSqlQuery q(m_db);
        q.exec(QStringLiteral("SELECT * FROM \"%1\" ORDER BY rowid").arg(table));
        while (q.next()) {
            QStringList values;
            for (int i = 0; i < q.record().count(); ++i)
                values << q.value(i).toString();
            rows << values.join(QLatin1Char('|'));
        }
        return rows;
    }

    static mastertable::TableSpec partSpec()
    {
        using mastertable::ColumnSpec;
        return {QStringLiteral("PaintDB"), QStringLiteral("部品名"),
                {ColumnSpec::text(QStringLiteral("KCode"), QStringLiteral("区分")).mustHave().references(
                     QStringLiteral("TKubunDB"), QStringLiteral("KCode")),
                 ColumnSpec::text(QStringLiteral("Buhin"), QStringLiteral("部品名")).mustHave().atMost(20),
                 ColumnSpec::whole(QStringLiteral("Kazu"), QStringLiteral("数"))},
                {1}};
    }
    static mastertable::TableSpec toneSpec()
    {
        using mastertable::ColumnSpec;
        return {QStringLiteral("2ToneDB"), QStringLiteral("2トーン"),
                {ColumnSpec::text(QStringLiteral("Syaryo"), QStringLiteral("車種")).oneOf(
                     {QStringLiteral("小型"), QStringLiteral("普通"), QStringLiteral("軽自")}),
                 ColumnSpec::text(QStringLiteral("Tone"), QStringLiteral("トーン")).mustHave(),
                 ColumnSpec::text(QStringLiteral("Memo"), QStringLiteral("備考")),
                 ColumnSpec::index(QStringLiteral("Mai1"), QStringLiteral("1枚")),
                 ColumnSpec::index(QStringLiteral("Mai2"), QStringLiteral("2枚"))},
                {0, 1}};
    }

private:
    QTemporaryDir m_dir;
    QString m_name;
    QSqlDatabase m_db;
};

} // namespace est::test
