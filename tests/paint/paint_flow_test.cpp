// Painting as a user does it: the sheet's 塗装作成, the paint kind dialog, the paint screen,
// OK; the paint section and paint total B on the sheet; saved, reopened, the same again.

#include "program_fixture.h"
#include "when_modal.h"
#include "widget_lookup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

using namespace est;
using est::test::click;
using est::test::child;
using est::test::whenModal;

namespace {

void choosePanel(QDialog *d, int category, int part)
{
    Q_EMIT child<QTableWidget>(d, "HFLg1")->cellClicked(category, 0);
    Q_EMIT child<QTableWidget>(d, "HFlg2")->cellClicked(part, 0);
}

// The paint kind dialog answered for an ordinary car in metallic 1F7 with fluorine coat.
void answerPaintKind(QDialog *d)
{
    auto *cls = child<QComboBox>(d, "cboJidousya");
    cls->setCurrentIndex(cls->findText(QStringLiteral("普通自動車")));
    Q_EMIT cls->activated(cls->currentIndex());
    child<QLineEdit>(d, "txtIroNo")->setText(QStringLiteral("1F7"));
    auto *kind = child<QComboBox>(d, "cboToryo");
    kind->setCurrentIndex(kind->findText(QStringLiteral("ﾒﾀﾘｯｸ")));
    auto *hf = child<QComboBox>(d, "cboKoukino");
    hf->setCurrentIndex(hf->findText(QStringLiteral("ﾌｯｿｺｰﾄ")));
    click(d, "OKButton");
}

QStringList paintTexts(test::Program &p)
{
    QStringList texts;
    for (const char *name : {"lblPaint", "lblZairyo", "lblBumpa", "lblPKei", "lblGokei"})
        texts << p.sheetChild<QLabel>(name)->text();
    auto *grid = p.sheetChild<QTableWidget>("HFlgSS");
    for (int r = 0; r < 7; ++r)
        for (int c = 0; c < 10; ++c)
            texts << grid->item(r, c)->text();
    return texts;
}

} // namespace

