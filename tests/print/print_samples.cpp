#include "print_samples.h"

#include "common/number_format.h"
#include "db/database.h"
#include "sample_estimate.h"
#include "sheet/company_block.h"
#include "sheet/document_kind.h"
#include "workbook/estimate_files.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QStandardPaths>

namespace est::test {

namespace {

EstimateRow row(const QStringList &cells)
{
    return estimateRow(cells);
}

QString run(const QString &program, const QStringList &args)
{
    QProcess p;
    p.start(program, args);
    if (!p.waitForFinished(60000) || p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0)
        return QString();
    return QString::fromUtf8(p.readAllStandardOutput());
}

void setHeader(Session &s, int kind)
{
    s.header.documentKind = kind;
    s.header.customerCompany = QStringLiteral("株式会社 さくら運輸");
    s.header.customerName = QStringLiteral("山田 太郎");
    s.header.carName = QStringLiteral("プリウス");
    s.header.registration = QStringLiteral("みどり台 300 さ 12-34");
    s.header.chassisNumber = QStringLiteral("ZVW30-1234567");
    s.header.modelCode = QStringLiteral("DAA-ZVW30");
    s.header.colour = QStringLiteral("パールホワイト");
    s.header.firstRegistration = QStringLiteral("平成27年4月");
    s.header.distance = QStringLiteral("45,210");
    s.header.classCode = QStringLiteral("0123");
    s.header.memo = QStringLiteral("代車あり。部品入荷後、作業期間は約5日です。");
    s.slipNumber = QStringLiteral("000000123");
    s.estimateDate = QStringLiteral("令和6年1月5日");
    s.sheetState = SheetState::NameChosen;
}

} // namespace

EstimateRow estimateRow(const QStringList &cells)
{
    EstimateRow r;
    for (int i = 0; i < cells.size() && i < EstimateColumnCount; ++i)
        r[size_t(i)] = cells.at(i);
    return r;
}

int runProgram(const QString &program, const QStringList &args, const QString &appFolder, QString *errors)
{
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("ESTIMATE_APP_HOME"), appFolder);
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    p.setProcessEnvironment(env);
    p.start(program, args);
    const bool finished = p.waitForFinished(60000);
    if (errors)
        *errors = QString::fromUtf8(p.readAllStandardError());
    return finished && p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
}

Session handEstimate(int kind)
{
    Session s;
    setHeader(s, kind);
    s.rows = {
        row({"1", "前部", "フロントバンパー", "52119-47908", "取替", "1.20", "8,400", "32,500", "1", "32,500"}),
        row({"2", "前部", "ヘッドランプ（右）", "81130-47480", "取替", "0.80", "5,600", "45,356", "1", "45,356"}),
        row({"3", "右側", "フロントフェンダー（右）", "", "板金", "4.40", "31,600", "", "", ""}),
    };
    s.totals.labour = 45600;
    s.totals.parts = 77856;
    s.totals.workTotalA = 123456;
    s.paint.rows = {
        row({"1", "前部", "フロントバンパー", "", "塗装", "2.50", "17,500", "", "", ""}),
        row({"2", "右側", "フロントフェンダー（右）", "", "塗装", "3.00", "21,000", "", "", ""}),
    };
    s.paint.entered = true;
    s.totals.paintLabour = 38500;
    s.totals.paintMaterial = 30400;
    s.totals.bumperPaint = 10000;
    s.totals.paintTotalB = 78900;
    s.figures.discountRate = QStringLiteral("5");
    s.figures.advance = QStringLiteral("30,000");
    s.figures.taxRate = QStringLiteral("10");
    s.nonTaxable.names = {QStringLiteral("自賠責保険料"), QStringLiteral("重量税")};
    s.nonTaxable.amounts = {12000, 5000};
    s.nonTaxable.count = 2;
    s.nonTaxable.sum = 17000;
    s.nonTaxable.present = true;
    s.figures.nonTaxable = QStringLiteral("17,000");
    s.company = sampleShop().block;
    return s;
}

