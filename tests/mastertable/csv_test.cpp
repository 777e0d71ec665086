#include "mastertable/csv_transfer.h"
#include "scratch_database.h"

#include <gtest/gtest.h>

using namespace est;
using namespace est::mastertable;

namespace {

QByteArray bom(const char *text) { return QByteArray("\xEF\xBB\xBF") + text; }

// "トーン,2枚\r\nﾊﾟｰﾙ,1.5\r\n塗装①,2\r\n" as Windows saves it (CP932; ① exists only there).
const QByteArray kCp932Sample = QByteArray::fromHex("8367815b83932c329687" "0d0a" "cadfb0d92c312e35" "0d0a"
                                                    "936891958740" "2c32" "0d0a");

} // namespace

struct ParseCase
{
    const char *text;
    QList<QStringList> records;
    QList<int> lines;
};

class ParseCsvTest : public ::testing::TestWithParam<ParseCase> {};

TEST_P(ParseCsvTest, SplitsRecordsAndFields)
{
    const CsvRecords parsed = parseCsv(QString::fromUtf8(GetParam().text));
    EXPECT_EQ(parsed.error, QString());
    EXPECT_EQ(parsed.records, GetParam().records);
    EXPECT_EQ(parsed.lines, GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ParseCsvTest,
    ::testing::Values(
        ParseCase{"a,b\r\nc,d\r\n", {{"a", "b"}, {"c", "d"}}, {1, 2}},
        ParseCase{"a,b\nc,d", {{"a", "b"}, {"c", "d"}}, {1, 2}},
        ParseCase{"a,b\rc,d\r", {{"a", "b"}, {"c", "d"}}, {1, 2}},
        ParseCase{"\"x,y\",\"say \"\"hi\"\"\"\n", {{"x,y", "say \"hi\""}}, {1}},
        ParseCase{"\"two\r\nlines\",z\r\nnext,1\r\n", {{"two\r\nlines", "z"}, {"next", "1"}}, {1, 3}},
        ParseCase{"a,\n\n,b\n", {{"a", ""}, {"", "b"}}, {1, 3}},
        ParseCase{"\"\"\n", {{""}}, {1}},
        ParseCase{"O'Brien,5\n", {{"O'Brien", "5"}}, {1}},
        ParseCase{"", {}, {}}));

struct BadCsvCase
{
    QString text;
    const char *error;
};

class BadCsvTest : public ::testing::TestWithParam<BadCsvCase> {};

TEST_P(BadCsvTest, RefusedWithLineAndReason)
{
    const CsvRecords parsed = parseCsv(GetParam().text);
    EXPECT_EQ(parsed.error, QString::fromUtf8(GetParam().error));
    EXPECT_TRUE(parsed.records.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, BadCsvTest,
    ::testing::Values(BadCsvCase{QStringLiteral("a,b\n\"open,c\n"), "2行目：引用符（\"）が閉じていません。"},
                      BadCsvCase{QStringLiteral("a\n\"x\"y,b\n"), "2行目：引用符（\"）で閉じた項目の後に文字があります。"},
                      BadCsvCase{QString(600, QLatin1Char(',')), "1行目：列が多すぎます（512列まで）。"},
                      BadCsvCase{QString(5000, QLatin1Char('a')), "1行目：項目が長すぎます（4096文字まで）。"}));

TEST(DecodeCsv, DetectsUtf8AndCp932)
{
    DecodedCsv d = decodeCsv(bom("トーン,1\r\n"), CsvEncoding::Auto);
    EXPECT_EQ(d.text, QStringLiteral("トーン,1\r\n"));
    EXPECT_EQ(d.encoding, CsvEncoding::Utf8);
    d = decodeCsv(kCp932Sample, CsvEncoding::Auto);
    EXPECT_EQ(d.error, QString());
    EXPECT_EQ(d.encoding, CsvEncoding::ShiftJis);
    EXPECT_EQ(d.text, QStringLiteral("トーン,2枚\r\nﾊﾟｰﾙ,1.5\r\n塗装①,2\r\n"));
    EXPECT_EQ(decodeCsv(kCp932Sample, CsvEncoding::ShiftJis).text, d.text);
}

struct EncodingCase
{
    QByteArray bytes;
    CsvEncoding chosen;
    const char *error;
};

class WrongEncodingTest : public ::testing::TestWithParam<EncodingCase> {};

TEST_P(WrongEncodingTest, RefusedWithAClearMessage)
{
    const DecodedCsv d = decodeCsv(GetParam().bytes, GetParam().chosen);
    EXPECT_TRUE(d.error.contains(QString::fromUtf8(GetParam().error))) << d.error.toStdString();
    EXPECT_TRUE(d.text.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, WrongEncodingTest,
    ::testing::Values(EncodingCase{kCp932Sample, CsvEncoding::Utf8, "UTF-8 として読めません"},
                      EncodingCase{bom("トーン"), CsvEncoding::ShiftJis, "UTF-8 で保存されています"},
                      EncodingCase{QByteArray::fromHex("82ff2c31"), CsvEncoding::Auto, "文字コードを判別できません"},
                      EncodingCase{QByteArray::fromHex("82ff2c31"), CsvEncoding::ShiftJis, "Shift_JIS として読めません"},
                      EncodingCase{QByteArray::fromHex("fffe41004200"), CsvEncoding::Auto, "UTF-16"},
                      EncodingCase{QByteArray("a,b\0c", 5), CsvEncoding::Auto, "CSVファイルではありません"}));

TEST(WriteCsv, BomQuotingAndRoundTrip)
{
    const QList<QStringList> records{{"区分", "部品名"}, {"A", "ミラー, 左"}, {"B", "say \"hi\""}, {"C", " 空白"}, {"D", "2\n行"}};
    const QByteArray bytes = writeCsv(records);
    EXPECT_TRUE(bytes.startsWith("\xEF\xBB\xBF"));
    EXPECT_TRUE(bytes.contains("A,\"ミラー, 左\"\r\nB,\"say \"\"hi\"\"\"\r\nC,\" 空白\"\r\n"));
    EXPECT_EQ(parseCsv(decodeCsv(bytes, CsvEncoding::Auto).text).records, records);
}

namespace {

struct ImportTest : ::testing::Test
{
    test::ScratchDatabase scratch;
    TableStore tones{scratch.database(), test::ScratchDatabase::toneSpec()};
    TableStore parts{scratch.database(), test::ScratchDatabase::partSpec()};
};

} // namespace

TEST_F(ImportTest, GoodFileReplacesTheTableInFileOrder)
{
    const ImportReport report = importCsv(
        tones, bom("トーン,車種,1枚,2枚,備考\r\nﾂｰﾄｰﾝ,軽自,1.2,2,\r\nｽﾄﾗｲﾌﾟ,小型,,0.5,O'Brien\r\n"), CsvEncoding::Auto);
    EXPECT_TRUE(report.applied) << report.summary().toStdString();
    EXPECT_EQ(report.summary(), QStringLiteral("2行を読み込みました。"));
    EXPECT_EQ(scratch.dump(QStringLiteral("2ToneDB")), (QStringList{"軽自|ﾂｰﾄｰﾝ||1.2|2", "小型|ｽﾄﾗｲﾌﾟ|O'Brien||0.5"}));
}

TEST_F(ImportTest, ShiftJisFileWithFieldNamesAsHeader)
{
    const QByteArray header = "KCode,Buhin,Kazu\r\n";
    QByteArray bytes = header + QByteArray::fromHex("412c936891958740" "2c33" "0d0a");  // A,塗装①,3
    const ImportReport report = importCsv(parts, bytes, CsvEncoding::ShiftJis);
    ASSERT_TRUE(report.applied) << report.summary().toStdString();
    EXPECT_EQ(scratch.dump(QStringLiteral("PaintDB")), QStringList{QStringLiteral("A|塗装①|3")});
}

TEST_F(ImportTest, ExportThenImportLeavesTheTableAsItWas)
{
    const QStringList before = scratch.dump(QStringLiteral("2ToneDB"));
    QString error;
    const QByteArray bytes = exportCsv(tones, &error);
    ASSERT_EQ(error, QString());
    EXPECT_TRUE(bytes.startsWith(bom("車種,トーン,備考,1枚,2枚\r\n小型,ﾂｰﾄｰﾝ,,1.50,2.25\r\n")));
    EXPECT_TRUE(importCsv(tones, bytes, CsvEncoding::Auto).applied);
    EXPECT_EQ(scratch.dump(QStringLiteral("2ToneDB")), before);
}

struct RefusedFileCase
{
    const char *content;
    QStringList expected;  // refused rows, or the file's error as the only line
};

class RefusedImportTest : public ImportTest, public ::testing::WithParamInterface<RefusedFileCase> {};

TEST_P(RefusedImportTest, NothingChangesAndTheReportSaysWhy)
{
    const QStringList before = scratch.dump(QStringLiteral("2ToneDB"));
    const ImportReport report = importCsv(tones, bom(GetParam().content), CsvEncoding::Auto);
    EXPECT_FALSE(report.applied);
    const QStringList got = report.error.isEmpty() ? report.refusedRows : QStringList{report.error};
    EXPECT_EQ(got, GetParam().expected);
    EXPECT_TRUE(report.summary().contains(QStringLiteral("表は変更していません")));
    EXPECT_EQ(scratch.dump(QStringLiteral("2ToneDB")), before);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RefusedImportTest,
    ::testing::Values(
        RefusedFileCase{"車種,トーン,1枚\r\n小型,ﾂｰﾄｰﾝ,1\r\n", {"1行目の見出しに、列「備考」、「2枚」がありません。"}},
        RefusedFileCase{"", {"ファイルが空です。"}},
        RefusedFileCase{"車種,トーン,備考,1枚,2枚\r\n", {"データの行がありません。"}},
        RefusedFileCase{"車種,トーン,備考,1枚,2枚\r\n小型,\"ﾂｰﾄｰﾝ,1,1\r\n", {"2行目：引用符（\"）が閉じていません。"}},
        RefusedFileCase{"車種,トーン,備考,1枚,2枚\r\n"
                        "小型,ﾂｰﾄｰﾝ,,いち,1\r\n"
                        "普通,ﾂｰﾄｰﾝ,,1,-2\r\n"
                        "\r\n"
                        "小型,ﾂｰﾄｰﾝ,O'Brien,1,1\r\n"
                        "軽自,ﾂｰﾄｰﾝ,,1\r\n",
                        {"2行目「1枚」：0以上の数値を小数2桁までで入力してください。",
                         "3行目「2枚」：0以上の数値を小数2桁までで入力してください。",
                         "5行目「車種」：「車種・トーン」の組み合わせが2行目と同じです。",
                         "6行目：列の数（4）が見出し（5）と違います。"}}));

// One report names every refused row: a missing reference too, next to a bad number.
TEST_F(ImportTest, AMissingReferenceIsReportedWithTheOtherRefusals)
{
    const ImportReport report = importCsv(parts, bom("区分,部品名,数\nA,ドア,x\nQ,ルーフ,1\nZ,x,-1\n"), CsvEncoding::Auto);
    EXPECT_FALSE(report.applied);
    EXPECT_EQ(report.refusedRows,
              (QStringList{QStringLiteral("2行目「数」：0以上の整数を入力してください。"),
                           QStringLiteral("3行目「区分」：「Q」は TKubunDB にありません。先にそちらへ登録してください。"),
                           QStringLiteral("4行目「数」：0以上の整数を入力してください。")}));
    EXPECT_EQ(scratch.dump(QStringLiteral("PaintDB")).size(), 2);
}

TEST_F(ImportTest, ReferencesAreCheckedForEveryRow)
{
    const ImportReport report = importCsv(parts, bom("区分,部品名,数\nA,ドア,1\nQ,ルーフ,1\n"), CsvEncoding::Auto);
    EXPECT_FALSE(report.applied);
    EXPECT_EQ(report.refusedRows,
              QStringList{QStringLiteral("3行目「区分」：「Q」は TKubunDB にありません。先にそちらへ登録してください。")});
    EXPECT_EQ(scratch.dump(QStringLiteral("PaintDB")).size(), 2);
}
