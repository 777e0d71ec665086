// The command line: each use read into what the program will do, and the real program
// answering --help, --version and wrong arguments without ever creating a window.
#include "app/command_line.h"
#include "pg_server.h"
#include "temp_app_folder.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace est::app {
namespace {

QStringList split(const char *line)
{
    return QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

struct ParseCase
{
    const char *line;
    CommandKind kind;
    const char *refusal;  // part of the reason, for kind Refused
};

class ParseTest : public ::testing::TestWithParam<ParseCase> {};

TEST_P(ParseTest, ReadsWhatTheProgramIsAskedToDo)
{
    const CommandLine line = parseCommandLine(split(GetParam().line));
    EXPECT_EQ(line.kind, GetParam().kind) << GetParam().line;
    EXPECT_TRUE(line.refusal.contains(QString::fromUtf8(GetParam().refusal))) << line.refusal.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Cases, ParseTest, ::testing::Values(
    ParseCase{"estimate", CommandKind::Window, ""},
    ParseCase{"estimate -platform offscreen -style=fusion -reverse", CommandKind::Window, ""},
    ParseCase{"estimate --help", CommandKind::Help, ""},
    ParseCase{"estimate -h", CommandKind::Help, ""},
    ParseCase{"estimate --pdf --help", CommandKind::Help, ""},
    ParseCase{"estimate --version", CommandKind::Version, ""},
    ParseCase{"estimate --pdf a.xlsx b.pdf", CommandKind::Pdf, ""},
    ParseCase{"estimate --invoice-xml a.xlsx b.xml", CommandKind::InvoiceXml, ""},
    ParseCase{"estimate --frobnicate", CommandKind::Refused, "不明なオプションです: --frobnicate"},
    ParseCase{"estimate -x", CommandKind::Refused, "不明なオプションです: -x"},
    ParseCase{"estimate 240105TEST.xlsx", CommandKind::Refused, "不明な引数です: 240105TEST.xlsx"},
    ParseCase{"estimate -platform", CommandKind::Refused, "-platform の値がありません"},
    ParseCase{"estimate --replace", CommandKind::Refused, "不明なオプションです: --replace"},
    ParseCase{"estimate --pdf a.xlsx b.pdf --replace", CommandKind::Refused, "不明なオプションです: --replace"},
    ParseCase{"estimate --pdf a.xlsx", CommandKind::Refused, "2つのパス"},
    ParseCase{"estimate --pdf a.xlsx b.pdf --layout C", CommandKind::Refused, "--layout には A か B"},
    ParseCase{"estimate --pdf a.xlsx b.pdf --layout", CommandKind::Refused, "--layout には A か B"},
    ParseCase{"estimate --invoice-xml a.xlsx b.xml c.xml", CommandKind::Refused, "2つのパス"},
    ParseCase{"estimate --invoice-xml a.xlsx b.xml --copy", CommandKind::Refused, "不明なオプションです: --copy"},
    ParseCase{"estimate --pdf --invoice-xml a b", CommandKind::Refused, "一緒に使えません"},
    ParseCase{"estimate --compare old.xlsx new.xlsx diff.pdf", CommandKind::Compare, ""},
    ParseCase{"estimate --compare old.xlsx new.xlsx", CommandKind::Refused, "3つのパス"},
    ParseCase{"estimate --compare a b c --copy", CommandKind::Refused, "不明なオプションです: --copy"},
    ParseCase{"estimate --compare a b c --pdf", CommandKind::Refused, "一緒に使えません"},
    ParseCase{"estimate --to-server", CommandKind::ToServer, ""},
    ParseCase{"estimate --to-server extra", CommandKind::Refused, "引数はいりません"},
    ParseCase{"estimate --from-server /srv/shop", CommandKind::FromServer, ""},
    ParseCase{"estimate --from-server", CommandKind::Refused, "新しいフォルダを1つ"},
    ParseCase{"estimate --from-server a b", CommandKind::Refused, "新しいフォルダを1つ"},
    ParseCase{"estimate --to-server --from-server a", CommandKind::Refused, "一緒に使えません"}));

TEST(CommandLine, ReadsTheCompareRequest)
{
    const CommandLine line = parseCommandLine(split("estimate --compare old.xlsx new.xlsx diff.pdf"));
    ASSERT_EQ(line.kind, CommandKind::Compare);
    EXPECT_EQ(line.compare.before, QStringLiteral("old.xlsx"));
    EXPECT_EQ(line.compare.after, QStringLiteral("new.xlsx"));
    EXPECT_EQ(line.compare.output, QStringLiteral("diff.pdf"));
}

TEST(CommandLine, ReadsThePdfRequestInAnyOrder)
{
    const CommandLine line = parseCommandLine(split("estimate --layout b in.xlsx --pdf --sub out.pdf --copy"));
    ASSERT_EQ(line.kind, CommandKind::Pdf);
    EXPECT_EQ(line.pdf.workbook, QStringLiteral("in.xlsx"));
    EXPECT_EQ(line.pdf.output, QStringLiteral("out.pdf"));
    EXPECT_EQ(line.pdf.options.layout, print::Layout::B);
    EXPECT_TRUE(line.pdf.options.shopCopy);
    EXPECT_FALSE(line.pdf.options.paintSheet);
    EXPECT_TRUE(line.pdf.options.subSheet);
    EXPECT_EQ(line.pdf.options.photos, print::PhotoPages::None);
    EXPECT_EQ(parseCommandLine(split("estimate --pdf in.xlsx out.pdf --photos")).pdf.options.photos, print::PhotoPages::Four);
    EXPECT_EQ(parseCommandLine(split("estimate --photos-large --pdf in.xlsx out.pdf")).pdf.options.photos,
              print::PhotoPages::One);
}

TEST(CommandLine, ReadsTheInvoiceRequest)
{
    const CommandLine plain = parseCommandLine(split("estimate --invoice-xml in.xlsx out.xml"));
    EXPECT_EQ(plain.invoice.workbook, QStringLiteral("in.xlsx"));
    EXPECT_EQ(plain.invoice.output, QStringLiteral("out.xml"));
    EXPECT_FALSE(plain.invoice.replace);
    EXPECT_TRUE(parseCommandLine(split("estimate --replace --invoice-xml in.xlsx out.xml")).invoice.replace);
}

TEST(CommandLine, TheHelpNamesEveryUseAndTheDataFolder)
{
    const QString help = helpText(QStringLiteral("/home/shop/.local/share/EstimateApp"));
    for (const char *word : {"使い方", "--pdf", "--layout A|B", "--copy", "--paint", "--sub", "--photos", "--photos-large", "--invoice-xml",
                             "--replace", "--compare", "--to-server", "--from-server", "--help", "--version", "ESTIMATE_APP_HOME", "ESTIMATE_DB",
                             "/home/shop/.local/share/EstimateApp"})
        EXPECT_TRUE(help.contains(QString::fromUtf8(word))) << word;
    EXPECT_TRUE(help.startsWith(versionText()));
    EXPECT_EQ(versionText(), QStringLiteral("見積書作成 ") + QStringLiteral(ESTIMATE_VERSION));
}

struct ProgramCase
{
    const char *arguments;
    int status;
    bool helpOnStdout;
    const char *errorPart;  // on standard error
};

class ProgramTest : public ::testing::TestWithParam<ProgramCase> {};

// A platform that does not exist: had the program created its application object for a
// window, Qt would abort instead of the program answering.
TEST_P(ProgramTest, AnswersWithoutAWindow)
{
    test::TempAppFolder folder;
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("no-such-platform"));
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(ESTIMATE_PROGRAM), split(GetParam().arguments));
    ASSERT_TRUE(p.waitForFinished(30000));
    EXPECT_EQ(p.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(p.exitCode(), GetParam().status);
    const QString out = QString::fromUtf8(p.readAllStandardOutput());
    const QString err = QString::fromUtf8(p.readAllStandardError());
    EXPECT_EQ(out.contains(QStringLiteral("使い方")), GetParam().helpOnStdout) << out.toStdString();
    EXPECT_TRUE(err.contains(QString::fromUtf8(GetParam().errorPart))) << err.toStdString();
    if (GetParam().status == kUsageExitStatus) {
        EXPECT_TRUE(err.contains(QStringLiteral("使い方")));
    }
    if (QString::fromUtf8(GetParam().arguments) == QLatin1String("--version")) {
        EXPECT_EQ(out, versionText() + QLatin1Char('\n'));
    }
    if (GetParam().helpOnStdout) {
        EXPECT_TRUE(out.contains(folder.path()));
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, ProgramTest, ::testing::Values(
    ProgramCase{"--help", 0, true, ""},
    ProgramCase{"--version", 0, false, ""},
    ProgramCase{"--unknown", 1, false, "不明なオプションです: --unknown"},
    ProgramCase{"stray.xlsx", 1, false, "不明な引数です: stray.xlsx"},
    ProgramCase{"--pdf only-one.xlsx", 1, false, "2つのパス"}));

// Moving the sample folder onto the test run's server and back, as a shop would from a terminal.
TEST(MigrationCommand, CopiesComparesAndSaysSo)
{
    test::PgServer *server = test::PgServer::shared();
    ASSERT_NE(server, nullptr);
    test::TempAppFolder folder;
    folder.makeDatabases();
    QTemporaryDir target;
    const auto run = [&](const QStringList &arguments, const QString &connection, QString *out, QString *err) {
        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("ESTIMATE_APP_HOME"), folder.path());
        if (connection.isEmpty())
            env.remove(QStringLiteral("ESTIMATE_DB"));
        else
            env.insert(QStringLiteral("ESTIMATE_DB"), connection);
        p.setProcessEnvironment(env);
        p.start(QStringLiteral(ESTIMATE_PROGRAM), arguments);
        EXPECT_TRUE(p.waitForFinished(120000));
        *out = QString::fromUtf8(p.readAllStandardOutput());
        *err = QString::fromUtf8(p.readAllStandardError());
        return p.exitCode();
    };
    QString out, err;
    EXPECT_EQ(run({QStringLiteral("--to-server")}, QString(), &out, &err), 1);
    EXPECT_TRUE(err.contains(QStringLiteral("共有サーバーが設定されていません。"))) << err.toStdString();

    const QString connection = server->createDatabase();
    ASSERT_EQ(run({QStringLiteral("--to-server")}, connection, &out, &err), 0) << err.toStdString();
    EXPECT_TRUE(out.endsWith(QStringLiteral("共有サーバーに写しました。すべての表の件数と合計が一致しました。\n"))) << out.toStdString();
    EXPECT_TRUE(out.contains(QStringLiteral("KokyakuDB.Kokyaku_Jyouhou: "))) << out.toStdString();
    EXPECT_TRUE(err.startsWith(QStringLiteral("[1/"))) << err.toStdString();
    EXPECT_EQ(run({QStringLiteral("--to-server")}, connection, &out, &err), 2);
    EXPECT_TRUE(err.contains(QStringLiteral("何も変えていません"))) << err.toStdString();

    const QString home = target.filePath(QStringLiteral("shop"));
    ASSERT_EQ(run({QStringLiteral("--from-server"), home}, connection, &out, &err), 0) << err.toStdString();
    EXPECT_TRUE(QFileInfo::exists(home + QStringLiteral("/temp/KokyakuDB.sqlite")));
    EXPECT_EQ(run({QStringLiteral("--from-server"), home}, connection, &out, &err), 2);
}

} // namespace
} // namespace est::app
