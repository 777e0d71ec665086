// frmHikaku driven offscreen through its controls, on two saved workbooks.

#include "compare/frm_hikaku.h"
#include "comparison_samples.h"
#include "print_samples.h"
#include "scripted_messages.h"
#include "temp_app_folder.h"
#include "widget_lookup.h"

#include <QFile>
#include <QTableWidget>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace est::compare {
namespace {

QStringList tableRow(QTableWidget *t, int row)
{
    QStringList cells;
    for (int c = 0; c < t->columnCount(); ++c)
        cells.append(t->item(row, c) ? t->item(row, c)->text() : QString());
    return cells;
}

class FrmHikakuTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        test::installShop(m_app.path(), test::sampleShop());
        m_before = test::saveWorkbook(test::earlierEstimate(), m_dir.path(), QStringLiteral("240105A.xlsx"));
        m_after = test::saveWorkbook(test::laterEstimate(), m_dir.path(), QStringLiteral("240112A_R2.xlsx"));
    }

    QTemporaryDir m_dir;
    test::TempAppFolder m_app;
    test::ScriptedMessages m_messages;
    QString m_before;
    QString m_after;
    QStringList m_asked;   // folders the chooser was opened on
};

TEST_F(FrmHikakuTest, ComparesTheChosenWorkbookWithTheLaterOneAndSavesThePdf)
{
    FrmHikaku frm(m_messages, m_app.path(), [this](QWidget *, const QString &folder) {
        m_asked.append(folder);
        return m_before;
    });
    frm.setWorkbooks(QString(), m_after);
    test::click(&frm, "cmdOld");
    EXPECT_EQ(m_asked, QStringList{m_dir.path()});
    EXPECT_EQ(test::child<QLineEdit>(&frm, "txtOld")->text(), m_before);
    test::click(&frm, "cmdCompare");
    ASSERT_TRUE(frm.report().has_value()) << m_messages.lastText().toStdString();

    auto *work = test::child<QTableWidget>(&frm, "HFlgWork");
    ASSERT_EQ(work->rowCount(), 4);
    EXPECT_EQ(tableRow(work, 0), (QStringList{"変更", "前部", "フロントバンパー", "52119-47908", "取替", "前", "1.20",
                                              "8,400", "32,500", "1", "32,500"}));
    EXPECT_EQ(tableRow(work, 3).mid(0, 3), (QStringList{"削除", "前部", "ヘッドランプ（右）"}));
    EXPECT_EQ(test::child<QTableWidget>(&frm, "HFlgPaint")->rowCount(), 2);
    auto *totals = test::child<QTableWidget>(&frm, "HFlgTotals");
    ASSERT_EQ(totals->rowCount(), 7);
    EXPECT_EQ(tableRow(totals, 6), (QStringList{"請求金額", "198,462", "151,470", "-46,992"}));
    EXPECT_TRUE(test::child<QLabel>(&frm, "lblSides")->text().contains(QStringLiteral("No. 000000131")));

    test::click(&frm, "cmdPdf");
    EXPECT_EQ(frm.pdfPath(), m_dir.filePath(QStringLiteral("240112A_R2_修正内容比較表.pdf")));
    EXPECT_TRUE(QFile::exists(frm.pdfPath()));
    EXPECT_TRUE(m_messages.lastText().startsWith(QStringLiteral("PDFファイルを保存しました。")));
    if (test::havePdfTools())
        EXPECT_TRUE(test::squeezed(test::pdfText(frm.pdfPath())).contains(QStringLiteral("請求金額198,462151,470-46,992")));
}

TEST_F(FrmHikakuTest, AsksForBothWorkbooksAndNamesOneItCannotRead)
{
    FrmHikaku frm(m_messages, m_app.path(), [](QWidget *, const QString &) { return QString(); });
    frm.setWorkbooks(QString(), m_after);
    test::click(&frm, "cmdOld");   // cancelled: still empty
    test::click(&frm, "cmdCompare");
    EXPECT_EQ(m_messages.lastText(), QStringLiteral("比較する2つの見積ブックを選んでください。"));
    EXPECT_FALSE(frm.report().has_value());

    frm.setWorkbooks(m_dir.filePath(QStringLiteral("gone.xlsx")), m_after);
    test::click(&frm, "cmdCompare");
    EXPECT_TRUE(m_messages.lastText().startsWith(QStringLiteral("gone.xlsx を読めません。")))
        << m_messages.lastText().toStdString();
    EXPECT_EQ(test::child<QTableWidget>(&frm, "HFlgWork")->rowCount(), 0);
}

} // namespace
} // namespace est::compare
