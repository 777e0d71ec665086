// The estimate search in the open dialog, through the program's screens: a saved estimate is
// in the library at once, found by a fragment of its customer name and opened from the results.

#include "library_fixture.h"
#include "program_fixture.h"
#include "reports/estimate_library.h"
#include "reports/library_progress.h"
#include "workbook/dlg_open.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

using namespace est;

namespace {

void clickRow(QTableWidget *grid, int row, bool twice = false)
{
    const QRect rect = grid->visualItemRect(grid->item(row, 0));
    // A double click follows a press, as a person's does.
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, rect.center());
    if (twice)
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, rect.center());
}

// The sheet shows the estimate of that customer, read from that workbook.
void expectOpened(test::Program &p, const QString &customer, const QString &fileName)
{
    ASSERT_TRUE(p.context().sheet->isVisible());
    EXPECT_EQ(p.sheetChild<QLineEdit>("txtName")->text(), customer);
    EXPECT_EQ(p.session.fileName, fileName);
}

QStringList resultFiles(QTableWidget *grid)
{
    QStringList names;
    for (int r = 0; r < grid->rowCount(); ++r)
        names << grid->item(r, grid->columnCount() - 1)->text();
    return names;
}

TEST(EstimateSearch, ASavedEstimateIsFoundByItsCustomerAndOpenedFromTheResults)
{
    test::Program p;
    test::EstimateSpec other;
    other.customer = QStringLiteral("鈴木花子");
    other.registration = QStringLiteral("練馬 300 さ 56-78");
    test::saveWorkbook(p.folder, QStringLiteral("231201鈴木.xlsx"), test::estimateOf(other));
    p.start();
    app::AppContext &c = p.context();
    c.start->button("cmdSin")->click();
    ASSERT_TRUE(c.sheet->isVisible());
    p.sheetChild<QLineEdit>("txtName")->setText(QStringLiteral("山田 太郎"));
    p.sheetChild<QLineEdit>("txtTouroku")->setText(QStringLiteral("品川500あ1234"));
    p.sheetChild<QPushButton>("cmdSave")->click();

    // The save recorded the estimate before any search ran.
    reports::EstimateLibrary library(p.folder.path());
    ASSERT_EQ(library.open(), QString());
    ASSERT_EQ(library.search({QStringLiteral("太郎")}).size(), 1);

    c.sheet->hide();
    c.sheet->clearEstimate();
    c.start->show();
    QStringList listed, narrowed;
    p.dialogs.on(QStringLiteral("dlgOpen"), [&](QWidget *d) {
        auto *grid = d->findChild<QTableWidget *>(QStringLiteral("grdResults"));
        listed = resultFiles(grid);
        d->findChild<QLineEdit *>(QStringLiteral("txtSearch"))->setText(QStringLiteral("ﾀﾛｳ"));
        EXPECT_EQ(grid->rowCount(), 0);   // katakana does not find kanji
        d->findChild<QLineEdit *>(QStringLiteral("txtSearch"))->setText(QStringLiteral("１２３４"));
        narrowed = resultFiles(grid);
        if (grid->rowCount() == 1)
            clickRow(grid, 0, true);
    });
    c.start->button("cmdHen")->click();
    EXPECT_EQ(listed, (QStringList{QStringLiteral("240105TEST.xlsx"), QStringLiteral("231201鈴木.xlsx")}));
    EXPECT_EQ(narrowed, QStringList{QStringLiteral("240105TEST.xlsx")});
    expectOpened(p, QStringLiteral("山田 太郎"), QStringLiteral("240105TEST.xlsx"));
}

