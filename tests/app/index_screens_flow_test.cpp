// One estimate made as a user makes it with the index screens: a dent priced on the
// sheet-metal screen and a door priced from the simple estimate's unit prices in the work
// item editor; bumpers and the additional items from the paint screen. Every amount is
// worked out by hand; the estimate is saved, opened again and shows the same.

#include "program_fixture.h"
#include "when_modal.h"
#include "widget_lookup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

using namespace est;
using est::test::chooseText;
using est::test::click;
using est::test::shownText;
using est::test::child;
using est::test::whenModal;

namespace {

// Clicks the entry of that text as a user would.
void pick(QListWidget *list, const char *entry)
{
    const auto found = list->findItems(QString::fromUtf8(entry), Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << entry;
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(found.first()).center());
}

void answerPaintKind(QDialog *d)
{
    auto *cls = child<QComboBox>(d, "cboJidousya");
    cls->setCurrentIndex(cls->findText(QStringLiteral("普通自動車")));
    Q_EMIT cls->activated(cls->currentIndex());
    child<QLineEdit>(d, "txtIroNo")->setText(QStringLiteral("1F7"));
    chooseText(d, "cboToryo", "ﾒﾀﾘｯｸ");
    click(d, "OKButton");
}

// Front bumper replaced, rear one repaired with a condition addition, both off the vehicle.
void priceBumpers(QDialog *d)
{
    child<QCheckBox>(d, "chkFr")->click();
    chooseText(d, "cboFrSagyo", "取替");
    chooseText(d, "cboFrNai", "全面塗装");
    child<QCheckBox>(d, "chkRr")->click();
    chooseText(d, "cboRrSagyo", "修理");
    chooseText(d, "cboRrNai", "半面塗装");
    child<QCheckBox>(d, "chkRrHyoj")->click();
    child<QCheckBox>(d, "chkTantai")->click();
    EXPECT_EQ(shownText(d, "txtFrSisu"), "3.39");
    EXPECT_EQ(shownText(d, "lblFrSum"), "22,040");
    EXPECT_EQ(shownText(d, "txtRrSisu"), "2.95");
    EXPECT_EQ(shownText(d, "lblRrSum"), "19,180");
    click(d, "cmdOK");
}

// Two-tone over three panels, sealing of two units, the booth.
void priceAdditional(QDialog *d)
{
    EXPECT_EQ(shownText(d, "lblRato"), "6,500");
    chooseText(d, "cboTone", "ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ");
    chooseText(d, "cboMai", "3");
    QTest::keyClicks(child<QLineEdit>(d, "txtSeelMai"), "2");
    child<QCheckBox>(d, "chkBooth")->click();
    EXPECT_EQ(shownText(d, "lblToneNum"), "1.43");
    EXPECT_EQ(shownText(d, "lblTonesum"), "9,300");
    EXPECT_EQ(shownText(d, "lblSeelSi"), "0.50");
    EXPECT_EQ(shownText(d, "lblGoukei"), "15,800");
    click(d, "cmdOK");
}

// A new estimate for a vehicle whose parts catalogue is chosen, at a labour rate of 5,000.
void newEstimate(test::Program &p)
{
    p.context().start->button("cmdSin")->click();
    ASSERT_TRUE(p.context().sheet->isVisible());
    p.session.labourRate = 5000;
    p.session.maker = QStringLiteral("日産");
    p.session.makerDb = QStringLiteral("Nissan");
    p.session.vehicleType = QStringLiteral("ミニバン");
    p.session.typeTable = QStringLiteral("T_Minivan");
}

QStringList sheetTexts(test::Program &p)
{
    QStringList texts;
    for (const char *name : {"lblKoutin", "lblBuhin", "lblSkei", "lblPaint", "lblZairyo", "lblBumpa", "lblPKei",
                             "lblGokei"})
        texts << p.sheetChild<QLabel>(name)->text();
    auto *grid = p.sheetChild<QTableWidget>("HFlgSS");
    for (int r = 0; r < 12; ++r)
        for (int c = 0; c < 10; ++c)
            texts << (grid->item(r, c) ? grid->item(r, c)->text() : QString());
    return texts;
}

} // namespace

