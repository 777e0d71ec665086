#include "app/command_line.h"

#include <QDir>

namespace est::app {

namespace {

// Options of QGuiApplication / QApplication that take a value, and those that do not.
const QStringList kQtValueOptions = {
    QStringLiteral("-platform"), QStringLiteral("-platformpluginpath"), QStringLiteral("-platformtheme"),
    QStringLiteral("-plugin"), QStringLiteral("-qwindowgeometry"), QStringLiteral("-geometry"),
    QStringLiteral("-qwindowicon"), QStringLiteral("-icon"), QStringLiteral("-qwindowtitle"),
    QStringLiteral("-title"), QStringLiteral("-style"), QStringLiteral("-stylesheet"),
    QStringLiteral("-display"), QStringLiteral("-session")};
const QStringList kQtFlagOptions = {QStringLiteral("-reverse"), QStringLiteral("-widgetcount"),
                                    QStringLiteral("-nograb"), QStringLiteral("-dograb"), QStringLiteral("-sync")};

CommandLine refused(const QString &why)
{
    CommandLine line;
    line.kind = CommandKind::Refused;
    line.refusal = why;
    return line;
}

QString unknownOption(const QString &argument)
{
    return QStringLiteral("不明なオプションです: ") + argument;
}

bool isOption(const QString &argument)
{
    return argument.size() > 1 && argument.startsWith(QLatin1Char('-'));
}

// The window takes no arguments of its own, only Qt's.
CommandLine parseWindow(const QStringList &args)
{
    for (qsizetype i = 1; i < args.size(); ++i) {
        const QString &a = args.at(i);
        const QString name = a.section(QLatin1Char('='), 0, 0);
        if (kQtFlagOptions.contains(a) || (name != a && kQtValueOptions.contains(name)))
            continue;
        if (kQtValueOptions.contains(a)) {
            if (i + 1 >= args.size())
                return refused(QStringLiteral("%1 の値がありません。").arg(a));
            ++i;
            continue;
        }
        if (isOption(a))
            return refused(unknownOption(a));
        return refused(QStringLiteral("不明な引数です: ") + a);
    }
    return {};
}

// The arguments of a command for scripts: the command's own name is skipped, `option` reads
// each option (false for one it does not know; it may take the next argument as a value
// through `i`), and the other arguments are the command's files (`count` of them). Empty on success, else
// the reason for refusing.
template <typename ReadOption>
QString readScriptArguments(const QStringList &args, const QString &command, const QString &wrongCount,
                            ReadOption option, QStringList *files, qsizetype count = 2)
{
    for (qsizetype i = 1; i < args.size(); ++i) {
        const QString &a = args.at(i);
        if (a == command)
            continue;
        if (!isOption(a)) {
            files->append(a);
            continue;
        }
        QString refusal;
        if (!option(a, i, &refusal))
            return refusal.isEmpty() ? unknownOption(a) : refusal;
    }
    return files->size() == count ? QString() : wrongCount;
}

CommandLine parsePdf(const QStringList &args)
{
    CommandLine line;
    line.kind = CommandKind::Pdf;
    print::PrintOptions &options = line.pdf.options;
    const auto option = [&args, &options](const QString &a, qsizetype &i, QString *refusal) {
        if (a == QLatin1String("--layout")) {
            if (i + 1 >= args.size() || !print::parseLayout(args.at(i + 1), &options.layout)) {
                *refusal = QStringLiteral("--layout には A か B を指定してください。");
                return false;
            }
            ++i;
        } else if (a == QLatin1String("--copy")) {
            options.shopCopy = true;
        } else if (a == QLatin1String("--paint")) {
            options.paintSheet = true;
        } else if (a == QLatin1String("--sub")) {
            options.subSheet = true;
        } else if (a == QLatin1String("--photos")) {
            options.photos = print::PhotoPages::Four;
        } else if (a == QLatin1String("--photos-large")) {
            options.photos = print::PhotoPages::One;
        } else {
            return false;
        }
        return true;
    };
    QStringList files;
    const QString refusal = readScriptArguments(args, QStringLiteral("--pdf"),
                                                QStringLiteral("ブックと出力するPDFの2つのパスを指定してください。"),
                                                option, &files);
    if (!refusal.isEmpty())
        return refused(refusal);
    line.pdf.workbook = files.at(0);
    line.pdf.output = files.at(1);
    return line;
}

CommandLine parseInvoiceXml(const QStringList &args)
{
    CommandLine line;
    line.kind = CommandKind::InvoiceXml;
    bool &replace = line.invoice.replace;
    const auto option = [&replace](const QString &a, qsizetype &, QString *) {
        replace = replace || a == QLatin1String("--replace");
        return a == QLatin1String("--replace");
    };
    QStringList files;
    const QString refusal = readScriptArguments(args, QStringLiteral("--invoice-xml"),
                                                QStringLiteral("ブックと出力するXMLの2つのパスを指定してください。"),
                                                option, &files);
    if (!refusal.isEmpty())
        return refused(refusal);
    line.invoice.workbook = files.at(0);
    line.invoice.output = files.at(1);
    return line;
}

CommandLine parseCompare(const QStringList &args)
{
    CommandLine line;
    line.kind = CommandKind::Compare;
    const auto noOption = [](const QString &, qsizetype &, QString *) { return false; };
    QStringList files;
    const QString refusal = readScriptArguments(
        args, QStringLiteral("--compare"), QStringLiteral("比較する2つのブックと出力するPDFの3つのパスを指定してください。"),
        noOption, &files, 3);
    if (!refusal.isEmpty())
        return refused(refusal);
    line.compare = {files.at(0), files.at(1), files.at(2)};
    return line;
}

CommandLine parseMigration(const QStringList &args, bool toServer)
{
    CommandLine line;
    if (toServer) {
        if (args.size() != 2)
            return refused(QStringLiteral("--to-server には引数はいりません。"));
        line.kind = CommandKind::ToServer;
        return line;
    }
    line.kind = CommandKind::FromServer;
    const auto noOption = [](const QString &, qsizetype &, QString *) { return false; };
    QStringList files;
    const QString refusal = readScriptArguments(args, QStringLiteral("--from-server"),
                                                QStringLiteral("データを書き出す新しいフォルダを1つ指定してください。"),
                                                noOption, &files, 1);
    if (!refusal.isEmpty())
        return refused(refusal);
    line.folder = files.at(0);
    return line;
}

} // namespace

CommandLine parseCommandLine(const QStringList &arguments)
{
    const QStringList args = arguments.isEmpty() ? QStringList{QString()} : arguments;
    const QStringList rest = args.mid(1);
    if (rest.contains(QLatin1String("--help")) || rest.contains(QLatin1String("-h")))
        return CommandLine{CommandKind::Help, {}, {}, {}, {}};
    if (rest.contains(QLatin1String("--version")))
        return CommandLine{CommandKind::Version, {}, {}, {}, {}};
    const bool pdf = rest.contains(QLatin1String("--pdf"));
    const bool invoice = rest.contains(QLatin1String("--invoice-xml"));
    const bool compare = rest.contains(QLatin1String("--compare"));
    const bool toServer = rest.contains(QLatin1String("--to-server"));
    const bool fromServer = rest.contains(QLatin1String("--from-server"));
    if (int(pdf) + int(invoice) + int(compare) + int(toServer) + int(fromServer) > 1)
        return refused(QStringLiteral("--pdf、--invoice-xml、--compare、--to-server、--from-server は一緒に使えません。"));
    if (toServer || fromServer)
        return parseMigration(args, toServer);
    if (compare)
        return parseCompare(args);
    if (pdf)
        return parsePdf(args);
    if (invoice)
        return parseInvoiceXml(args);
    return parseWindow(args);
}

QString helpText(const QString &appFolder)
{
    return QStringLiteral(
               "見積書作成 %1 — 自動車鈑金塗装の見積書・請求書・納品書\n"
               "\n"
               "使い方:\n"
               "  estimate\n"
               "      見積書作成の画面を開きます。\n"
               "\n"
               "  estimate --pdf ブック 出力.pdf [--layout A|B] [--copy] [--paint] [--sub]\n"
               "                [--photos | --photos-large]\n"
               "      保存した見積ブックを、画面を開かずにPDFにします。\n"
               "        --layout A|B  レイアウトA（明細のあとに合計）かB（合計が先）。省略時はA\n"
               "        --copy        控えも出力する\n"
               "        --paint       塗装明細も出力する\n"
               "        --sub         指数明細も出力する\n"
               "        --photos      写真も出力する（1ページに4枚、説明付き）\n"
               "        --photos-large 写真を1ページに1枚ずつ大きく出力する\n"
               "      終了コード: 0 完了、1 引数の誤り、2 ブックが見つからないか読めない、\n"
               "                  3 PDFを書けない\n"
               "\n"
               "  estimate --invoice-xml ブック 出力.xml [--replace]\n"
               "      保存した請求書を電子インボイス（JP PINT、UBL 2.1）のファイルにします。\n"
               "        --replace     既にあるファイルを置き換える\n"
               "      終了コード: 0 完了、1 引数の誤り、2 ブックが読めないか請求書にできない、\n"
               "                  3 ファイルが既にあるか書けない\n"
               "\n"
               "  estimate --compare 修正前のブック 修正後のブック 出力.pdf\n"
               "      2つの見積の違い（追加・削除・変更した明細と合計）を修正内容比較表のPDFにします。\n"
               "      終了コード: 0 完了、1 引数の誤り、2 ブックが見つからないか読めない、\n"
               "                  3 PDFを書けない\n"
               "\n"
               "  estimate --to-server\n"
               "      アプリケーションフォルダのデータベースを、空の共有サーバーのデータベースに写します。\n"
               "      写したあと表ごとに件数と数の列の合計を比べ、結果を表示します。\n"
               "  estimate --from-server フォルダ\n"
               "      共有サーバーのデータを、新しいアプリケーションフォルダのファイルに写します。\n"
               "      共有サーバーは ESTIMATE_DB か、画面「共有サーバー」で保存した接続を使います。\n"
               "      終了コード: 0 完了、1 引数の誤りか共有サーバーの設定がない、\n"
               "                  2 写す先にすでにデータがある（何も変えない）、\n"
               "                  3 接続できないか違いがあった（何も残さない）\n"
               "\n"
               "  estimate --help      この説明を表示します。\n"
               "  estimate --version   バージョンを表示します。\n"
               "\n"
               "画面を開くときは Qt の標準オプション（-platform など）も使えます。\n"
               "\n"
               "データの置き場所（アプリケーションフォルダ）: %2\n"
               "環境変数 ESTIMATE_APP_HOME にフォルダを指定すると、そのフォルダを使います。\n"
               "環境変数 ESTIMATE_DB に共有サーバー（PostgreSQL）の接続文字列を指定すると、\n"
               "データベースをそのサーバーで使います（例: ESTIMATE_DB='host=/run/postgresql dbname=shop'）。\n")
        .arg(QStringLiteral(ESTIMATE_VERSION), QDir::toNativeSeparators(appFolder));
}

QString versionText()
{
    return QStringLiteral("見積書作成 %1").arg(QStringLiteral(ESTIMATE_VERSION));
}

} // namespace est::app
