#include "paint/dlg_naiban.h"
#include "paint/dlg_tinpei.h"
#include "paint/dlg_toryo.h"
#include "paint/frm_paint.h"
#include "scripted_messages.h"
#include "temp_app_folder.h"
#include "when_modal.h"
#include "widget_lookup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <gtest/gtest.h>

using namespace est;
using est::test::child;
using namespace est::paint;
using est::test::whenModal;

namespace {

struct ScreenFixture
{
    test::TempAppFolder folder;
    test::ScriptedMessages messages;
    std::unique_ptr<PaintMasters> masters;
    Session session;
    std::unique_ptr<FrmPaint> screen;

    ScreenFixture()
    {
        QString error;
        masters = PaintMasters::open(folder.path(), &error);
        session.customer[2] = QStringLiteral("山田 太郎");
        session.vehicle[4] = QStringLiteral("プリウス");
        session.vehicle[13] = QStringLiteral("1F7");
        session.vehicle[14] = QStringLiteral("ﾒﾀﾘｯｸ");
        session.vehicle[15] = QStringLiteral("ﾌｯｿｺｰﾄ");
        session.paint.vehicleClass = QStringLiteral("普通");
        session.paintLabourRate = 7010;
    }
    FrmPaint &open()
    {
        screen = std::make_unique<FrmPaint>(session, messages, masters.get());
        return *screen;
    }
    template <typename T>
    T *w(const char *name) { return child<T>(screen.get(), name); }
    QString text(const char *name) { return w<QLabel>(name)->text(); }
    void click(const char *name) { w<QPushButton>(name)->click(); }
    void category(int row) { Q_EMIT w<QTableWidget>("HFLg1")->cellClicked(row, 0); }
    void part(int row) { Q_EMIT w<QTableWidget>("HFlg2")->cellClicked(row, 0); }
    void chooseRow(int row) { Q_EMIT w<QTableWidget>("HFlg3")->cellClicked(row, 0); }
    int rows() { return w<QTableWidget>("HFlg3")->rowCount(); }
    QString cell(int row, int column)
    {
        const QTableWidgetItem *item = w<QTableWidget>("HFlg3")->item(row, column);
        return item ? item->text() : QString();
    }
    void typeIndex(const char *index) { w<QLineEdit>("txtSisu")->setText(QString::fromUtf8(index)); }
};

} // namespace

