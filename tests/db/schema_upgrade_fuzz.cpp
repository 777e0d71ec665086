// libFuzzer target for database files made by anyone (clang, -DESTIMATE_BUILD_FUZZ=ON; run by
// tools/fuzz): a file of the application folder, made from the input, is opened as the program
// opens it, which upgrades it. The first byte chooses which database the file claims to be;
// the rest is either the bytes of the file (starting "SQLite format 3") or the SQL text that
// made it (tables, views, triggers, a SchemaVersion of any content). Whatever the file holds,
// opening must end in a database at the current layout, a read-only one, or a message.
//   build-fuzz/fuzz/schema_upgrade_fuzz -max_total_time=60 fuzz/corpus/schema_upgrade_fuzz

#include "db/database.h"
#include "db/schema_upgrade.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace est::db;

namespace {

const QDir &folder()
{
    static int argc = 1;
    static char name[] = "schema_upgrade_fuzz";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    static QTemporaryDir dir;
    static const QDir d(dir.path());
    return d;
}

// SQL that would reach outside the one file is left out.
bool staysInTheFile(const QByteArray &sql)
{
    const QByteArray lower = sql.toLower();
    return !lower.contains("attach") && !lower.contains("vacuum") && !lower.contains("load_extension");
}

void makeFile(const QString &path, const QByteArray &body)
{
    if (body.startsWith(QByteArrayLiteral("SQLite format 3"))) {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(body);
        return;
    }
    const QString connection = QStringLiteral("fuzz-maker");
    {
        QSqlDatabase maker = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        maker.setDatabaseName(path);
        if (maker.open())
            runScript(maker, QString::fromUtf8(body));
        maker.close();
    }
    QSqlDatabase::removeDatabase(connection);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QStringList names{QStringLiteral("KokyakuDB"), QStringLiteral("PartDB"),
                                   QStringLiteral("Jisya_Jyouhou"), QStringLiteral("Hikazei")};
    if (size < 1 || size > 200000)
        return 0;
    const QByteArray body(reinterpret_cast<const char *>(data) + 1, qsizetype(size - 1));
    if (!staysInTheFile(body))
        return 0;
    const QDir &dir = folder();
    const QString base = names.at(data[0] % names.size());
    const QString path = dir.filePath(base + QStringLiteral(".sqlite"));
    for (const QString &file : dir.entryList(QDir::Files))
        QFile::remove(dir.filePath(file));
    makeFile(path, body);

    const OpenResult opened = openExistingDatabase(path);
    if (opened.ok() && !opened.readOnly && opened.notice.isEmpty()) {
        QSqlDatabase database = opened.database;
        if (recordedLayout(database) != currentLayout(schemaSteps(base)))
            abort();  // opened without a word, yet not at the current layout
    }
    closeDatabase(path);
    return 0;
}
