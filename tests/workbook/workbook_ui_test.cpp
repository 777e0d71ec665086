// The file-name and open dialogs, saving with its questions, and the whole program saving
// and reopening an estimate through its screens.

#include "program_fixture.h"
#include "when_modal.h"
#include "app/app_controller.h"
#include "app/dlg_hajime.h"
#include "fixed_clock.h"
#include "sample_estimate.h"
#include "scripted_messages.h"
#include "sheet/frm_mitumori.h"
#include "temp_app_folder.h"
#include "workbook/dlg_fname.h"
#include "workbook/dlg_open.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"
#include "workbook/workbook_store.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace est;
using namespace est::workbook;

namespace {

QByteArray fileBytes(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Runs `act` on the next modal dialog of that objectName once it is shown.
struct Fixture
{
    test::TempAppFolder folder;
    Session session;
    test::ScriptedMessages messages;
    test::FixedClock clock{QDate(2024, 1, 5)};
    WorkbookStore store{session, messages, clock, folder.path(), nullptr, nullptr};
    QString saved(const QString &name) const { return QDir(estimatesFolder(folder.path())).filePath(name); }
};

} // namespace

TEST(DlgFname, LabelFollowsEveryKeystroke)
{
    test::FixedClock clock(QDate(2024, 3, 15));
    test::ScriptedMessages messages;
    DlgFname dialog(clock, messages);
    auto *text = dialog.findChild<QLineEdit *>(QStringLiteral("txtFname"));
    auto *label = dialog.findChild<QLabel *>(QStringLiteral("lblFname"));
    ASSERT_TRUE(text && label);
    EXPECT_EQ(label->text(), QStringLiteral("240315.xlsx"));
    QTest::keyClicks(text, QStringLiteral("AB"));
    EXPECT_EQ(label->text(), QStringLiteral("240315AB.xlsx"));
    QTest::keyClicks(text, QStringLiteral("C"));
    EXPECT_EQ(label->text(), QStringLiteral("240315ABC.xlsx"));
    text->setText(QStringLiteral("山田様"));
    EXPECT_EQ(dialog.fileName(), QStringLiteral("240315山田様.xlsx"));
    QTest::keyClicks(text, QStringLiteral("/.."));   // no folder separators
    EXPECT_EQ(dialog.fileName(), QStringLiteral("240315山田様...xlsx"));
}

TEST(DlgFname, OkNamesTheEstimateCancelChangesNothing)
{
    Fixture x;
    test::whenModal("dlgFname", [](QDialog *d) {
        d->findChild<QLineEdit *>(QStringLiteral("txtFname"))->setText(QStringLiteral("ABC"));
        d->findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
    });
    EXPECT_FALSE(x.store.askFileName());
    EXPECT_TRUE(x.session.fileName.isEmpty());
    EXPECT_EQ(x.session.sheetState, SheetState::NotStarted);

    test::whenModal("dlgFname", [](QDialog *d) {
        d->findChild<QLineEdit *>(QStringLiteral("txtFname"))->setText(QStringLiteral("ABC"));
        d->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    });
    EXPECT_TRUE(x.store.askFileName());
    EXPECT_EQ(x.session.fileName, QStringLiteral("240105ABC.xlsx"));
    EXPECT_EQ(x.session.fileNameText, QStringLiteral("ABC"));
    EXPECT_EQ(x.session.sheetState, SheetState::NameChosen);
}

TEST(DlgOpen, RefusesNoSelectionAndTheTemplate)
{
    test::TempAppFolder folder;
    const QString dir = estimatesFolder(folder.path());
    QDir().mkpath(dir);
    for (const char *name : {"NewFile.xlsx", "240105A.xlsx"}) {
        QFile f(QDir(dir).filePath(QString::fromLatin1(name)));
        f.open(QIODevice::WriteOnly);
    }
    test::ScriptedMessages messages;
    QStringList loaded;
    DlgOpen dialog(dir, [&](const QString &name) { loaded.append(name); return true; }, messages);
    auto *files = dialog.findChild<QListWidget *>(QStringLiteral("File1"));
    ASSERT_EQ(files->count(), 2);

    dialog.findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.shown[0].text, QStringLiteral("ファイルがありません。\n選択し直してください。"));
    EXPECT_EQ(messages.shown[0].title, QStringLiteral("ファイルがありません"));
    EXPECT_EQ(messages.shown[0].icon, MessageIcon::Exclamation);