// The worked example: two basic lines, a low-hiding surcharge and an inner-panel item on an
// ordinary car in metallic with fluorine coat, at 7,010 yen per point.
TEST(FrmPaint, CategoriesPanelsSurchargeInnerPanelAndMaterialAsAUserWould)
{
    ScreenFixture x;
    x.open();
    EXPECT_EQ(x.text("lbl1"), QStringLiteral("山田 太郎"));
    EXPECT_EQ(x.text("lbl4"), QStringLiteral("ﾒﾀﾘｯｸ"));
    EXPECT_EQ(x.text("lblSyasyu"), QStringLiteral("普通"));
    EXPECT_EQ(x.text("lblKsu"), QStringLiteral("0.47"));
    EXPECT_EQ(x.text("lblKKihonSisu"), QStringLiteral("0.45"));
    EXPECT_EQ(x.w<QLineEdit>("txtRato")->text(), QStringLiteral("7010"));
    EXPECT_FALSE(x.w<QPushButton>("cmdBumpa")->isEnabled());
    EXPECT_FALSE(x.w<QPushButton>("cmdFuka")->isEnabled());
    EXPECT_EQ(x.w<QTableWidget>("HFlg2")->rowCount(), 0); // no category chosen by itself

    x.category(0);
    x.part(0);
    EXPECT_EQ(x.w<QLineEdit>("txtBuimei")->text(), QStringLiteral("ボンネット"));
    x.w<QComboBox>("cboToryo")->setCurrentText(QStringLiteral("速乾"));
    x.w<QComboBox>("cboMai")->setCurrentText(QStringLiteral("1"));
    EXPECT_EQ(x.w<QLineEdit>("txtKisoSisu")->text(), QStringLiteral("5.29"));
    EXPECT_EQ(x.text("lblKiso"), QStringLiteral("37,083"));
    EXPECT_EQ(x.text("lblTKei"), QStringLiteral("37,083"));
    EXPECT_EQ(x.w<QLineEdit>("txtZairyo")->text(), QStringLiteral("17,429")); // 0.47 × 37,083
    x.click("cmdAdd");
    ASSERT_EQ(x.rows(), 1);
    EXPECT_EQ(x.cell(0, 1), QStringLiteral("フロント"));
    EXPECT_EQ(x.cell(0, 4), QStringLiteral("1枚"));
    EXPECT_EQ(x.cell(0, 5), QStringLiteral("5.29"));
    EXPECT_EQ(x.cell(0, 8), QStringLiteral("17,429"));

    x.part(1);
    x.w<QComboBox>("cboMai")->setCurrentText(QStringLiteral("2"));
    EXPECT_EQ(x.w<QLineEdit>("txtSisu")->text(), QStringLiteral("9.16"));
    x.click("cmdAdd");

    x.w<QCheckBox>("chkT")->setChecked(true);
    EXPECT_TRUE(x.w<QPushButton>("cmdNotRTei")->isEnabled());
    EXPECT_EQ(x.w<QLineEdit>("txtTInpei")->text(), QStringLiteral("0.20"));
    x.part(0);
    x.click("cmdNotRTei");
    EXPECT_EQ(x.w<QLineEdit>("txtBuimei")->text(), QStringLiteral("ボンネット  低隠蔽性塗料　ﾙｰﾌ以外"));
    EXPECT_EQ(x.w<QLineEdit>("txtSisu")->text(), QStringLiteral("0.50"));
    x.click("cmdAdd");

    whenModal(QStringLiteral("dlgNaiban"), [](QDialog *d) { child<QPushButton>(d, "cmd1_0")->click(); });
    x.click("cmdNaiban");
    EXPECT_EQ(x.w<QLineEdit>("txtBuimei")->text(), QStringLiteral("ボンネット　裏側塗装"));
    EXPECT_EQ(x.w<QLineEdit>("txtSisu")->text(), QStringLiteral("1.20"));
    x.click("cmdAdd");

    ASSERT_EQ(x.rows(), 4);
    EXPECT_EQ(x.cell(1, 6), QStringLiteral("64,212"));
    EXPECT_EQ(x.cell(3, 7), QStringLiteral("113,212")); // running labour
    EXPECT_EQ(x.text("lblTSum"), QStringLiteral("109,707"));
    EXPECT_EQ(x.text("lblKKSisuSum"), QStringLiteral("3,505"));
    EXPECT_EQ(x.text("lblZSum"), QStringLiteral("53,210"));
    EXPECT_EQ(x.text("lblSSum"), QStringLiteral("166,422"));
    EXPECT_TRUE(x.messages.shown.isEmpty());

    x.click("cmdOK");
    EXPECT_EQ(x.screen->result(), QDialog::Accepted);
    EXPECT_EQ(x.session.paint.rows.size(), 4);
    EXPECT_EQ(x.session.totals.paintLabour, 113212);
    EXPECT_EQ(x.session.totals.paintMaterial, 53210);
    EXPECT_EQ(x.session.totals.paintTotalB, 166422);
}

TEST(FrmPaint, SeventyThreeRowsAtMost)
{
    ScreenFixture x;
    EstimateRow row;
    row[ColPart] = QStringLiteral("ボンネット");
    row[ColIndex] = QStringLiteral("1.00");
    row[ColLabour] = QStringLiteral("7,010");
    x.session.paint.rows = QList<EstimateRow>(72, row);
    x.open();
    ASSERT_EQ(x.rows(), 72);
    x.typeIndex("1.00");
    x.click("cmdAdd");
    ASSERT_EQ(x.rows(), 73);
    x.typeIndex("1.00");
    x.click("cmdAdd");
    EXPECT_EQ(x.rows(), 73);
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("行の上限です。\nこれ以上書き込めません。"));
    EXPECT_EQ(x.messages.shown.last().title, QStringLiteral("行の上限"));
    x.click("cmdInsRow");
    EXPECT_EQ(x.rows(), 73);
    EXPECT_EQ(x.text("lblTSum"), QStringLiteral("511,730")); // 73 × 7,010
}

