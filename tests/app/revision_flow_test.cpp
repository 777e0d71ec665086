// Revised estimates through the screens: 修正見積 on the sheet saves the estimate and continues
// it as revision 2, 3 ...; the open dialog lists the revisions as one estimate and opens the
// newest; printing shows the revision; 比較 compares the open revision with the one before.

#include "compare/frm_hikaku.h"
#include "print/print_document.h"
#include "print/saved_estimate.h"
#include "program_fixture.h"
#include "sheet/frm_mitumori.h"
#include "when_modal.h"

#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <gtest/gtest.h>

namespace est {
namespace {

QByteArray bytesOf(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

TEST(RevisionFlow, ContinuesTheEstimateAsRevisionsAndNeverWritesAnEarlierOne)
{
    test::Program p;
    p.start();
    app::AppContext &c = p.context();
    c.start->button("cmdSin")->click();
    ASSERT_TRUE(c.sheet->isVisible());
    p.sheetChild<QLineEdit>("txtName")->setText(QStringLiteral("山田 太郎"));

    p.sheetChild<QPushButton>("cmdRevise")->click();
    const QString first = p.folder.file(QStringLiteral("Mitsumori/240105TEST.xlsx"));
    const QString second = p.folder.file(QStringLiteral("Mitsumori/240105TEST_R2.xlsx"));
    ASSERT_TRUE(QFileInfo::exists(first)) << p.messages.lastText().toStdString();
    ASSERT_TRUE(QFileInfo::exists(second)) << p.messages.lastText().toStdString();
    EXPECT_EQ(p.messages.lastText(), QStringLiteral("修正2として保存しました。\nファイル名　240105TEST_R2.xlsx"));
    EXPECT_EQ(c.sheet->windowTitle(), QStringLiteral("見積書作成　修正2"));
    EXPECT_EQ(p.session.revision, 2);
    const QByteArray firstBytes = bytesOf(first);

    // Later saves go to the revision; the first stays as it was.
    p.sheetChild<QLineEdit>("txtName")->setText(QStringLiteral("山田 次郎"));
    p.sheetChild<QPushButton>("cmdSave")->click();
    EXPECT_EQ(bytesOf(first), firstBytes);
    QString error;
    const auto saved = print::loadSavedEstimate(second, &error);
    ASSERT_TRUE(saved) << error.toStdString();
    EXPECT_EQ(saved->session.header.customerName, QStringLiteral("山田 次郎"));
    EXPECT_EQ(print::buildPrintDocument(saved->session, saved->honorific, {}).revision, QStringLiteral("修正2"));

    // A change not yet saved is saved into revision 2 before revision 3 begins.
    p.sheetChild<QLineEdit>("txtName")->setText(QStringLiteral("山田 三郎"));
    p.sheetChild<QPushButton>("cmdRevise")->click();
    EXPECT_EQ(print::loadSavedEstimate(second, &error)->session.header.customerName, QStringLiteral("山田 三郎"));
    EXPECT_TRUE(QFileInfo::exists(p.folder.file(QStringLiteral("Mitsumori/240105TEST_R3.xlsx"))));
    EXPECT_EQ(bytesOf(first), firstBytes);

    // The open dialog shows the estimate once, under its newest revision, and opens it.
    c.sheet->hide();
    c.sheet->clearEstimate();
    EXPECT_EQ(c.sheet->windowTitle(), QStringLiteral("見積書作成"));
    c.start->show();
    QStringList listed, revisions;
    p.dialogs.on(QStringLiteral("dlgOpen"), [&listed, &revisions](QWidget *d) {
        auto *files = d->findChild<QListWidget *>(QStringLiteral("File1"));
        for (int i = 0; i < files->count(); ++i)
            listed.append(files->item(i)->text());
        files->setCurrentRow(0);
        auto *box = d->findChild<QComboBox *>(QStringLiteral("cboRevision"));
        for (int i = 0; i < box->count(); ++i)
            revisions.append(box->itemText(i));
        d->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    });
    c.start->button("cmdHen")->click();
    EXPECT_EQ(listed, QStringList{QStringLiteral("240105TEST_R3.xlsx")});
    EXPECT_EQ(revisions, (QStringList{QStringLiteral("修正3　240105TEST_R3.xlsx"), QStringLiteral("修正2　240105TEST_R2.xlsx"),
                                      QStringLiteral("当初　240105TEST.xlsx")}));
    ASSERT_TRUE(c.sheet->isVisible());
    EXPECT_EQ(p.session.revision, 3);
    EXPECT_EQ(c.sheet->windowTitle(), QStringLiteral("見積書作成　修正3"));

    // 比較 on the sheet: the open revision against the one before it.
    test::whenModal(QStringLiteral("frmHikaku"), [](QDialog *frm) {
        EXPECT_TRUE(frm->findChild<QLineEdit *>(QStringLiteral("txtOld"))->text().endsWith(QStringLiteral("240105TEST_R2.xlsx")));
        EXPECT_TRUE(frm->findChild<QLineEdit *>(QStringLiteral("txtNew"))->text().endsWith(QStringLiteral("240105TEST_R3.xlsx")));
        frm->findChild<QPushButton *>(QStringLiteral("cmdCompare"))->click();
        EXPECT_EQ(frm->findChild<QTableWidget *>(QStringLiteral("HFlgTotals"))->rowCount(), 7);
        frm->findChild<QPushButton *>(QStringLiteral("cmdClose"))->click();
    });
    p.sheetChild<QPushButton>("cmdHikaku")->click();
}

} // namespace
} // namespace est
