// Part prices from CSV: the reader (encodings, quoting, bad rows by line number) and the
// catalogue update (preview counts, one transaction, nothing applied from a bad file).

#include "db/database.h"
#include "db/dialect.h"
#include "reports/text_codec.h"
#include "reports/price_import.h"
#include "temp_app_folder.h"

#include <QSqlQuery>
#include <gtest/gtest.h>

using namespace est;
using namespace est::reports;

namespace {

struct PriceCase
{
    const char16_t *text;
    std::optional<Yen> price;
};

class PriceTexts : public ::testing::TestWithParam<PriceCase> {};

TEST_P(PriceTexts, ReadAsWholeYen)
{
    EXPECT_EQ(parsePrice(QString::fromUtf16(GetParam().text)), GetParam().price);
}

INSTANTIATE_TEST_SUITE_P(Texts, PriceTexts,
                         ::testing::Values(PriceCase{u"12,345", 12345}, PriceCase{u"¥12,345", 12345},
                                           PriceCase{u"１２３４５円", 12345}, PriceCase{u" 0 ", 0},
                                           PriceCase{u"2147483647", 2147483647}, PriceCase{u"2147483648", std::nullopt},
                                           PriceCase{u"-5", std::nullopt}, PriceCase{u"12.5", std::nullopt},
                                           PriceCase{u"abc", std::nullopt}, PriceCase{u"", std::nullopt}));

TEST(PriceCsv, Utf8WithBomAndHeaderNamingTheColumns)
{
    const PriceCsv csv =
        readPriceCsv("\xEF\xBB\xBF" + QStringLiteral("部品名,品番,価格\nバンパー,５２１１９－Ａ,\"12,000\"\nグリル,53111-b,8800\n").toUtf8());
    ASSERT_TRUE(csv.usable()) << csv.fatal.toStdString();
    EXPECT_EQ(csv.encoding, mastertable::CsvEncoding::Utf8);
    ASSERT_EQ(csv.entries.size(), 2);
    EXPECT_EQ(csv.entries[0].partNumber, QStringLiteral("52119-A"));
    EXPECT_EQ(csv.entries[0].price, 12000);
    EXPECT_EQ(csv.entries[0].line, 2);
    EXPECT_EQ(csv.entries[1].partNumber, QStringLiteral("53111-B"));
}

TEST(PriceCsv, ShiftJisIsDetected)
{
    int unmappable = -1;
    const QByteArray bytes = encodeShiftJis(QStringLiteral("52119-A,12000,ﾊﾞﾝﾊﾟｰ用\r\n53111-B,8800,グリル\r\n"), &unmappable);
    EXPECT_EQ(unmappable, 0);
    const PriceCsv csv = readPriceCsv(bytes);
    ASSERT_TRUE(csv.usable());
    EXPECT_EQ(csv.encoding, mastertable::CsvEncoding::ShiftJis);
    EXPECT_EQ(csv.entries.size(), 2);
    const mastertable::DecodedCsv decoded = mastertable::decodeCsv(bytes, mastertable::CsvEncoding::Auto);
    EXPECT_TRUE(decoded.text.contains(QStringLiteral("ﾊﾞﾝﾊﾟｰ用")));
    // A header in Shift_JIS names the columns just as well.
    const PriceCsv sjis = readPriceCsv(encodeShiftJis(QStringLiteral("価格,品番\r\n500,X-1\r\n")));
    ASSERT_TRUE(sjis.usable());
    EXPECT_EQ(sjis.encoding, mastertable::CsvEncoding::ShiftJis);
    EXPECT_EQ(sjis.entries.first().partNumber, QStringLiteral("X-1"));
    EXPECT_EQ(sjis.entries.first().price, 500);
}

TEST(PriceCsv, MisEncodedFilesAreRefusedAsAWhole)
{
    // UTF-16 with its byte-order mark, and Shift_JIS cut inside a two-byte character.
    const QByteArray utf16 = QByteArray("\xFF\xFE", 2) +
                             QByteArray(reinterpret_cast<const char *>(u"52119,100"), 18);
    const QByteArray cut = encodeShiftJis(QStringLiteral("A,1\nバンパー")).chopped(1);
    for (const QByteArray &bytes : {utf16, cut, QByteArray("\x81\x20,100\n", 6)}) {
        const PriceCsv csv = readPriceCsv(bytes);
        EXPECT_FALSE(csv.fatal.isEmpty());
        EXPECT_TRUE(csv.entries.isEmpty());
    }
    EXPECT_FALSE(readPriceCsv(QByteArray()).fatal.isEmpty());
}

TEST(PriceCsv, BadRowsAreReportedByLineNumber)
{
    const PriceCsv csv = readPriceCsv(QStringLiteral("品番,価格\n"
                                                     "A-1,1000\n"
                                                     ",500\n"
                                                     "\"B\n2\",abc\n"
                                                     "C-3\n"
                                                     "A-1,2000\n"
                                                     "A-1,1000\n"
                                                     "D-4,-1\n")
                                          .toUtf8());
    EXPECT_TRUE(csv.fatal.isEmpty());
    EXPECT_FALSE(csv.usable());
    QList<int> lines;
    for (const PriceProblem &p : csv.problems)
        lines << p.line;
    EXPECT_EQ(lines, (QList<int>{3, 4, 6, 7, 9}));
    EXPECT_TRUE(csv.problems[1].message.contains(QStringLiteral("abc")));
    EXPECT_TRUE(csv.problems[3].message.contains(QStringLiteral("2 行目")));
}

class Catalogue : public ::testing::Test
{
protected:
    void SetUp() override
    {
        // The sample catalogue, then the price columns and a few part numbers.
        auto opened = db::openDatabase(folder.path(), QStringLiteral("Data\\Toyota.mdb"));
        ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
        database = opened.database;
        QString error;
        ASSERT_TRUE(PriceCatalogue::open(folder.path(), QStringLiteral("Toyota"), tables, &error)) << error.toStdString();
        exec("UPDATE \"T_Sedan\" SET \"部品番号\" = '52119-A', \"部品価格\" = 10000 WHERE rowid = 1");
        exec("UPDATE \"T_Minivan\" SET \"部品番号\" = '52119-a', \"部品価格\" = 11000 WHERE rowid = 1");
        exec("UPDATE \"T_Sedan\" SET \"部品番号\" = '53111-B', \"部品価格\" = 8800 WHERE rowid = 2");
        exec("UPDATE \"T_Kei\" SET \"部品番号\" = '81110-C' WHERE rowid = 3");
    }
    void exec(const char *sql)
    {
        QSqlQuery q(database);
        ASSERT_TRUE(q.exec(QString::fromUtf8(sql))) << sql;
    }
    qint64 price(const char *table, int rowid)
    {
        QSqlQuery q(database);
        q.exec(QStringLiteral("SELECT \"部品価格\" FROM \"%1\" WHERE rowid = %2").arg(QLatin1String(table)).arg(rowid));
        return q.next() ? q.value(0).toLongLong() : -1;
    }