TEST(FrmPaint, DeleteAsksAndNeedsARow)
{
    ScreenFixture x;
    x.open();
    x.click("cmdDel");
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("削除するデータはありません．"));
    EXPECT_EQ(x.messages.shown.last().title, QStringLiteral("警告"));
    x.typeIndex("1.00");
    x.click("cmdAdd");
    x.typeIndex("2.00");
    x.click("cmdAdd");
    x.messages.clear();
    x.chooseRow(0);
    x.messages.answer(Answer::No);
    x.click("cmdDel");
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("削除します。\nデータが失われます。\nよろしいですか？"));
    EXPECT_EQ(x.rows(), 2);
    x.messages.answer(Answer::Yes);
    x.click("cmdDel");
    ASSERT_EQ(x.rows(), 1);
    EXPECT_EQ(x.cell(0, 5), QStringLiteral("2.00"));
    EXPECT_EQ(x.text("lblTSum"), QStringLiteral("14,020"));
}

TEST(FrmPaint, EditInsertAndCancelEditing)
{
    ScreenFixture x;
    x.open();
    x.typeIndex("1.00");
    x.click("cmdAdd");
    x.typeIndex("2.00");
    x.click("cmdAdd");
    x.chooseRow(1);
    x.typeIndex("0.50");
    x.click("cmdInsRow");
    ASSERT_EQ(x.rows(), 3);
    EXPECT_EQ(x.cell(1, 5), QStringLiteral("0.50"));
    EXPECT_EQ(x.cell(2, 0), QStringLiteral("3"));

    x.chooseRow(0);
    x.click("cmdEdit");
    EXPECT_EQ(x.w<QLineEdit>("txtSisu")->text(), QStringLiteral("1.00"));
    EXPECT_FALSE(x.w<QPushButton>("cmdAdd")->isEnabled());
    x.typeIndex("6.00");
    x.click("cmdOK"); // a pending edit is never dropped silently
    EXPECT_EQ(x.screen->result(), 0);
    EXPECT_FALSE(x.session.paint.entered);
    x.click("cmdEdit");
    EXPECT_EQ(x.cell(0, 6), QStringLiteral("42,060"));
    EXPECT_EQ(x.text("lblTSum"), QStringLiteral("59,585")); // 42,060 + 3,505 + 14,020

    x.chooseRow(2);
    x.click("cmdEdit");
    x.typeIndex("9.00");
    x.click("cmdECancel");
    EXPECT_EQ(x.cell(2, 5), QStringLiteral("2.00"));
    EXPECT_TRUE(x.w<QPushButton>("cmdAdd")->isEnabled());
}

TEST(FrmPaint, CancelAndCloseBoxChangeNothing)
{
    ScreenFixture x;
    const Session before = x.session;
    x.open();
    x.typeIndex("1.00");
    x.click("cmdAdd");
    x.screen->show();
    x.screen->close();
    EXPECT_TRUE(x.screen->isVisible());
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("中止する場合、キャンセルボタンをクリックしてください"));
    x.click("cmdCancel");
    EXPECT_EQ(x.screen->result(), QDialog::Rejected);
    EXPECT_TRUE(x.session.paint.rows.isEmpty());
    EXPECT_EQ(x.session.totals.paintTotalB, before.totals.paintTotalB);
}