TEST(PaintFlow, SheetToPaintScreenAndBackSavedAndReopened)
{
    test::Program p;
    p.start();
    app::AppContext &c = p.context();
    c.start->button("cmdSin")->click();
    ASSERT_TRUE(c.sheet->isVisible());
    ASSERT_TRUE(p.sheetChild<QPushButton>("cmdPaint")->isEnabled());

    whenModal(QStringLiteral("dlgToryo"), answerPaintKind);
    whenModal(QStringLiteral("frmPaint"), [](QDialog *d) {
        QTest::keyClicks(child<QLineEdit>(d, "txtRato"), "7010"); // no rate was set for this estimate
        child<QComboBox>(d, "cboToryo")->setCurrentText(QStringLiteral("速乾"));
        choosePanel(d, 0, 0);                                           // ボンネット, one panel
        child<QComboBox>(d, "cboMai")->setCurrentText(QStringLiteral("1"));
        click(d, "cmdAdd");
        choosePanel(d, 0, 1);                                           // two panels
        child<QComboBox>(d, "cboMai")->setCurrentText(QStringLiteral("2"));
        click(d, "cmdAdd");
        child<QCheckBox>(d, "chkT")->setChecked(true);
        choosePanel(d, 0, 0);
        click(d, "cmdNotRTei");                                         // low-hiding, not the roof
        click(d, "cmdAdd");
        whenModal(QStringLiteral("dlgNaiban"), [](QDialog *n) { click(n, "cmd1_0"); });
        click(d, "cmdNaiban");                                          // bonnet underside
        click(d, "cmdAdd");
        EXPECT_EQ(child<QLabel>(d, "lblSSum")->text(), QStringLiteral("166,422"));
        click(d, "cmdOK");
    });
    click(c.sheet, "cmdPaint");

    // By hand: labour 37,083 + 64,212 + 3,505 + 8,412 = 113,212; material 0.47 × 113,212 =
    // 53,209.64 -> 53,210; B = 166,422.
    EXPECT_EQ(p.sheetChild<QLabel>("lblPaint")->text(), QStringLiteral("113,212"));
    EXPECT_EQ(p.sheetChild<QLabel>("lblZairyo")->text(), QStringLiteral("53,210"));
    EXPECT_EQ(p.sheetChild<QLabel>("lblBumpa")->text(), QString());
    EXPECT_EQ(p.sheetChild<QLabel>("lblPKei")->text(), QStringLiteral("166,422"));
    EXPECT_EQ(p.sheetChild<QLabel>("lblGokei")->text(), QStringLiteral("166,422"));
    auto *grid = p.sheetChild<QTableWidget>("HFlgSS");
    EXPECT_EQ(grid->item(0, 2)->text(), QStringLiteral("－　塗　装　内　容　－"));
    EXPECT_EQ(grid->item(1, 2)->text(), QStringLiteral("ボンネット"));
    EXPECT_EQ(grid->item(1, 6)->text(), QStringLiteral("37,083"));
    EXPECT_EQ(grid->item(5, 2)->text(), QStringLiteral("塗装材料費"));
    EXPECT_EQ(grid->item(5, 9)->text(), QStringLiteral("53,210"));
    EXPECT_EQ(p.session.vehicle[14], QStringLiteral("ﾒﾀﾘｯｸ"));
    EXPECT_EQ(p.session.paintLabourRate, 7010);
    const QStringList before = paintTexts(p);

    click(c.sheet, "cmdSave");
    ASSERT_TRUE(QFileInfo::exists(p.folder.file(QStringLiteral("Mitsumori/240105TEST.xlsx"))))
        << p.messages.lastText().toStdString();
    p.reopen(QStringLiteral("240105TEST.xlsx"));
    ASSERT_TRUE(c.sheet->isVisible());
    EXPECT_EQ(paintTexts(p), before);

    // The paint screen opens on the same lines and totals; Cancel changes nothing.
    whenModal(QStringLiteral("dlgToryo"), [](QDialog *d) {
        EXPECT_EQ(child<QComboBox>(d, "cboJidousya")->currentText(), QStringLiteral("普通自動車"));
        EXPECT_EQ(child<QComboBox>(d, "cboToryo")->currentText(), QStringLiteral("ﾒﾀﾘｯｸ"));
        click(d, "OKButton");
    });
    whenModal(QStringLiteral("frmPaint"), [](QDialog *d) {
        EXPECT_EQ(child<QTableWidget>(d, "HFlg3")->rowCount(), 4);
        EXPECT_EQ(child<QLabel>(d, "lblSSum")->text(), QStringLiteral("166,422"));
        EXPECT_EQ(child<QLineEdit>(d, "txtRato")->text(), QStringLiteral("7010"));
        click(d, "cmdCancel");
    });
    click(c.sheet, "cmdPaint");
    EXPECT_EQ(paintTexts(p), before);
}

TEST(PaintFlow, CancelInThePaintKindDialogChangesNothing)
{
    test::Program p;
    p.start();
    app::AppContext &c = p.context();
    c.start->button("cmdSin")->click();
    whenModal(QStringLiteral("dlgToryo"), [](QDialog *d) {
        child<QLineEdit>(d, "txtIroNo")->setText(QStringLiteral("202"));
        click(d, "CancelButton");
    });
    click(c.sheet, "cmdPaint");
    EXPECT_EQ(p.session.vehicle[13], QString());
    // OK there and Cancel on the paint screen: the vehicle data stay as they were, too.
    whenModal(QStringLiteral("dlgToryo"), answerPaintKind);
    whenModal(QStringLiteral("frmPaint"), [](QDialog *d) { click(d, "cmdCancel"); });
    click(c.sheet, "cmdPaint");
    EXPECT_EQ(p.session.vehicle[13], QString());
    EXPECT_EQ(p.session.paint.vehicleClass, QString());
    EXPECT_FALSE(p.session.paint.entered);
}