    files->setCurrentItem(files->findItems(QStringLiteral("NewFile.xlsx"), Qt::MatchExactly).first());
    dialog.findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    ASSERT_EQ(messages.shown.size(), 2);
    EXPECT_EQ(messages.shown[1].text,
              QStringLiteral(" このファイルは変更できません。\n変更すると、正しく印刷できない場合があります。"));
    EXPECT_EQ(messages.shown[1].title, QStringLiteral("警告！"));
    EXPECT_EQ(messages.shown[1].icon, MessageIcon::Critical);
    EXPECT_TRUE(loaded.isEmpty());

    files->setCurrentItem(files->findItems(QStringLiteral("240105A.xlsx"), Qt::MatchExactly).first());
    dialog.findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    EXPECT_EQ(loaded, QStringList{QStringLiteral("240105A.xlsx")});
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST(OpenEstimate, MissingOrBrokenFileLeavesTheEstimateAlone)
{
    Fixture x;
    x.session = test::fullEstimate(3);
    const QStringList before = test::storedFields(x.session);
    EXPECT_FALSE(openEstimateWorkbook(x.session, x.messages, x.folder.path(), QStringLiteral("240105X.xlsx")));
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("240105X.xlsxが存在しません。\nもう一度ファイルを確認してください。"));
    EXPECT_EQ(x.messages.shown.last().icon, MessageIcon::Information);

    QDir().mkpath(estimatesFolder(x.folder.path()));
    QFile f(x.saved(QStringLiteral("240105B.xlsx")));
    f.open(QIODevice::WriteOnly);
    f.write("not a workbook");
    f.close();
    EXPECT_FALSE(openEstimateWorkbook(x.session, x.messages, x.folder.path(), QStringLiteral("240105B.xlsx")));
    EXPECT_TRUE(x.messages.lastText().startsWith(QStringLiteral("240105B.xlsxを開けませんでした。\n")));
    EXPECT_EQ(test::storedFields(x.session), before);
}

TEST(SaveEstimate, NewEstimateOverAnExistingFileAsksToDelete)
{
    Fixture x;
    x.session = test::randomEstimate(4);
    x.session.fileName = QStringLiteral("240105ABC.xlsx");
    x.session.sheetState = SheetState::NewStarted;
    QDir().mkpath(estimatesFolder(x.folder.path()));
    QFile old(x.saved(x.session.fileName));
    old.open(QIODevice::WriteOnly);
    old.write("old estimate");
    old.close();

    x.messages.answer(Answer::No);
    EXPECT_FALSE(x.store.overwrite());
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.messages.shown[0].text, QStringLiteral("ファイル名　240105ABC.xlsxは既に存在しています。\n"
                                                       "既存のファイルを削除しますか？"));
    EXPECT_EQ(x.messages.shown[0].kind, test::ShownMessage::Kind::YesNo);
    EXPECT_EQ(fileBytes(x.saved(x.session.fileName)), QByteArray("old estimate"));
    EXPECT_EQ(QDir(estimatesFolder(x.folder.path())).entryList(QDir::Files).size(), 1);
    EXPECT_EQ(x.session.sheetState, SheetState::NewStarted);

    x.messages.answer(Answer::Yes);
    EXPECT_TRUE(x.store.overwrite());
    EXPECT_EQ(x.session.sheetState, SheetState::NameChosen);
    Session back;
    ASSERT_TRUE(openEstimateWorkbook(back, x.messages, x.folder.path(), x.session.fileName));
    EXPECT_EQ(test::storedFields(back), test::storedFields(x.session));

    // A second save of the same estimate announces and overwrites.
    x.messages.clear();
    x.session.header.customerName = QStringLiteral("二回目");
    EXPECT_TRUE(x.store.save());
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.messages.shown[0].text, QStringLiteral("ファイル名　240105ABC.xlsxを保存します。"));
    EXPECT_EQ(x.messages.shown[0].icon, MessageIcon::Question);
    ASSERT_TRUE(openEstimateWorkbook(back, x.messages, x.folder.path(), x.session.fileName));
    EXPECT_EQ(back.header.customerName, QStringLiteral("二回目"));
}

