// An .xls estimate as a shop meets it: listed by dlgOpen beside the .xlsx ones with its kind,
// opened through the whole program like one of ours, and saved as .xlsx beside it, with the
// notice shown once and the .xls left as it was.

#include "program_fixture.h"
#include "sample_estimate.h"
#include "scripted_messages.h"
#include "sheet/frm_mitumori.h"
#include "temp_app_folder.h"
#include "workbook/dlg_open.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"
#include "workbook/xls_book.h"
#include "xls_samples.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <gtest/gtest.h>

using namespace est;
using namespace est::workbook;

namespace {

// Copies a committed sample into Mitsumori under the name given.
QString placeSample(const QString &appFolder, const QString &sample, const QString &name)
{
    const QString target = QDir(estimatesFolder(appFolder)).filePath(name);
    QDir().mkpath(QFileInfo(target).path());
    QFile::copy(QDir(test::xlsSampleFolder()).filePath(sample + QStringLiteral(".xls")), target);
    return target;
}

Session sampleSession(const QString &name)
{
    for (const auto &s : test::xlsSamples())
        if (s.name == name)
            return s.session;
    return {};
}

} // namespace

TEST(DlgOpen, ListsXlsBesideXlsxAndShowsTheKind)
{
    test::TempAppFolder folder;
    const QString dir = estimatesFolder(folder.path());
    QDir().mkpath(dir);
    for (const char *name : {"240105A.xlsx", "230105B.xls", "NewFile.xls", "notes.txt"})
        QFile(QDir(dir).filePath(QString::fromUtf8(name))).open(QIODevice::WriteOnly);
    test::ScriptedMessages messages;
    QStringList loaded;
    DlgOpen dialog(dir, [&](const QString &name) { loaded.append(name); return true; }, messages);
    auto *files = dialog.findChild<QListWidget *>(QStringLiteral("File1"));
    auto *kind = dialog.findChild<QLabel *>(QStringLiteral("lblKind"));
    ASSERT_TRUE(files && kind);
    QStringList listed;
    for (int i = 0; i < files->count(); ++i)
        listed.append(files->item(i)->text());
    EXPECT_EQ(listed, (QStringList{"230105B.xls", "240105A.xlsx", "NewFile.xls"}));

    files->setCurrentRow(0);
    EXPECT_EQ(kind->text(), QStringLiteral("種類：Excel 97-2003 ブック（.xls、保存すると .xlsx になります）"));
    files->setCurrentRow(1);
    EXPECT_EQ(kind->text(), QStringLiteral("種類：Excel ブック（.xlsx）"));

    // The old template's name is refused like the new one's.
    files->setCurrentRow(2);
    dialog.findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    EXPECT_EQ(messages.lastText(), QStringLiteral(" このファイルは変更できません。\n変更すると、正しく印刷できない場合があります。"));
    files->setCurrentRow(0);
    dialog.findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    EXPECT_EQ(loaded, QStringList{QStringLiteral("230105B.xls")});
}

class XlsSaved : public ::testing::TestWithParam<test::XlsSample>
{
};

TEST_P(XlsSaved, OpensAndIsSavedAsXlsxBesideIt)
{
    struct
    {
        test::TempAppFolder folder;
        test::ScriptedMessages messages;
    } p;
    const QString xls = placeSample(p.folder.path(), GetParam().name, QStringLiteral("古い/230105古い.xls"));
    const QByteArray before = test::fileBytes(xls);
    Session opened;
    ASSERT_TRUE(openEstimateWorkbook(opened, p.messages, p.folder.path(), QStringLiteral("古い/230105古い.xls")));
    EXPECT_EQ(test::storedFields(opened), [] {
        Session expected;
        auto book = Workbook::fromBytes(estimateWorkbookBytes(test::templateBytes(), GetParam().session));
        readEstimate(*book, expected);
        return test::storedFields(expected);
    }());
    EXPECT_EQ(opened.fileName, QStringLiteral("古い/230105古い.xls"));

    // Saved as .xlsx beside it, announced once; the .xls stays as it was.
    opened.editExisting = true;
    p.messages.shown.clear();
    ASSERT_TRUE(saveEstimateWorkbook(opened, p.messages, p.folder.path()));
    ASSERT_TRUE(saveEstimateWorkbook(opened, p.messages, p.folder.path()));
    QStringList notices;
    for (const auto &m : p.messages.shown)
        notices.append(m.text);
    EXPECT_EQ(notices.count(kSavedAsXlsxNotice), 1) << notices.join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(opened.fileName, QStringLiteral("古い/230105古い.xlsx"));
    const QString xlsx = QDir(estimatesFolder(p.folder.path())).filePath(QStringLiteral("古い/230105古い.xlsx"));
    EXPECT_EQ(test::fileBytes(xls), before);

    // The .xlsx round-trips: it holds what the .xls held.
    Session again;
    auto book = Workbook::open(xlsx);
    readEstimate(*book, again);
    again.fileName = opened.fileName;
    again.workbookPath = opened.workbookPath;
    EXPECT_EQ(test::storedFields(again), test::storedFields(opened));
}

INSTANTIATE_TEST_SUITE_P(Samples, XlsSaved, ::testing::ValuesIn(test::xlsSamples()),
                         [](const ::testing::TestParamInfo<test::XlsSample> &info) { return info.param.name.toStdString(); });

TEST(Program, ReopensAnXlsThroughTheScreens)
{
    test::Program p;
    placeSample(p.folder.path(), QStringLiteral("kind3"), QStringLiteral("230105請求.xls"));
    p.start();
    p.reopen(QStringLiteral("230105請求.xls"));
    ASSERT_TRUE(p.context().sheet->isVisible()) << p.messages.lastText().toStdString();
    EXPECT_EQ(p.context().session.fileName, QStringLiteral("230105請求.xls"));
    EXPECT_EQ(p.context().session.header.customerName, sampleSession(QStringLiteral("kind3")).header.customerName);
}
