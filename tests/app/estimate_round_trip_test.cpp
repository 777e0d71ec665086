// A whole estimate made through the program's screens, saved, closed and opened again: every
// figure on the sheet comes back as it was.

#include "program_fixture.h"
#include "sheet/frm_mitumori.h"
#include "when_modal.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

using namespace est;

namespace {

const char *const kFigures[] = {"lblKoutin", "lblBuhin", "lblSkei", "lblGokei", "lblNGo", "lblZeiritu",
                                "lblSZei", "lblZkomi", "lblHZei", "lblKei", "lblSeikyu", "lblGKei",
                                "lblHiduke", "lblBun1", "lblKBun", "lblJisya"};
const char *const kFields[] = {"txtName", "txtKaisya", "txtSname", "txtTouroku", "txtMemo",
                               "txtNebiki1", "txtNebiki2", "txtAzukari"};

QMap<QString, QString> sheetTexts(test::Program &p)
{
    QMap<QString, QString> texts;
    for (const char *name : kFigures)
        texts[name] = p.sheetChild<QLabel>(name)->text();
    for (const char *name : kFields)
        texts[name] = p.sheetChild<QLineEdit>(name)->text();
    auto *grid = p.sheetChild<QTableWidget>("HFlgSS");
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 10; ++c)
            texts[QStringLiteral("grid %1,%2").arg(r).arg(c)] = grid->item(r, c)->text();
    return texts;
}

} // namespace

TEST(EstimateRoundTrip, MadeThroughTheScreensSavedAndOpenedAgain)
{
    test::Program p;
    p.start();
    app::AppContext &c = p.context();
    // A shop with a 10 % tax rate.
    p.session.company[2] = QStringLiteral("見本自動車");
    p.session.company[11] = QStringLiteral("10");
    c.sheet->showCompany();
    p.session.labourRate = 5000;
    p.session.maker = QStringLiteral("日産");
    p.session.makerDb = QStringLiteral("Nissan");
    p.session.vehicleType = QStringLiteral("ミニバン");
    p.session.typeTable = QStringLiteral("T_Minivan");

    p.dialogs.on("dlgFname", [](QWidget *d) {
        d->findChild<QLineEdit *>("txtFname")->setText(QStringLiteral("山田様"));
        d->findChild<QPushButton *>("cmdOK")->click();
    });
    c.start->button("cmdSin")->click();
    ASSERT_TRUE(c.sheet->isVisible());

    // Two work items from the catalogue.
    test::whenModal("frmSakusei", [](QDialog *editor) {
        for (int i = 0; i < 2; ++i) {
            editor->findChild<QListWidget *>("dlstB")->setCurrentRow(i);
            editor->findChild<QListWidget *>("dlstK")->setCurrentRow(0);
            auto *parts = editor->findChild<QTableWidget *>("HFlg4");
            parts->setCurrentCell(0, 1);
            QTest::keyClicks(editor->findChild<QLineEdit *>("txtSisu"), i == 0 ? "1.5" : ".5");
            QTest::keyClicks(editor->findChild<QLineEdit *>("txtBTan"), "12345");
            QTest::keyClicks(editor->findChild<QLineEdit *>("txtBKo"), "2");
            editor->findChild<QPushButton *>("cmdAdd")->click();
        }
        editor->findChild<QPushButton *>("cmdOK")->click();
    });
    p.sheetChild<QPushButton>("cmdSakusei")->click();
    ASSERT_EQ(p.session.rows.size(), 2);
    EXPECT_EQ(p.sheetChild<QTableWidget>("HFlgSS")->item(0, 6)->text(), QStringLiteral("7,500"));
    EXPECT_EQ(p.sheetChild<QTableWidget>("HFlgSS")->item(1, 5)->text(), QStringLiteral("0.50"));
    // Labour 7,500 + 2,500; parts 2 x 24,690.
    EXPECT_EQ(p.sheetChild<QLabel>("lblSkei")->text(), QStringLiteral("59,380"));

    // Header, a discount rate, a non-taxable item and an advance, all typed.
    p.sheetChild<QComboBox>("cboHdai")->setCurrentIndex(3);
    p.sheetChild<QLineEdit>("txtName")->setText(QStringLiteral("山田 太郎"));
    p.sheetChild<QLineEdit>("txtKaisya")->setText(QStringLiteral("O'Neil, 商会"));
    p.sheetChild<QLineEdit>("txtTouroku")->setText(QStringLiteral("練馬500あ1234"));
    p.sheetChild<QLineEdit>("txtMemo")->setText(QStringLiteral("代車あり"));
    QTest::keyClicks(p.sheetChild<QLineEdit>("txtNebiki1"), "5");
    test::whenModal("dlgHikazei", [](QDialog *d) {
        d->findChild<QLineEdit *>("txtKoumoku")->setText(QStringLiteral("自賠責保険料"));
        d->findChild<QLineEdit *>("txtKingaku")->setText(QStringLiteral("17650"));
        d->findChild<QPushButton *>("cmdAdd")->click();
        d->findChild<QPushButton *>("cmdOK")->click();
    });
    p.sheetChild<QPushButton>("cmdHikazei")->click();
    QTest::keyClicks(p.sheetChild<QLineEdit>("txtAzukari"), "10000");
    Q_EMIT p.sheetChild<QLineEdit>("txtAzukari")->editingFinished(); // the user leaves the field
    EXPECT_EQ(p.sheetChild<QLineEdit>("txtAzukari")->text(), QStringLiteral("10,000"));

    // 59,380 - 5 % (2,969) = 56,411; tax 5,641.1 -> 5,641; 62,052 + 17,650 = 79,702; - 10,000.
    EXPECT_EQ(p.sheetChild<QLineEdit>("txtNebiki2")->text(), QStringLiteral("2,969"));
    EXPECT_EQ(p.sheetChild<QLabel>("lblSZei")->text(), QStringLiteral("5,641"));
    EXPECT_EQ(p.sheetChild<QLabel>("lblKei")->text(), QStringLiteral("79,702"));
    EXPECT_EQ(p.sheetChild<QLabel>("lblSeikyu")->text(), QStringLiteral("69,702"));
    const QMap<QString, QString> before = sheetTexts(p);

    p.sheetChild<QPushButton>("cmdSave")->click();
    const QString path = p.folder.file(QStringLiteral("Mitsumori/240105山田様.xlsx"));
    ASSERT_TRUE(QFileInfo::exists(path)) << p.messages.lastText().toStdString();

    // Another estimate clears the sheet; then the saved one is opened again.
    c.sheet->hide();
    c.start->show();
    c.start->button("cmdSin")->click();
    EXPECT_EQ(p.sheetChild<QLabel>("lblSkei")->text(), QString());
    EXPECT_TRUE(p.session.customer.join(QString()).isEmpty());
    p.reopen(QStringLiteral("240105山田様.xlsx"));
    ASSERT_TRUE(c.sheet->isVisible());
    const QMap<QString, QString> after = sheetTexts(p);
    for (auto it = before.begin(); it != before.end(); ++it)
        EXPECT_EQ(after.value(it.key()), it.value()) << it.key().toStdString();
    EXPECT_TRUE(p.session.editExisting);
    EXPECT_EQ(p.session.nonTaxable.names, QStringList({QStringLiteral("自賠責保険料")}));
}
