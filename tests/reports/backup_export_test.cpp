// Backup and restore give back every file byte for byte, and a bad archive replaces nothing;
// the customer CSV reads back in both encodings.

#include "db/database.h"
#include "reports/backup_archive.h"
#include "reports/customer_export.h"
#include "temp_app_folder.h"

#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <random>
#include <zip.h>

using namespace est;
using namespace est::reports;

namespace {

QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(bytes);
}

QMap<QString, QByteArray> snapshot(const QString &root)
{
    QMap<QString, QByteArray> files;
    for (const QString &f : backupFiles(root))
        files.insert(f, readAll(QDir(root).filePath(f)));
    return files;
}

// Writes a zip with the given entries, as an attacker or a damaged disk might.
void writeZip(const QString &path, const QList<std::pair<QByteArray, QByteArray>> &entries)
{
    int error = 0;
    zip_t *z = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    ASSERT_NE(z, nullptr);
    for (const auto &[name, data] : entries) {
        zip_source_t *s = zip_source_buffer(z, data.constData(), zip_uint64_t(data.size()), 0);
        ASSERT_GE(zip_file_add(z, name.constData(), s, ZIP_FL_ENC_UTF_8), 0);
    }
    ASSERT_EQ(zip_close(z), 0);
}

class Backup : public ::testing::Test
{
protected:
    void SetUp() override
    {
        // Bytes that do not compress, so that the archive's data is where the test expects it.
        std::mt19937 rng(3);
        QByteArray binary;
        for (int i = 0; i < 70000; ++i)
            binary.append(char(rng() & 0xFF));
        writeFile(folder.file("temp/KokyakuDB.sqlite"), binary);
        writeFile(folder.file("temp/kdata.txt"), "見本自動車\r\n");
        writeFile(folder.file("Data/Toyota.sqlite"), binary.left(5000));
        writeFile(folder.file("Mitsumori/240105山田様.xlsx"), "PK workbook bytes");
        writeFile(folder.file("Mitsumori/2023/231201鈴木.xlsx"), QByteArray());
        writeFile(folder.file("temp/KokyakuDB.sqlite-journal"), "transient");
        writeFile(folder.file("temp/Library.sqlite"), "an index, built again");
        archive = out.filePath(backupFileName(QDate(2024, 1, 5)));
    }

    test::TempAppFolder folder;
    QTemporaryDir out;
    QString archive;
};

TEST_F(Backup, RestoreGivesBackEveryFileByteForByte)
{
    EXPECT_EQ(backupFileName(QDate(2024, 1, 5)), QStringLiteral("見積バックアップ_20240105.zip"));
    const QMap<QString, QByteArray> before = snapshot(folder.path());
    ASSERT_EQ(before.size(), 5);   // neither the journal nor the library's index
    const BackupResult written = writeBackup(folder.path(), archive);
    ASSERT_EQ(written.error, QString());
    EXPECT_EQ(written.files, 5);

    // Afterwards files change, go and come.
    writeFile(folder.file("temp/kdata.txt"), "changed");
    QFile::remove(folder.file("Mitsumori/240105山田様.xlsx"));
    writeFile(folder.file("Mitsumori/240110new.xlsx"), "newer estimate");

    BackupCheck checked;
    ASSERT_EQ(restoreBackup(folder.path(), archive, &checked), QString());
    EXPECT_EQ(checked.files.size(), 5);
    for (auto it = before.begin(); it != before.end(); ++it)
        EXPECT_EQ(readAll(folder.file(it.key())), it.value()) << it.key().toStdString();
    EXPECT_EQ(readAll(folder.file("Mitsumori/240110new.xlsx")), QByteArray("newer estimate"));
    EXPECT_FALSE(QDir(folder.file(".restore")).exists());
}

TEST_F(Backup, ADamagedOrForeignArchiveReplacesNothing)
{
    ASSERT_EQ(writeBackup(folder.path(), archive).error, QString());
    const QByteArray good = readAll(archive);
    writeFile(folder.file("temp/kdata.txt"), "current data");
    const QMap<QString, QByteArray> current = snapshot(folder.path());

    const QString bad = out.filePath(QStringLiteral("bad.zip"));
    // A flipped byte inside the stored data of the biggest entry: its checksum fails.
    QByteArray flipped = good;
    const qsizetype middle = flipped.indexOf("temp/KokyakuDB.sqlite") + 20000;
    flipped[middle] = char(flipped[middle] ^ 0x5A);
    const QList<QByteArray> cases{
        good.left(good.size() / 2),     // cut short
        flipped,
        QByteArray("not a zip at all"),
    };
    for (const QByteArray &bytes : cases) {
        writeFile(bad, bytes);
        EXPECT_NE(restoreBackup(folder.path(), bad), QString());
        EXPECT_EQ(snapshot(folder.path()), current);
    }
    // A zip without our list of files, and one whose names leave the application folder.
    writeZip(bad, {{"temp/kdata.txt", "x"}});
    EXPECT_NE(checkBackup(bad).error, QString());
    writeZip(bad, {{"BACKUP-INFO.txt", "EstimateApp backup 1\n1\t../evil.txt\n"}, {"../evil.txt", "x"}});
    EXPECT_NE(restoreBackup(folder.path(), bad), QString());
    writeZip(bad, {{"BACKUP-INFO.txt", "EstimateApp backup 1\n1\ttemp/a.txt\n"}, {"temp/a.txt", "x"}, {"temp/b.txt", "y"}});
    EXPECT_NE(restoreBackup(folder.path(), bad), QString());
    EXPECT_FALSE(QFileInfo::exists(folder.file("temp/a.txt")));
    EXPECT_FALSE(QFileInfo::exists(QDir(folder.path()).filePath("../evil.txt")));
    EXPECT_EQ(snapshot(folder.path()), current);
}