TEST(IndexScreensFlow, SheetMetalSimpleBumperAndAdditionalSavedAndReopened)
{
    test::Program p;
    p.start();
    app::AppContext &c = p.context();
    newEstimate(p);
    // The shop rounds labour at the ones digit, half up.
    p.session.roundDigits = 1;
    p.session.roundMode = 1;

    whenModal(QStringLiteral("frmSakusei"), [&p](QDialog *editor) {
        // A 30 cm × 45 cm dent: 13 d㎡, grade B, index 2.35 × 5,000 = 11,750.
        whenModal(QStringLiteral("frmBankin"), [](QDialog *d) {
            QTest::keyClicks(child<QLineEdit>(d, "txtTate"), "30");
            QTest::keyClicks(child<QLineEdit>(d, "txtYoko"), "45");
            EXPECT_EQ(shownText(d, "lbldm"), "13");
            EXPECT_EQ(shownText(d, "lblB"), "2.35");
            click(d, "cmdB");
        });
        click(editor, "cmdBankin");
        EXPECT_EQ(shownText(editor, "txtBuhinT"), " B : 13d㎡");
        EXPECT_EQ(shownText(editor, "txtSisu"), "2.35");
        EXPECT_EQ(shownText(editor, "lblKKei"), "11750");
        child<QLineEdit>(editor, "txtBuhin")->setText(QStringLiteral("リヤフェンダ"));
        click(editor, "cmdAdd");

        // The front door of a light hatchback in solid colour, scratch repair (small): labour
        // 12,400, material 3,900 as the part price of one piece.
        p.messages.answer(Answer::Yes); // no vehicle classes yet: choose them
        whenModal(QStringLiteral("dlgSSelect"), [](QDialog *d) {
            child<QRadioButton>(d, "optKH")->click();
            click(d, "cmdOK");
        });
        whenModal(QStringLiteral("dlgCar"), [](QDialog *d) {
            pick(child<QListWidget>(d, "dlstSKA"), "軽自動車");
            pick(child<QListWidget>(d, "dlstSKB"), "ハッチバック");
            pick(child<QListWidget>(d, "dlstColor"), "ソリッド");
            click(d, "cmdOK");
        });
        whenModal(QStringLiteral("frmKani"), [](QDialog *d) {
            auto *door = child<QWidget>(d, "imgFrDoor");
            QTest::mouseClick(door, Qt::LeftButton, {}, door->rect().center());
            auto *grid = child<QTableWidget>(d, "DataGrid1");
            ASSERT_GE(grid->rowCount(), 1);
            QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualItemRect(grid->item(0, 1)).center());
            EXPECT_EQ(shownText(d, "txtSNaiyo"), "キズ・ヘコミ修理（小）");
            click(d, "cmdOK");
        });
        click(editor, "cmdEasy");
        EXPECT_EQ(shownText(editor, "txtBuhin"), "フロントドア");
        EXPECT_EQ(shownText(editor, "cboSagyo"), "キズ・ヘコミ修理（小）");
        EXPECT_EQ(shownText(editor, "txtKoutin"), "12400");
        EXPECT_EQ(shownText(editor, "txtBTan"), "3900");
        EXPECT_EQ(shownText(editor, "txtBKo"), "1");
        EXPECT_EQ(shownText(editor, "lblBKei"), "3900");
        click(editor, "cmdAdd");
        EXPECT_EQ(shownText(editor, "lblKSum"), "24,150");
        click(editor, "cmdOK");
    });
    click(c.sheet, "cmdSakusei");
    ASSERT_EQ(p.session.rows.size(), 2);
    EXPECT_EQ(p.session.simple.classA, 1);

    whenModal(QStringLiteral("dlgToryo"), answerPaintKind);
    whenModal(QStringLiteral("frmPaint"), [](QDialog *d) {
        QTest::keyClicks(child<QLineEdit>(d, "txtRato"), "6500");
        whenModal(QStringLiteral("frmBumpa"), priceBumpers);
        click(d, "cmdBumpa");
        EXPECT_EQ(shownText(d, "lblBumpaSum"), "41,220");
        whenModal(QStringLiteral("frmFuka"), priceAdditional);
        click(d, "cmdFuka");
        EXPECT_EQ(shownText(d, "lblFukaSum"), "15,800");
        click(d, "cmdOK");
    });
    click(c.sheet, "cmdPaint");

    // Work: labour 11,750 + 12,400 = 24,150, parts 3,900, A = 28,050.
    // Paint: labour 15,800 (the additional items); material, metallic 0.35 × (15,800 +
    // 41,220) = 19,957; bumpers 41,220; B = 76,977. A + B = 105,027.
    EXPECT_EQ(p.sheetChild<QLabel>("lblKoutin")->text(), QStringLiteral("24,150"));
    EXPECT_EQ(p.sheetChild<QLabel>("lblBuhin")->text(), QStringLiteral("3,900"));
    EXPECT_EQ(p.sheetChild<QLabel>("lblSkei")->text(), QStringLiteral("28,050"));
    EXPECT_EQ(p.sheetChild<QLabel>("lblPaint")->text(), QStringLiteral("15,800"));
    EXPECT_EQ(p.sheetChild<QLabel>("lblZairyo")->text(), QStringLiteral("19,957"));
    EXPECT_EQ(p.sheetChild<QLabel>("lblBumpa")->text(), QStringLiteral("41,220"));
    EXPECT_EQ(p.sheetChild<QLabel>("lblPKei")->text(), QStringLiteral("76,977"));
    EXPECT_EQ(p.sheetChild<QLabel>("lblGokei")->text(), QStringLiteral("105,027"));
    auto *grid = p.sheetChild<QTableWidget>("HFlgSS");
    EXPECT_EQ(grid->item(0, 3)->text(), QStringLiteral(" B : 13d㎡"));
    EXPECT_EQ(grid->item(1, 2)->text(), QStringLiteral("フロントドア"));
    EXPECT_EQ(grid->item(1, 9)->text(), QStringLiteral("3,900"));
    // The paint section: the additional items and the bumpers each on a line of their own.
    EXPECT_EQ(grid->item(3, 2)->text(), QStringLiteral("付加指数"));
    EXPECT_EQ(grid->item(3, 6)->text(), QStringLiteral("15,800"));
    EXPECT_EQ(grid->item(4, 2)->text(), QStringLiteral("バンパー塗装"));
    EXPECT_EQ(grid->item(4, 6)->text(), QStringLiteral("41,220"));
    EXPECT_EQ(grid->item(5, 9)->text(), QStringLiteral("19,957"));
    const QStringList before = sheetTexts(p);

    click(c.sheet, "cmdSave");
    ASSERT_TRUE(QFileInfo::exists(p.folder.file(QStringLiteral("Mitsumori/240105TEST.xlsx"))))
        << p.messages.lastText().toStdString();
    p.reopen(QStringLiteral("240105TEST.xlsx"));
    ASSERT_TRUE(c.sheet->isVisible());
    EXPECT_EQ(sheetTexts(p), before);

    // The bumper and additional screens show what was chosen; Cancel everywhere changes nothing.
    whenModal(QStringLiteral("dlgToryo"), [](QDialog *d) { click(d, "OKButton"); });
    whenModal(QStringLiteral("frmPaint"), [](QDialog *d) {
        EXPECT_EQ(shownText(d, "lblBumpaSum"), "41,220");
        EXPECT_EQ(shownText(d, "lblFukaSum"), "15,800");
        whenModal(QStringLiteral("frmBumpa"), [](QDialog *b) {
            EXPECT_TRUE(child<QCheckBox>(b, "chkRrHyoj")->isChecked());
            EXPECT_EQ(shownText(b, "cboFrSagyo"), "取替");
            EXPECT_EQ(shownText(b, "lblRrSum"), "19,180");
            click(b, "cmdCancel");
        });
        click(d, "cmdBumpa");
        whenModal(QStringLiteral("frmFuka"), [](QDialog *f) {
            EXPECT_EQ(shownText(f, "lblTonesum"), "9,300");
            EXPECT_EQ(shownText(f, "lblGoukei"), "15,800");
            click(f, "cmdCancel");
        });
        click(d, "cmdFuka");
        click(d, "cmdCancel");
    });
    click(c.sheet, "cmdPaint");
    EXPECT_EQ(sheetTexts(p), before);
}