TEST(SaveEstimate, OpenedEstimateIsWrittenWithoutQuestions)
{
    Fixture x;
    x.session = test::randomEstimate(6);
    x.session.fileName = QStringLiteral("231224Z.xlsx");
    x.session.editExisting = true;
    ASSERT_TRUE(x.store.overwrite());
    ASSERT_TRUE(x.store.save());
    EXPECT_TRUE(x.messages.shown.isEmpty());
    EXPECT_TRUE(QFileInfo::exists(x.folder.file(QStringLiteral("temp/newfile.xlsx"))));
}

TEST(SaveEstimate, FailedSaveKeepsThePreviousWorkbookAndSaysWhy)
{
    Fixture x;
    x.session = test::randomEstimate(8);
    x.session.fileName = QStringLiteral("240105F.xlsx");
    x.session.editExisting = true;
    ASSERT_TRUE(x.store.save());
    const QByteArray previous = fileBytes(x.saved(x.session.fileName));
    for (SaveStep step : {SaveStep::BuildPackage, SaveStep::OpenTemporary, SaveStep::Write, SaveStep::Commit}) {
        x.messages.clear();
        x.store.setSaveFault([step](SaveStep s, const QString &) { return s == step; });
        x.session.header.customerName = QStringLiteral("変更");
        EXPECT_FALSE(x.store.save());
        EXPECT_EQ(x.messages.shown.size(), 1);
        EXPECT_EQ(x.messages.shown.last().icon, MessageIcon::Critical);
        EXPECT_EQ(fileBytes(x.saved(x.session.fileName)), previous);
        EXPECT_EQ(QDir(estimatesFolder(x.folder.path())).entryList(QDir::Files).size(), 1);
    }
}

// The program as a person uses it: new estimate, file name, save; then open it again.
TEST(Program, SavesAndReopensAnEstimateThroughItsScreens)
{
    test::Program program;
    program.start();
    Session &session = program.session;
    test::ScriptedMessages &messages = program.messages;
    test::TempAppFolder &folder = program.folder;
    app::AppContext &c = program.context();
    EXPECT_TRUE(QFileInfo::exists(folder.file(QStringLiteral("temp/newfile.xlsx"))));
    EXPECT_TRUE(c.start->button("cmdHen")->isEnabled());

    program.dialogs.on("dlgFname", [](QWidget *d) {
        QTest::keyClicks(d->findChild<QLineEdit *>(QStringLiteral("txtFname")), QStringLiteral("ABC"));
        d->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    });
    c.start->button("cmdSin")->click();
    ASSERT_TRUE(c.sheet->isVisible());
    c.sheet->findChild<QLineEdit *>(QStringLiteral("txtName"))->setText(QStringLiteral("山田太郎"));
    session.rows = test::fullEstimate().rows.mid(0, 3);
    session.totals.workTotalA = 12345;
    c.sheet->findChild<QPushButton *>(QStringLiteral("cmdSave"))->click();
    const QString path = QDir(estimatesFolder(folder.path())).filePath(QStringLiteral("240105ABC.xlsx"));
    ASSERT_TRUE(QFileInfo::exists(path)) << messages.lastText().toStdString();

    program.reopen(QStringLiteral("240105ABC.xlsx"));
    ASSERT_TRUE(c.sheet->isVisible());
    EXPECT_EQ(c.sheet->findChild<QLineEdit *>(QStringLiteral("txtName"))->text(), QStringLiteral("山田太郎"));
    EXPECT_EQ(c.sheet->findChild<QLabel *>(QStringLiteral("lblSkei"))->text(), QStringLiteral("12,345"));
    EXPECT_EQ(c.sheet->findChild<QLabel *>(QStringLiteral("lblGokei"))->text(), QStringLiteral("12,345"));
    EXPECT_EQ(session.rows.size(), 3);
    EXPECT_TRUE(session.editExisting);
    EXPECT_EQ(session.fileName, QStringLiteral("240105ABC.xlsx"));
}

