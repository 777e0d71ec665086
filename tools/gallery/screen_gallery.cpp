// Renders the program's screens, filled with a sample estimate, to PNG files so that a person
// can look at them without clicking through the program:
//   xvfb-run -a build/tools/gallery/screen_gallery <output folder>

#include "app/app_controller.h"
#include "app/dlg_hajime.h"
#include "app/frm_setting.h"
#include "app/frm_sp.h"
#include "common/quiet_messages.h"
#include "db/database.h"
#include "db/part_db.h"
#include "indices/bumper_calculation.h"
#include "indices/frm_bankin.h"
#include "indices/frm_bumpa.h"
#include "indices/frm_fuka.h"
#include "indices/index_value.h"
#include "paint/dlg_naiban.h"
#include "paint/dlg_tinpei.h"
#include "paint/frm_paint.h"
#include "reports/dlg_price_import.h"
#include "sheet/frm_mitumori.h"
#include "simple/car_drawing.h"
#include "simple/dlg_car.h"
#include "simple/dlg_s_select.h"
#include "simple/easy_estimate_store.h"
#include "simple/frm_kani.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QPointer>
#include <QSet>
#include <QTimer>
#include <QFont>
#include <QTableWidget>
#include <QTemporaryDir>
#include <cstdio>

namespace {

void save(QWidget *shown, const QString &folder, const QString &name)
{
    QPointer<QWidget> widget(shown);
    widget->show();
    QApplication::processEvents();
    if (!widget)
        return;
    const QString path = QDir(folder).filePath(name + QStringLiteral(".png"));
    if (widget->grab().save(path))
        std::printf("%s\n", qPrintable(path)), std::fflush(stdout);
}

void fillSample(est::Session &s)
{
    s.company = {QStringLiteral("1"), QStringLiteral("確かな技術で愛車を守ります"), QStringLiteral("有限会社 見本自動車鈑金"),
                 QStringLiteral("東京都練馬区見本町1-2-3"), QStringLiteral("03-0000-1234"), QStringLiteral("03-0000-1235"),
                 QStringLiteral("見本銀行"), QStringLiteral("練馬支店"), QStringLiteral("7"), QStringLiteral("普通"),
                 QStringLiteral("1234567"), QStringLiteral("10"), QStringLiteral("ﾐﾎﾝｼﾞﾄﾞｳｼｬﾊﾞﾝｷﾝ"), QStringLiteral("True")};
    s.header.customerName = QStringLiteral("山田 太郎");
    s.header.customerCompany = QStringLiteral("株式会社 見本商事");
    s.header.carName = QStringLiteral("カローラ");
    s.header.registration = QStringLiteral("練馬 500 あ 12-34");
    s.estimateDate = QStringLiteral("令和6年1月5日");
    s.slipNumber = QStringLiteral("240105001");
    const char *parts[][6] = {
        {"フロント", "フロントバンパー", "52119-0A000", "取替", "1.50", "7,500"},
        {"フロント", "ヘッドランプ　左", "81150-0B010", "取替", "0.80", "4,000"},
        {"フロント", "ボンネット", "53301-0C020", "鈑金", "2.00", "10,000"},
    };
    int n = 0;
    for (const auto &p : parts) {
        est::EstimateRow row;
        row[est::ColNo] = QString::number(++n);
        for (int c = 0; c < 6; ++c)
            row[c + 1] = QString::fromUtf8(p[c]);
        row[est::ColUnitPrice] = QStringLiteral("12,300");
        row[est::ColQuantity] = QStringLiteral("1");
        row[est::ColPartsAmount] = QStringLiteral("12,300");
        s.rows.append(row);
    }
    s.totals.labour = 21500;
    s.totals.parts = 36900;
    s.totals.workTotalA = 58400;
}

// Clicks a button and saves whatever window it opens: a modal dialog is grabbed and closed
// from a timer (its exec() runs meanwhile), a plain window is grabbed and closed afterwards.
void openAndSave(QPushButton *button, const QString &folder)
{
    if (!button || !button->isEnabled())
        return;
    QSet<QWidget *> before;
    for (QWidget *w : QApplication::topLevelWidgets())
        if (w->isVisible())
            before.insert(w);
    QTimer poll;
    poll.setInterval(50);
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto *modal = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!modal)
            return;
        save(modal, folder, modal->objectName());
        modal->done(QDialog::Rejected);
    });
    poll.start();
    button->click();
    poll.stop();
    QList<QPointer<QWidget>> opened;
    for (QWidget *w : QApplication::topLevelWidgets())
        opened.append(w);
    for (const QPointer<QWidget> &w : opened) {
        // Saving processes events, which may delete a window that closed itself.
        if (w && w->isVisible() && !before.contains(w) && !w->objectName().isEmpty()) {
            save(w, folder, w->objectName());
            if (w)
                w->close();
        }
    }
}