// OK on the bumper screen and then Cancel on the paint screen: the estimate keeps nothing of it.
TEST(IndexScreensFlow, CancelOnThePaintScreenDropsTheBumperChoice)
{
    test::Program p;
    p.start();
    app::AppContext &c = p.context();
    c.start->button("cmdSin")->click();
    whenModal(QStringLiteral("dlgToryo"), answerPaintKind);
    whenModal(QStringLiteral("frmPaint"), [](QDialog *d) {
        QTest::keyClicks(child<QLineEdit>(d, "txtRato"), "6500");
        whenModal(QStringLiteral("frmBumpa"), priceBumpers);
        click(d, "cmdBumpa");
        EXPECT_EQ(shownText(d, "lblBumpaSum"), "41,220");
        click(d, "cmdCancel");
    });
    // The shop rounds at the ones digit, as above.
    p.session.roundDigits = 1;
    p.session.roundMode = 1;
    click(c.sheet, "cmdPaint");
    EXPECT_FALSE(p.session.bumper.entered);
    EXPECT_EQ(p.session.totals.bumperPaint, 0);
    EXPECT_EQ(p.sheetChild<QLabel>("lblBumpa")->text(), QString());
}

// A unit-price file that is no database: 簡易見積 says so and the editor goes on with what
// was typed.
TEST(IndexScreensFlow, ADamagedUnitPriceFileIsReportedAndTheEditorStaysUsable)
{
    test::Program p;
    p.start();
    app::AppContext &c = p.context();
    newEstimate(p);
    p.session.simple = {1, 1, 2, 1};
    QDir().mkpath(p.folder.file(QStringLiteral("Data")));
    QFile damaged(p.folder.file(QStringLiteral("Data/EasyEstimate.sqlite")));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
    damaged.write(QByteArray(4096, 'x'));
    damaged.close();

    whenModal(QStringLiteral("frmSakusei"), [&p](QDialog *editor) {
        child<QLineEdit>(editor, "txtBuhin")->setText(QStringLiteral("ボンネット"));
        QTest::keyClicks(child<QLineEdit>(editor, "txtSisu"), "1.2");
        click(editor, "cmdEasy");
        EXPECT_TRUE(p.messages.lastText().contains(QStringLiteral("Data/EasyEstimate.sqlite")))
            << p.messages.lastText().toStdString();
        EXPECT_TRUE(editor->isVisible());
        EXPECT_EQ(shownText(editor, "txtBuhin"), "ボンネット");
        EXPECT_EQ(shownText(editor, "lblKKei"), "6000");
        click(editor, "cmdAdd");
        click(editor, "cmdOK");
    });
    click(c.sheet, "cmdSakusei");
    ASSERT_EQ(p.session.rows.size(), 1);
    EXPECT_EQ(p.sheetChild<QLabel>("lblKoutin")->text(), QStringLiteral("6,000"));
}