TEST(FrmPaint, IndexWithoutRateAndBadInput)
{
    ScreenFixture x;
    x.open();
    x.w<QLineEdit>("txtRato")->clear();
    x.typeIndex(".5");
    Q_EMIT x.w<QLineEdit>("txtSisu")->editingFinished();
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("レーバーレートに金額が入力されておりません。"));
    EXPECT_EQ(x.messages.shown.last().icon, MessageIcon::Critical);
    EXPECT_EQ(x.w<QLineEdit>("txtSisu")->text(), QString());

    x.w<QLineEdit>("txtRato")->setText(QStringLiteral("7010"));
    x.typeIndex(".5");
    Q_EMIT x.w<QLineEdit>("txtSisu")->editingFinished();
    EXPECT_EQ(x.w<QLineEdit>("txtSisu")->text(), QStringLiteral("0.50"));
    EXPECT_EQ(x.text("lblTKei"), QStringLiteral("3,505"));

    // A count that is no count clears the basic index; so does 0.
    x.w<QComboBox>("cboToryo")->setCurrentText(QStringLiteral("速乾"));
    x.w<QComboBox>("cboMai")->setCurrentText(QStringLiteral("2"));
    EXPECT_EQ(x.w<QLineEdit>("txtKisoSisu")->text(), QStringLiteral("9.16"));
    x.w<QComboBox>("cboMai")->setEditText(QStringLiteral("-1"));
    EXPECT_EQ(x.w<QLineEdit>("txtKisoSisu")->text(), QString());
    x.w<QComboBox>("cboMai")->setEditText(QStringLiteral("0"));
    EXPECT_EQ(x.w<QLineEdit>("txtKisoSisu")->text(), QString());

    x.typeIndex("");
    x.click("cmdAdd");
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("指数が入力されておりません。"));
    EXPECT_EQ(x.rows(), 0);
}

TEST(FrmPaint, SolidTwoCoatAndHighFunctionSurcharges)
{
    ScreenFixture x;
    x.session.vehicle[14] = QStringLiteral("ｿﾘｯﾄﾞ");
    x.session.vehicle[15] = QString();
    x.open();
    EXPECT_EQ(x.w<QComboBox>("cboToryo")->currentText(), QStringLiteral("速乾"));
    EXPECT_FALSE(x.w<QPushButton>("cmdKoukino")->isEnabled());
    EXPECT_FALSE(x.w<QPushButton>("cmdR2")->isEnabled());
    x.w<QCheckBox>("chk2s")->setChecked(true);
    EXPECT_EQ(x.w<QLineEdit>("txt2Solid")->text(), QStringLiteral("0.15"));
    EXPECT_EQ(x.text("lbl2SolidSum"), QStringLiteral("1,052")); // 0.15 × 7,010 = 1,051.5
    x.category(3);
    x.part(0);
    x.click("cmdR2");
    EXPECT_EQ(x.w<QLineEdit>("txtBuimei")->text(), QStringLiteral("ルーフパネル  2ｺｰﾄｿﾘｯﾄﾞ加算 　ﾙｰﾌ"));
    EXPECT_EQ(x.w<QLineEdit>("txtSisu")->text(), QStringLiteral("0.70"));
    x.click("cmdAdd");
    EXPECT_EQ(x.text("lblTSum"), QString());
    EXPECT_EQ(x.text("lblKKSisuSum"), QStringLiteral("4,907"));
    x.w<QCheckBox>("chk2s")->setChecked(false);
    EXPECT_FALSE(x.w<QLineEdit>("txt2Solid")->isEnabled());
}

TEST(FrmPaint, LowHidingDialogFillsTheEntryLine)
{
    ScreenFixture x;
    x.open();
    x.w<QCheckBox>("chkT")->setChecked(true);
    x.category(1);
    x.part(2); // リアドア(右), not a roof panel
    whenModal(QStringLiteral("dlgTInpei"), [](QDialog *d) {
        child<QRadioButton>(d, "opt2")->click();
        EXPECT_EQ(child<QLabel>(d, "lblSisu")->text(), QStringLiteral("指数　0.45"));
        child<QPushButton>(d, "OKButton")->click();
    });
    x.click("cmdTInpei");
    EXPECT_EQ(x.w<QLineEdit>("txtTInpei")->text(), QStringLiteral("0.45"));
    EXPECT_EQ(x.w<QLineEdit>("txtSisu")->text(), QStringLiteral("0.60")); // 0.45 + addition 0.15
    x.click("cmdAdd");
    EXPECT_EQ(x.cell(0, 3), QStringLiteral("修正"));
    EXPECT_EQ(x.text("lblKKSisuSum"), QStringLiteral("4,206"));

    whenModal(QStringLiteral("dlgTInpei"), [](QDialog *d) {
        child<QRadioButton>(d, "opt1")->click();
        child<QPushButton>(d, "CancelButton")->click();
    });
    x.click("cmdTInpei");
    EXPECT_EQ(x.w<QLineEdit>("txtTInpei")->text(), QStringLiteral("0.45")); // unchanged by Cancel
}