// "終了" on a new estimate, answered Yes: the file-name dialog, then the workbook.
TEST(Program, EndingANewEstimateAsksForANameAndSaves)
{
    test::Program program;
    program.start();
    Session &session = program.session;
    test::ScriptedMessages &messages = program.messages;
    test::TempAppFolder &folder = program.folder;
    app::AppContext &c = program.context();
    session.sheetState = SheetState::NewStarted;
    session.header.customerName = QStringLiteral("終了時");
    messages.answer(Answer::Yes);
    program.dialogs.on("dlgFname", [](QWidget *d) {
        d->findChild<QLineEdit *>(QStringLiteral("txtFname"))->setText(QStringLiteral("END"));
        d->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    });
    EXPECT_TRUE(c.sheet->confirmEnd());
    EXPECT_EQ(messages.shown.first().text, QStringLiteral("ファイルを保存しますか？"));
    Session back;
    ASSERT_TRUE(openEstimateWorkbook(back, messages, folder.path(), QStringLiteral("240105END.xlsx")));
    EXPECT_EQ(back.header.customerName, QStringLiteral("終了時"));

    // An opened estimate is written over its workbook.
    session.editExisting = true;
    session.header.customerName = QStringLiteral("上書き");
    messages.answer(Answer::Yes);
    EXPECT_TRUE(c.sheet->confirmEnd());
    EXPECT_EQ(messages.shown.last().text, QStringLiteral("ファイルを上書き保存しますか？"));
    ASSERT_TRUE(openEstimateWorkbook(back, messages, folder.path(), QStringLiteral("240105END.xlsx")));
    EXPECT_EQ(back.header.customerName, QStringLiteral("上書き"));
}

TEST(SaveEstimate, BrokenTemplateIsNamedAndNothingIsWritten)
{
    Fixture x;
    QDir().mkpath(x.folder.file(QStringLiteral("temp")));
    QFile broken(x.folder.file(QStringLiteral("temp/newfile.xlsx")));
    broken.open(QIODevice::WriteOnly);
    broken.write("PK broken");
    broken.close();
    x.session.fileName = QStringLiteral("240105T.xlsx");
    x.session.editExisting = true;
    EXPECT_FALSE(x.store.save());
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("ファイル名　240105T.xlsxを保存できませんでした。\n"
                                                    "見積書のひな形（temp/newfile.xlsx）を読み込めません。\n"
                                                    "Excel形式（.xlsx）のブックではありません。"));
    EXPECT_FALSE(QFileInfo::exists(x.saved(x.session.fileName)));
}

// A new estimate named like a workbook already in the folder: its first save asks before
// replacing the other estimate; only its own later saves are merely announced.
TEST(Program, FirstSaveOfANewEstimateOverAnotherWorkbookAsksToDelete)
{
    test::Program program;
    QDir().mkpath(estimatesFolder(program.folder.path()));
    const QString path = QDir(estimatesFolder(program.folder.path())).filePath(QStringLiteral("240105TEST.xlsx"));
    QFile other(path);
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("another estimate");
    other.close();
    program.start();
    app::AppContext &c = program.context();
    c.start->button("cmdSin")->click();
    ASSERT_TRUE(c.sheet->isVisible());
    ASSERT_EQ(program.session.sheetState, SheetState::NameChosen);
    auto *save = c.sheet->findChild<QPushButton *>(QStringLiteral("cmdSave"));
    program.messages.clear();

    program.messages.answer(Answer::No);
    save->click();
    ASSERT_EQ(program.messages.shown.size(), 1);
    EXPECT_EQ(program.messages.shown[0].text, QStringLiteral("ファイル名　240105TEST.xlsxは既に存在しています。\n"
                                                             "既存のファイルを削除しますか？"));
    EXPECT_EQ(program.messages.shown[0].kind, test::ShownMessage::Kind::YesNo);
    EXPECT_EQ(program.messages.shown[0].icon, MessageIcon::Question);
    EXPECT_EQ(fileBytes(path), QByteArray("another estimate"));

    program.messages.answer(Answer::Yes);
    save->click();
    ASSERT_EQ(program.messages.shown.size(), 2);
    EXPECT_NE(fileBytes(path), QByteArray("another estimate"));

    program.messages.clear();
    save->click();
    ASSERT_EQ(program.messages.shown.size(), 1);
    EXPECT_EQ(program.messages.shown[0].text, QStringLiteral("ファイル名　240105TEST.xlsxを保存します。"));
    EXPECT_EQ(program.messages.shown[0].kind, test::ShownMessage::Kind::Inform);
}

