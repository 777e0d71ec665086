// The work item editor's logic without its screen: the rate gate, the modes of the rows and
// what OK does with an item still in the inputs.

#include "scripted_messages.h"
#include "workitems/work_item_editor.h"

#include <gtest/gtest.h>

using namespace est;
using namespace est::workitems;
using Kind = test::ShownMessage::Kind;

namespace {

struct EditorWorld
{
    Session session;
    test::ScriptedMessages messages;

    explicit EditorWorld(std::int16_t rate) { session.labourRate = rate; }
    WorkItemEditor open() { return WorkItemEditor(session, messages); }
};

TEST(WorkItemEditor, RateBoxGatesButTheEstimatesRateComputes)
{
    EditorWorld x(5000);
    WorkItemEditor e = x.open();
    EXPECT_EQ(e.rateText(), QStringLiteral("5,000"));
    e.rateTyped(QStringLiteral("6000x"));
    EXPECT_EQ(e.rateText(), QStringLiteral("6000"));
    e.indexTyped(QStringLiteral("1.5"));
    EXPECT_EQ(e.inputs()[WiLabour], QStringLiteral("7500"));
    e.rateTyped(QString());
    EXPECT_FALSE(e.rateGiven());
    e.indexTyped(QStringLiteral("2"));
    EXPECT_EQ(e.inputs()[WiLabour], QStringLiteral("7500")); // nothing computed
    EXPECT_TRUE(e.indexLeft());                               // the user is sent to the rate
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("レーバーレートに金額が入力されておりません。"));
    e.add();
    e.handBack(x.session);
    EXPECT_EQ(x.session.labourRate, 5000);
}

TEST(WorkItemEditor, ModesDecideTheButtons)
{
    EditorWorld x(1000);
    WorkItemEditor e = x.open();
    EXPECT_FALSE(e.buttons().edit);
    for (const char *index : {"1", "2"}) {
        e.indexTyped(QString::fromLatin1(index));
        e.add();
    }
    EXPECT_TRUE(e.buttons().edit && e.buttons().insert && e.buttons().sort);
    e.edit(1);
    EXPECT_TRUE(e.editing());
    EXPECT_EQ(e.inputs()[WiIndex], QStringLiteral("2.00"));
    const WorkItemButtons editing = e.buttons();
    EXPECT_FALSE(editing.grid || editing.add || editing.remove);
    EXPECT_TRUE(editing.confirmEdit && editing.cancelEdit);
    e.cancelEdit();
    e.insertBefore(0);
    EXPECT_TRUE(e.inserting());
    EXPECT_EQ(e.inputs()[WiNo], QStringLiteral("1"));
    EXPECT_FALSE(e.buttons().grid);
    EXPECT_TRUE(e.buttons().add);
}

TEST(WorkItemEditor, RemoveTellsAnEmptyGridFromAMissingChoice)
{
    EditorWorld x(1000);
    WorkItemEditor e = x.open();
    e.remove(-1);
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("削除するデータはありません．"));
    e.indexTyped(QStringLiteral("1"));
    e.add();
    e.remove(-1);
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("削除する行を一覧で選んでから、削除をクリックしてください。"));
    EXPECT_EQ(e.table().count(), 1);
    x.messages.answer(Answer::Yes);
    e.remove(0);
    EXPECT_EQ(e.table().count(), 0);
}

TEST(WorkItemEditor, NothingPendingAsksNothing)
{
    EditorWorld x(1000);
    WorkItemEditor e = x.open();
    EXPECT_TRUE(e.settlePending());
    e.insertBefore(-1);
    EXPECT_TRUE(e.settlePending());
    EXPECT_TRUE(x.messages.shown.isEmpty());
}

TEST(WorkItemEditor, AnInsertedRowTypedButNotAddedIsAskedAbout)
{
    EditorWorld x(1000);
    WorkItemEditor e = x.open();
    e.indexTyped(QStringLiteral("1"));
    e.add();
    e.insertBefore(0);
    e.setText(WiPart, QStringLiteral("フロントバンパー"));
    x.messages.answer(Answer::Yes);
    ASSERT_TRUE(e.settlePending());
    EXPECT_EQ(x.messages.shown.last().kind, Kind::YesNoCancel);
    e.handBack(x.session);
    ASSERT_EQ(x.session.rows.size(), 2);
    EXPECT_EQ(x.session.rows.first()[ColPart], QStringLiteral("フロントバンパー"));
}

} // namespace