TEST(DlgNaiban, LightCarsShowTheirOwnColumn)
{
    test::TempAppFolder folder;
    test::ScriptedMessages messages;
    QString error;
    auto masters = PaintMasters::open(folder.path(), &error);
    DlgNaiban light(masters->innerPanelItems(), QStringLiteral("軽自"), messages);
    EXPECT_EQ(child<QPushButton>(&light, "cmd1_0")->text(), QStringLiteral("1.00"));
    EXPECT_EQ(child<QLabel>(&light, "lblBui_6")->text(), QStringLiteral("エンジンルーム"));
    EXPECT_EQ(child<QLabel>(&light, "lblMemo_6")->text(), QStringLiteral("ストラットハウス含む"));
    DlgNaiban small(masters->innerPanelItems(), QStringLiteral("小型"), messages);
    EXPECT_EQ(child<QPushButton>(&small, "cmd1_0")->text(), QStringLiteral("1.20"));
    child<QPushButton>(&small, "cmd1_6")->click();
    EXPECT_EQ(small.partName(), QStringLiteral("エンジンルーム　内側塗装"));
    EXPECT_EQ(small.index(), QStringLiteral("2.50"));
    DlgNaiban none({}, QStringLiteral("普通"), messages);
    EXPECT_FALSE(child<QPushButton>(&none, "cmd1_0")->isEnabled());
}

TEST(DlgToryo, ShowsTheVehicleAndWritesOnlyOnOk)
{
    test::ScriptedMessages messages;
    Session session;
    session.vehicle[13] = QStringLiteral("040");
    session.vehicle[14] = QStringLiteral("ｿﾘｯﾄﾞ");
    session.paint.vehicleClass = QStringLiteral("軽自");
    const QStringList kinds = {"ｿﾘｯﾄﾞ", "3ｺｰﾄﾊﾟｰﾙ", "ﾒﾀﾘｯｸ", "2ｺｰﾄﾊﾟｰﾙ"};
    const QStringList hf = {"ﾌｯｿｺｰﾄ", "ﾊｲﾚﾌｺｰﾄ"};
    {
        DlgToryo dialog(session, messages, kinds, hf);
        EXPECT_EQ(child<QComboBox>(&dialog, "cboJidousya")->currentText(), QStringLiteral("軽自動車"));
        EXPECT_EQ(child<QLineEdit>(&dialog, "txtIroNo")->text(), QStringLiteral("040"));
        EXPECT_EQ(child<QComboBox>(&dialog, "cboToryo")->currentText(), QStringLiteral("ｿﾘｯﾄﾞ"));
        child<QLineEdit>(&dialog, "txtIroNo")->setText(QStringLiteral("1F7"));
        child<QPushButton>(&dialog, "CancelButton")->click();
    }
    EXPECT_EQ(session.vehicle[13], QStringLiteral("040"));
    {
        DlgToryo dialog(session, messages, kinds, hf);
        auto *cls = child<QComboBox>(&dialog, "cboJidousya");
        cls->setCurrentIndex(1);
        Q_EMIT cls->activated(1);
        child<QComboBox>(&dialog, "cboToryo")->setCurrentIndex(2);
        child<QComboBox>(&dialog, "cboKoukino")->setCurrentIndex(1);
        child<QPushButton>(&dialog, "OKButton")->click();
    }
    EXPECT_EQ(session.paint.vehicleClass, QStringLiteral("普通"));
    EXPECT_EQ(session.vehicle[14], QStringLiteral("ﾒﾀﾘｯｸ"));
    EXPECT_EQ(session.vehicle[15], QStringLiteral("ﾌｯｿｺｰﾄ"));

    session.paint.vehicleClass = QStringLiteral("大型");
    DlgToryo unknown(session, messages, kinds, hf);
    EXPECT_EQ(child<QComboBox>(&unknown, "cboJidousya")->currentText(), QString());
}