// A workbook chosen in a subfolder of the estimates folder is read from that subfolder, not
// from a workbook of the same name in the estimates folder itself.
TEST(DlgOpen, FileInASubfolderIsReadFromThere)
{
    Fixture x;
    const QString dir = estimatesFolder(x.folder.path());
    ASSERT_TRUE(QDir().mkpath(QDir(dir).filePath(QStringLiteral("2023"))));
    x.session = test::randomEstimate(11);
    x.session.editExisting = true;
    x.session.header.customerName = QStringLiteral("古い見積");
    x.session.fileName = QStringLiteral("2023/240105A.xlsx");
    ASSERT_TRUE(x.store.save());
    x.session.header.customerName = QStringLiteral("新しい見積");
    x.session.fileName = QStringLiteral("240105A.xlsx");
    ASSERT_TRUE(x.store.save());

    Session opened;
    DlgOpen dialog(dir, [&](const QString &name) { return openEstimateWorkbook(opened, x.messages, x.folder.path(), name); },
                   x.messages);
    auto *folders = dialog.findChild<QTreeWidget *>(QStringLiteral("Dir1"));
    auto *files = dialog.findChild<QListWidget *>(QStringLiteral("File1"));
    ASSERT_TRUE(folders && files);
    folders->setCurrentItem(folders->findItems(QStringLiteral("2023"), Qt::MatchExactly | Qt::MatchRecursive).first());
    files->setCurrentItem(files->findItems(QStringLiteral("240105A.xlsx"), Qt::MatchExactly).first());
    dialog.findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted) << x.messages.lastText().toStdString();
    EXPECT_EQ(opened.header.customerName, QStringLiteral("古い見積"));
    EXPECT_EQ(opened.fileName, QStringLiteral("2023/240105A.xlsx"));
}

// The wait window is shown around the writing only: gone before a failure is reported.
TEST(SaveEstimate, WaitWindowIsGoneBeforeAFailureIsReported)
{
    Fixture x;
    x.session = test::randomEstimate(12);
    x.session.fileName = QStringLiteral("240105W.xlsx");
    x.session.editExisting = true;
    QStringList events;
    SaveHooks hooks;
    hooks.showWait = [&] { events.append(QStringLiteral("show")); };
    hooks.hideWait = [&] { events.append(QStringLiteral("hide after %1 messages").arg(x.messages.shown.size())); };
    hooks.fault = [](SaveStep s, const QString &) { return s == SaveStep::Write; };
    EXPECT_FALSE(saveEstimateWorkbook(x.session, x.messages, x.folder.path(), hooks));
    EXPECT_EQ(events, (QStringList{QStringLiteral("show"), QStringLiteral("hide after 0 messages")}));
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_TRUE(x.messages.lastText().startsWith(QStringLiteral("ファイル名　240105W.xlsxを保存できませんでした。\n")));

    events.clear();
    hooks.fault = {};
    EXPECT_TRUE(saveEstimateWorkbook(x.session, x.messages, x.folder.path(), hooks));
    EXPECT_EQ(events, (QStringList{QStringLiteral("show"), QStringLiteral("hide after 1 messages")}));
}

// "終了" on a new estimate that was named and saved: the file-name dialog offers the chosen
// text, so OK writes over the estimate's own workbook after the announcement.
TEST(Program, EndingANamedEstimateOffersItsName)
{
    test::Program program;
    program.start();
    app::AppContext &c = program.context();
    program.dialogs.on("dlgFname", [](QWidget *d) {
        QTest::keyClicks(d->findChild<QLineEdit *>(QStringLiteral("txtFname")), QStringLiteral("ABC"));
        d->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    });
    c.start->button("cmdSin")->click();
    ASSERT_TRUE(c.sheet->isVisible());
    c.sheet->findChild<QPushButton *>(QStringLiteral("cmdSave"))->click();
    const QString path = QDir(estimatesFolder(program.folder.path())).filePath(QStringLiteral("240105ABC.xlsx"));
    ASSERT_TRUE(QFileInfo::exists(path));

    QString offered;
    program.dialogs.on("dlgFname", [&offered](QWidget *d) {
        offered = d->findChild<QLabel *>(QStringLiteral("lblFname"))->text();
        d->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    });
    program.session.header.customerName = QStringLiteral("終了前");
    program.messages.clear();
    program.messages.answer(Answer::Yes);
    EXPECT_TRUE(c.sheet->confirmEnd());
    EXPECT_EQ(offered, QStringLiteral("240105ABC.xlsx"));
    ASSERT_EQ(program.messages.shown.size(), 2);
    EXPECT_EQ(program.messages.shown[0].text, QStringLiteral("ファイルを保存しますか？"));
    EXPECT_EQ(program.messages.shown[1].text, QStringLiteral("ファイル名　240105ABC.xlsxを保存します。"));
    Session back;
    ASSERT_TRUE(openEstimateWorkbook(back, program.messages, program.folder.path(), QStringLiteral("240105ABC.xlsx")));
    EXPECT_EQ(back.header.customerName, QStringLiteral("終了前"));
    EXPECT_EQ(QDir(estimatesFolder(program.folder.path())).entryList(QDir::Files).size(), 1);
}