class CustomerCsv : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto opened = db::openDatabase(folder.path(), QStringLiteral("temp\\KokyakuDB.mdb"));
        ASSERT_TRUE(opened.ok());
        QSqlQuery q(opened.database);
        ASSERT_TRUE(q.exec(QStringLiteral("DELETE FROM Kokyaku_Syaryou")));
        ASSERT_TRUE(q.exec(QStringLiteral("DELETE FROM Kokyaku_Jyouhou")));
        q.prepare(QStringLiteral("INSERT INTO Kokyaku_Jyouhou (KNo, Namae, Jyusyo1, Memo) VALUES (?, ?, ?, ?)"));
        const QStringList customers[] = {{"2", "O'Neil, 商会", "東京都\"練馬\"区", "複数行\nのメモ😀"},
                                         {"10", "山田太郎", "", ""},
                                         {"3", "車のない客", "", ""}};
        for (const QStringList &c : customers) {
            for (const QString &v : c)
                q.addBindValue(v);
            ASSERT_TRUE(q.exec());
        }
        q.prepare(QStringLiteral("INSERT INTO Kokyaku_Syaryou (SNo, KNo, Syamei, Touroku) VALUES (?, ?, ?, ?)"));
        const QStringList vehicles[] = {{"1", "2", "プリウス", "練馬500あ1234"},
                                        {"2", "10", "フィット", "品川300さ5678"},
                                        {"3", "2", "ハイエース", ""},
                                        {"4", "99", "持ち主のない車", ""}};
        for (const QStringList &v : vehicles) {
            for (const QString &x : v)
                q.addBindValue(x);
            ASSERT_TRUE(q.exec());
        }
        target = out.filePath(customerExportFileName(QDate(2024, 1, 5)));
    }

    QList<QStringList> readBack(mastertable::CsvEncoding expected)
    {
        const mastertable::DecodedCsv decoded = mastertable::decodeCsv(readAll(target), mastertable::CsvEncoding::Auto);
        EXPECT_EQ(decoded.error, QString());
        EXPECT_EQ(decoded.encoding, expected);
        const mastertable::CsvRecords parsed = mastertable::parseCsv(decoded.text);
        EXPECT_EQ(parsed.error, QString());
        return parsed.records;
    }

    test::TempAppFolder folder;
    QTemporaryDir out;
    QString target;
};

TEST_F(CustomerCsv, Utf8WithBomReadsBackFieldForField)
{
    const CustomerExport result = exportCustomers(folder.path(), target, mastertable::CsvEncoding::Utf8);
    ASSERT_EQ(result.error, QString());
    EXPECT_EQ(result.lines, 5);
    EXPECT_TRUE(readAll(target).startsWith("\xEF\xBB\xBF"));
    const QList<QStringList> records = readBack(mastertable::CsvEncoding::Utf8);
    ASSERT_EQ(records.size(), 6);
    const QStringList headers = customerExportHeaders();
    EXPECT_EQ(records[0], headers);
    const int name = int(headers.indexOf(QStringLiteral("氏名")));
    const int car = int(headers.indexOf(QStringLiteral("車名")));
    QStringList order;
    for (qsizetype i = 1; i < records.size(); ++i)
        order << records[i].at(name) + QLatin1Char('/') + records[i].at(car);
    EXPECT_EQ(order, (QStringList{"O'Neil, 商会/プリウス", "O'Neil, 商会/ハイエース", "車のない客/", "山田太郎/フィット",
                                  "/持ち主のない車"}));
    EXPECT_EQ(records[1].at(int(headers.indexOf(QStringLiteral("メモ")))), QStringLiteral("複数行\nのメモ😀"));
    EXPECT_EQ(records[1].at(int(headers.indexOf(QStringLiteral("住所1")))), QStringLiteral("東京都\"練馬\"区"));
}

TEST_F(CustomerCsv, ShiftJisCountsWhatItCannotHold)
{
    const CustomerExport result = exportCustomers(folder.path(), target, mastertable::CsvEncoding::ShiftJis);
    ASSERT_EQ(result.error, QString());
    EXPECT_EQ(result.unmappable, 2);   // the emoji in two lines
    const QList<QStringList> records = readBack(mastertable::CsvEncoding::ShiftJis);
    ASSERT_EQ(records.size(), 6);
    EXPECT_EQ(records[4].at(1), QStringLiteral("山田太郎"));
    EXPECT_TRUE(records[1].contains(QStringLiteral("複数行\nのメモ?")));
}

TEST_F(CustomerCsv, AnUnwritableTargetIsReported)
{
    const CustomerExport result =
        exportCustomers(folder.path(), out.filePath(QStringLiteral("no/such/folder/x.csv")), mastertable::CsvEncoding::Utf8);
    EXPECT_FALSE(result.error.isEmpty());
}

} // namespace