Session fullPrintEstimate()
{
    Session s = handEstimate(1);
    s.rows.clear();
    Yen labour = 0, parts = 0;
    for (int i = 0; i < kMaxEstimateRows; ++i) {
        const Yen l = 700 * (i % 9 + 1);
        const Yen p = i % 3 == 0 ? 1250 * (i % 7 + 1) : 0;
        labour += l;
        parts += p;
        s.rows.append(row({QString::number(i + 1), QStringLiteral("前部"),
                           QStringLiteral("作業部位 %1 リヤバンパーリインフォースメント").arg(i + 1),
                           p ? QStringLiteral("52159-%1").arg(10000 + i) : QString(), QStringLiteral("脱着"),
                           formatFixed2((i % 9 + 1) * 0.1), formatThousands(l), p ? formatThousands(p) : QString(),
                           p ? QStringLiteral("1") : QString(), p ? formatThousands(p) : QString()}));
    }
    s.totals.labour = labour;
    s.totals.parts = parts;
    s.totals.workTotalA = labour + parts;
    s.paint.rows.clear();
    Yen paint = 0;
    for (int i = 0; i < 73; ++i) {
        const Yen l = 1000 + 100 * (i % 10);
        paint += l;
        s.paint.rows.append(row({QString::number(i + 1), QStringLiteral("左側"),
                                 QStringLiteral("塗装部位 %1").arg(i + 1), QString(), QStringLiteral("塗装"),
                                 formatFixed2(l / 700.0), formatThousands(l), QString(), QString(), QString()}));
    }
    s.totals.paintLabour = paint;
    s.totals.paintTotalB = paint + s.totals.paintMaterial + s.totals.bumperPaint;
    s.bumper.entered = true;
    s.bumper.lineCount = 2;
    s.bumper.lines[0] = QStringLiteral("フロントバンパー 素地");
    s.bumper.lines[1] = QStringLiteral("リヤバンパー 補修");
    s.additional.entered = true;
    s.additional.lineCount = 1;
    s.additional.items[1] = {QStringLiteral("サッシュ"), QStringLiteral("フロントドア"), QStringLiteral("0.50"),
                             QStringLiteral("3,500"), QString()};
    s.paint.vehicleClass = QStringLiteral("普通");
    s.paint.materialCoefficient = QStringLiteral("1.15");
    s.paint.baseAdditionIndex = 3;
    return s;
}

print::ShopInfo sampleShop(bool numberOnEstimates)
{
    print::ShopInfo shop;
    shop.block = {QStringLiteral("1"),
                  QStringLiteral("車検・鈑金塗装・各種保険取扱"),
                  QStringLiteral("有限会社 みどり台オートボディ"),
                  QStringLiteral("〒000-0000 若葉県みどり台市東町2丁目14番3号"),
                  QStringLiteral("000-111-2222"),
                  QStringLiteral("000-111-3333"),
                  QStringLiteral("みどり台信用金庫"),
                  QStringLiteral("東町支店"),
                  QStringLiteral("012"),
                  QStringLiteral("普通"),
                  QStringLiteral("1234567"),
                  QStringLiteral("10"),
                  QStringLiteral("ﾕ) ﾐﾄﾞﾘﾀﾞｲｵｰﾄﾎﾞﾃﾞｲ"),
                  QStringLiteral("1")};
    shop.extras = {QStringLiteral("T1234567890123"), numberOnEstimates, QStringLiteral("代表取締役　緑川 健一")};
    return shop;
}

QString saveWorkbook(const Session &session, const QString &folder, const QString &name)
{
    const QString templateFile = QDir(folder).filePath(QStringLiteral("template.xlsx"));
    if (!QFile::exists(templateFile)) {
        QFile t(templateFile);
        t.open(QIODevice::WriteOnly);
        t.write(templateBytes());
    }
    const QString target = QDir(folder).filePath(name);
    workbook::writeEstimateWorkbook(templateFile, session, target);
    return target;
}

void installShop(const QString &appFolder, const print::ShopInfo &shop)
{
    QDir(appFolder).mkpath(QStringLiteral("temp"));
    sheet::writeCompanyBlock(sheet::companyFilePath(appFolder), shop.block);
    db::OpenResult opened = db::openDatabase(appFolder, QStringLiteral("temp\\Jisya_Jyouhou.mdb"));
    sheet::CompanyExtrasStore(opened.database).write(shop.block.at(0).toInt(), shop.extras);
}

QString pdfText(const QString &pdf, int page)
{
    QStringList args{QStringLiteral("-layout")};
    if (page > 0)
        args << QStringLiteral("-f") << QString::number(page) << QStringLiteral("-l") << QString::number(page);
    args << pdf << QStringLiteral("-");
    return run(QStringLiteral("pdftotext"), args);
}

int pdfPages(const QString &pdf)
{
    const QString info = run(QStringLiteral("pdfinfo"), {pdf});
    for (const QString &line : info.split(QLatin1Char('\n')))
        if (line.startsWith(QLatin1String("Pages:")))
            return line.mid(6).trimmed().toInt();
    return -1;
}

QString pdfFonts(const QString &pdf)
{
    return run(QStringLiteral("pdffonts"), {pdf});
}

QString squeezed(QString text)
{
    text.remove(QRegularExpression(QStringLiteral("[\\s\\x{3000}]")));
    return text;
}

QString radicalsIn(const QString &text)
{
    QString found;
    for (const QChar c : text)
        if (c.unicode() >= 0x2E80 && c.unicode() <= 0x2FDF)
            found += c;
    return found;
}

bool havePdfTools()
{
    return !QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty()
           && !QStandardPaths::findExecutable(QStringLiteral("pdfinfo")).isEmpty();
}

} // namespace est::test