    test::TempAppFolder folder;
    QSqlDatabase database;
    const QStringList tables{QStringLiteral("T_Sedan"), QStringLiteral("T_Minivan"), QStringLiteral("T_Kei")};
};

TEST_F(Catalogue, PreviewCountsThenApplyWritesEveryMatchingPart)
{
    PriceImport import(folder.path(), tables);
    ASSERT_TRUE(import.load(QStringLiteral("Toyota"),
                            QStringLiteral("52119-A,12000\n53111-B,8800\n81110-C,4500\n99999-Z,100\n").toUtf8()));
    const PricePreview &p = import.preview();
    EXPECT_EQ(p.changed, 2);
    EXPECT_EQ(p.partsChanged, 3);   // 52119-A is in two tables
    EXPECT_EQ(p.unchanged, 1);
    EXPECT_EQ(p.unmatched, 1);
    EXPECT_EQ(p.unmatchedExamples, QStringList{QStringLiteral("99999-Z")});
    EXPECT_TRUE(import.report().contains(QStringLiteral("価格が変わる品番: 2 件（部品 3 点）")));
    ASSERT_TRUE(import.canApply());
    ASSERT_EQ(import.apply(), QString());
    EXPECT_EQ(price("T_Sedan", 1), 12000);
    EXPECT_EQ(price("T_Minivan", 1), 12000);
    EXPECT_EQ(price("T_Sedan", 2), 8800);
    EXPECT_EQ(price("T_Kei", 3), 4500);
    EXPECT_EQ(import.preview().changed, 0);
    EXPECT_FALSE(import.canApply());
}

TEST_F(Catalogue, AFileWithBadRowsChangesNothing)
{
    PriceImport import(folder.path(), tables);
    EXPECT_FALSE(import.load(QStringLiteral("Toyota"), QStringLiteral("52119-A,12000\n53111-B,8千\n").toUtf8()));
    EXPECT_FALSE(import.canApply());
    EXPECT_NE(import.apply(), QString());
    EXPECT_TRUE(import.report().contains(QStringLiteral("2 行目")));
    EXPECT_EQ(price("T_Sedan", 1), 10000);
}

TEST_F(Catalogue, AFailureHalfWayRollsEveryPriceBack)
{
    // The third price is refused by the database: a trigger in the file, a check on the server.
    if (db::isServer(database))
        exec("ALTER TABLE \"T_Kei\" ADD CONSTRAINT refuse CHECK (\"部品価格\" IS NULL OR \"部品価格\" <> 4500)");
    else
        exec("CREATE TRIGGER refuse BEFORE UPDATE OF 部品価格 ON T_Kei BEGIN SELECT RAISE(ABORT, 'refused'); END");
    PriceImport import(folder.path(), tables);
    ASSERT_TRUE(import.load(QStringLiteral("Toyota"), QStringLiteral("52119-A,12000\n81110-C,4500\n").toUtf8()));
    EXPECT_NE(import.apply(), QString());
    EXPECT_EQ(price("T_Sedan", 1), 10000);
    EXPECT_EQ(price("T_Minivan", 1), 11000);
}

TEST_F(Catalogue, AMakerFileNameWithFoldersIsRefused)
{
    QString error;
    EXPECT_FALSE(PriceCatalogue::open(folder.path(), QStringLiteral("../Toyota"), tables, &error));
    EXPECT_FALSE(error.isEmpty());
}

} // namespace