// The discount and the advance typed on the sheet come back on the sheet after reopening.
struct TypedFigures
{
    const char *rate;     // typed into txtNebiki1 (empty: the amount is typed instead)
    const char *amount;   // typed into txtNebiki2 when no rate is typed
    const char *advance;
    const char *shownRate, *shownAmount, *afterDiscount, *due;
};

class ReopenedFigures : public testing::TestWithParam<TypedFigures>
{
};

TEST_P(ReopenedFigures, ShowAsBefore)
{
    const TypedFigures &t = GetParam();
    test::Program program;
    program.start();
    app::AppContext &c = program.context();
    c.start->button("cmdSin")->click();
    ASSERT_TRUE(c.sheet->isVisible());
    program.session.totals.workTotalA = 100000;
    c.sheet->refresh();
    auto *rate = program.sheetChild<QLineEdit>("txtNebiki1");
    auto *amount = program.sheetChild<QLineEdit>("txtNebiki2");
    auto *advance = program.sheetChild<QLineEdit>("txtAzukari");
    if (*t.rate) {
        rate->setFocus();
        QTest::keyClicks(rate, QString::fromLatin1(t.rate));
        amount->setFocus();
    } else {
        QTest::keyClicks(amount, QString::fromLatin1(t.amount));
    }
    QTest::keyClicks(advance, QString::fromLatin1(t.advance));
    c.sheet->findChild<QPushButton *>(QStringLiteral("cmdSave"))->click();

    program.reopen(QStringLiteral("240105TEST.xlsx"));
    ASSERT_TRUE(c.sheet->isVisible());
    EXPECT_EQ(rate->text(), QString::fromUtf8(t.shownRate));
    EXPECT_EQ(amount->text(), QString::fromUtf8(t.shownAmount));
    EXPECT_EQ(program.sheetChild<QLabel>("lblNGo")->text(), QString::fromUtf8(t.afterDiscount));
    EXPECT_EQ(advance->text(), QString::fromUtf8(t.advance));
    EXPECT_EQ(program.sheetChild<QLabel>("lblSeikyu")->text(), QString::fromUtf8(t.due));
}

// Work total 100,000; no company block, so no tax: the amount due is after discount less advance.
INSTANTIATE_TEST_SUITE_P(
    Sheet, ReopenedFigures,
    testing::Values(TypedFigures{"10", "", "5,000", "10", "10,000", "90,000", "85,000"},
                    TypedFigures{"", "2500", "5,000", "", "2,500", "97,500", "92,500"}));

// Every header field and the document kind typed on the sheet come back after reopening.
TEST(Program, HeaderFieldsComeBackOnTheSheet)
{
    test::Program program;
    program.start();
    app::AppContext &c = program.context();
    c.start->button("cmdSin")->click();
    ASSERT_TRUE(c.sheet->isVisible());
    const char *fields[] = {"txtName", "txtKaisya", "txtSname", "txtSyatai", "txtSnen", "txtKm",
                            "txtTouroku", "txtKata", "txtRui", "txtColer", "txtEg", "txtMemo"};
    int n = 0;
    for (const char *name : fields) {
        auto *edit = program.sheetChild<QLineEdit>(name);
        ASSERT_TRUE(edit) << name;
        edit->setText(QStringLiteral("値%1").arg(++n));
    }
    auto *kind = program.sheetChild<QComboBox>("cboHdai");
    ASSERT_TRUE(kind);
    kind->setCurrentIndex(6);
    c.sheet->findChild<QPushButton *>(QStringLiteral("cmdSave"))->click();

    program.reopen(QStringLiteral("240105TEST.xlsx"));
    ASSERT_TRUE(c.sheet->isVisible());
    n = 0;
    for (const char *name : fields)
        EXPECT_EQ(program.sheetChild<QLineEdit>(name)->text(), QStringLiteral("値%1").arg(++n)) << name;
    EXPECT_EQ(kind->currentIndex(), 6);
    EXPECT_EQ(program.sheetChild<QLabel>("lblKBun")->text(), QStringLiteral("御請求金額"));
}