// A painted estimate: the paint screen with four lines, its dialogs, and the sheet's paint section.
void savePaintScreens(est::Session &s, est::Messages &messages, const QString &appFolder, const QString &folder)
{
    using namespace est::paint;
    s.customer[2] = s.header.customerName;
    s.vehicle[4] = s.header.carName;
    s.vehicle[13] = QStringLiteral("1F7");
    s.vehicle[14] = QStringLiteral("ﾒﾀﾘｯｸ");
    s.vehicle[15] = QStringLiteral("ﾌｯｿｺｰﾄ");
    s.paint.vehicleClass = QStringLiteral("普通");
    s.paintLabourRate = 7010;
    QString error;
    const auto masters = PaintMasters::open(appFolder, &error);
    PaintEditor editor(masters.get(), s);
    const struct { const char *section, *part, *range, *index; LineKind kind; } lines[] = {
        {"フロント", "ボンネット", "1枚", "5.29", LineKind::Basic},
        {"フロント", "フロントフェンダー(右)", "2枚", "9.16", LineKind::Basic},
        {"", "ボンネット  低隠蔽性塗料　ﾙｰﾌ以外", "", "0.50", LineKind::LowHiding},
        {"", "ボンネット　裏側塗装", "", "1.20", LineKind::Basic},
    };
    for (const auto &l : lines)
        if (const auto line = editor.makeLine(l.kind, QString::fromUtf8(l.section), QString::fromUtf8(l.part), {},
                                              QString::fromUtf8(l.range), QString::fromUtf8(l.index), true))
            editor.calculation().add(*line);
    editor.store({QStringLiteral("速乾"), QStringLiteral("1"), false, true, true}, s);

    FrmPaint screen(s, messages, masters.get());
    save(&screen, folder, QStringLiteral("frmPaint"));
    DlgNaiban naiban(masters ? masters->innerPanelItems() : QList<InnerPanelItem>(), s.paint.vehicleClass, messages);
    save(&naiban, folder, QStringLiteral("dlgNaiban"));
    DlgTInpei tinpei(screen.editor(), QStringLiteral("ルーフ以外"), messages);
    save(&tinpei, folder, QStringLiteral("dlgTInpei"));
}

// The index screens that open from inside other editors, filled with sample choices.
void saveIndexScreens(const QString &folder, const QString &appFolder, est::Messages &messages)
{
    using namespace est::indices;
    const auto opened = est::db::openDatabase(appFolder, est::db::kPartDb);
    if (!opened.ok())
        return;
    FrmBankin bankin(opened.database, messages);
    bankin.findChild<QLineEdit *>(QStringLiteral("txtTate"))->setText(QStringLiteral("30"));
    bankin.findChild<QLineEdit *>(QStringLiteral("txtYoko"))->setText(QStringLiteral("45"));
    save(&bankin, folder, bankin.objectName());

    const BumperSettings settings{QStringLiteral("普通"), QStringLiteral("ﾒﾀﾘｯｸ"), 6800, {1, 1}};
    BumperTables tables(opened.database);
    BumperCalculation sample(tables, settings, messages);
    sample.setIncluded(Side::Front, true);
    sample.setWorkKind(Side::Front, QStringLiteral("取替"));
    sample.setContent(Side::Front, QStringLiteral("全面塗装"));
    sample.setIncluded(Side::Rear, true);
    sample.setWorkKind(Side::Rear, QStringLiteral("修理"));
    sample.setContent(Side::Rear, QStringLiteral("コーナー部塗装"));
    sample.setCondition(Side::Rear, Condition::Kizu, true);
    sample.setOffVehicle(true);
    FrmBumpa bumpa(opened.database, settings, sample.confirmed(), messages);
    save(&bumpa, folder, bumpa.objectName());

    FrmFuka fuka(opened.database,
                 {6800, {0, 1},
                  {QStringLiteral("山田 太郎"), QStringLiteral("カローラ"), QStringLiteral("070"),
                   QStringLiteral("ﾒﾀﾘｯｸ"), QStringLiteral("ﾌｯｿｺｰﾄ")}},
                 est::AdditionalState{}, messages);
    const auto pick = [&fuka](const char *name, const char *text) {
        auto *box = fuka.findChild<QComboBox *>(QLatin1String(name));
        box->setCurrentIndex(box->findText(QString::fromUtf8(text)));
    };
    pick("cboTone", "ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ");
    pick("cboMai", "3");
    pick("cboSasyu", "4");
    fuka.findChild<QLineEdit *>(QStringLiteral("txtSeelMai"))->setText(QStringLiteral("2"));
    fuka.findChild<QCheckBox *>(QStringLiteral("chkBooth"))->setChecked(true);
    save(&fuka, folder, fuka.objectName());
}