TEST(EstimateSearch, ChoosingAResultSelectsItsFileSoThatOkOpensIt)
{
    test::Program p;
    test::EstimateSpec tableSpec;
    tableSpec.customer = QStringLiteral("佐藤一郎");
    tableSpec.kind = 4;
    test::saveWorkbook(p.folder, QStringLiteral("2024/240105佐藤.xlsx"), test::estimateOf(tableSpec));
    QFile broken(p.folder.file(QStringLiteral("Mitsumori/壊れた.xlsx")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("not a workbook");
    broken.close();
    p.start();
    app::AppContext &c = p.context();
    QString brokenKind;
    p.dialogs.on(QStringLiteral("dlgOpen"), [&](QWidget *d) {
        auto *grid = d->findChild<QTableWidget *>(QStringLiteral("grdResults"));
        d->findChild<QComboBox *>(QStringLiteral("cboKind"))->setCurrentIndex(5);   // 請求書
        ASSERT_EQ(grid->rowCount(), 2);
        for (int r = 0; r < 2; ++r)
            if (grid->item(r, 7)->text() == QStringLiteral("壊れた.xlsx"))
                brokenKind = grid->item(r, 2)->text();
        d->findChild<QLineEdit *>(QStringLiteral("txtSearch"))->setText(QStringLiteral("佐藤"));
        clickRow(grid, 0);
        EXPECT_EQ(d->findChild<QListWidget *>(QStringLiteral("File1"))->currentItem()->text(),
                  QStringLiteral("240105佐藤.xlsx"));
        d->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    });
    c.start->button("cmdHen")->click();
    EXPECT_EQ(brokenKind, QStringLiteral("読み取れません"));
    expectOpened(p, QStringLiteral("佐藤一郎"), QStringLiteral("2024/240105佐藤.xlsx"));
}

TEST(EstimateSearch, EnterGoesFromTheSearchToTheResultsAndOpensOne)
{
    test::Program p;
    test::EstimateSpec tableSpec;
    tableSpec.customer = QStringLiteral("高橋次郎");
    test::saveWorkbook(p.folder, QStringLiteral("240105高橋.xlsx"), test::estimateOf(tableSpec));
    test::saveWorkbook(p.folder, QStringLiteral("240104other.xlsx"), test::estimateOf({}));
    p.start();
    app::AppContext &c = p.context();
    int messagesAfterFirstEnter = -1;
    p.dialogs.on(QStringLiteral("dlgOpen"), [&](QWidget *d) {
        auto *search = d->findChild<QLineEdit *>(QStringLiteral("txtSearch"));
        search->setText(QStringLiteral("高橋"));
        QTest::keyClick(search, Qt::Key_Return);
        messagesAfterFirstEnter = int(p.messages.shown.size());   // OK did not act: no "ファイルがありません"
        EXPECT_TRUE(d->isVisible());
        QTest::keyClick(d->findChild<QTableWidget *>(QStringLiteral("grdResults")), Qt::Key_Return);
    });
    c.start->button("cmdHen")->click();
    EXPECT_EQ(messagesAfterFirstEnter, 0);
    expectOpened(p, QStringLiteral("高橋次郎"), QStringLiteral("240105高橋.xlsx"));
}

TEST(EstimateSearch, ManyNewWorkbooksAreReadBehindAProgressBar)
{
    test::TempAppFolder folder;
    for (int i = 0; i < reports::kProgressFrom + 2; ++i)
        test::saveWorkbook(folder, QStringLiteral("%1.xlsx").arg(i), test::estimateOf({}));
    reports::EstimateLibrary library(folder.path());
    ASSERT_EQ(library.open(), QString());
    QWidget parent;
    int maximum = 0;
    QTimer::singleShot(0, [&maximum] {
        for (QWidget *w : QApplication::topLevelWidgets())
            if (auto *bar = w->findChild<QProgressBar *>(); bar && w->objectName() == QStringLiteral("dlgLibraryProgress"))
                maximum = bar->maximum();
    });
    const reports::RefreshOutcome outcome = reports::refreshWithProgress(library, test::mitsumori(folder), &parent);
    EXPECT_EQ(outcome.read, reports::kProgressFrom + 2);
    EXPECT_EQ(maximum, reports::kProgressFrom + 2);
}

} // namespace