// The simple estimate's screens, which the work item editor opens: the front door chosen on
// the drawing and its first price row picked.
void saveSimpleEstimate(est::Messages &messages, const QString &appFolder, const QString &folder)
{
    QString error;
    const auto store = est::simple::EasyEstimateStore::open(appFolder, &error);
    if (!store)
        return;
    const est::SimpleEstimateState state{1, 2, 1, 2};
    est::simple::DlgSSelect kind(messages, store.get(), state.workKind);
    save(&kind, folder, kind.objectName());
    est::simple::DlgCar car(messages, *store, state);
    save(&car, folder, car.objectName());
    est::simple::FrmKani kani(messages, store.get(), state);
    if (auto *drawing = kani.findChild<est::simple::CarDrawing *>())
        Q_EMIT drawing->panelClicked(3);
    if (auto *grid = kani.findChild<QTableWidget *>(QStringLiteral("DataGrid1")))
        grid->selectRow(0);
    save(&kani, folder, kani.objectName());
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setFont(QFont(QStringLiteral("Noto Sans CJK JP"), 10));
    const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".");
    QDir().mkpath(folder);
    QTemporaryDir appFolder;

    est::Session session;
    est::QuietMessages messages;
    est::SystemClock clock;
    est::app::AppController controller(session, messages, clock, appFolder.path());
    controller.start(0);
    est::app::AppContext &c = controller.context();
    save(c.start, folder, QStringLiteral("dlgHajime"));
    est::app::FrmSp splash(60000);
    save(&splash, folder, QStringLiteral("frmSp"));
    save(c.settings, folder, QStringLiteral("frmSetting"));

    fillSample(session);
    c.sheet->refresh();
    c.sheet->resize(1280, 900);
    save(c.sheet, folder, QStringLiteral("frmMitumori"));
    savePaintScreens(session, messages, appFolder.path(), folder);
    c.sheet->refresh();
    save(c.sheet, folder, QStringLiteral("frmMitumori_paint"));

    // Every screen that the sheet and the settings hub open.
    for (QPushButton *button : c.sheet->findChildren<QPushButton *>())
        if (button->objectName() != QLatin1String("cmdEnd") && button->objectName() != QLatin1String("cmdSave"))
            openAndSave(button, folder);
    c.sheet->hide();
    c.settings->show();
    for (QPushButton *button : c.settings->findChildren<QPushButton *>())
        if (button->objectName() != QLatin1String("cmdExit"))
            openAndSave(button, folder);
    {
        // The price import opens from frmExp, one level below the hub.
        const QList<est::workitems::Maker> makers{{QStringLiteral("トヨタ"), QStringLiteral("Toyota")}};
        est::reports::DlgPriceImport prices(appFolder.path(), makers, {}, {}, messages);
        save(&prices, folder, QStringLiteral("dlgPriceImport"));
    }
    c.settings->hide();
    saveSimpleEstimate(messages, appFolder.path(), folder);
    c.start->show();
    for (const char *name : {"cmdSin", "cmdHen", "cmdXls"})
        openAndSave(c.start->button(name), folder);
    saveIndexScreens(folder, appFolder.path(), messages);
    return 0;
}
