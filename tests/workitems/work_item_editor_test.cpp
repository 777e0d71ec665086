// The work item editor's logic without its screen: the rate gate, the modes of the rows and
// what OK does with an item still in the inputs.

#include "scripted_messages.h"
#include "workitems/work_item_editor.h"

#include <gtest/gtest.h>
#include <array>
#include <variant>

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

// What the index screens hand over lands in the inputs as if typed.
struct HandOverCase
{
    const char *what;
    std::int16_t rate, roundDigits, roundMode;
    std::variant<IndexHandOver, SimpleEntry> given;
    // part name, part number, work, index, labour, unit price, quantity, part total
    std::array<const char *, 8> inputs;
};

class HandOverTest : public ::testing::TestWithParam<HandOverCase>
{};

TEST_P(HandOverTest, FillsTheInputLine)
{
    const HandOverCase &c = GetParam();
    EditorWorld x(c.rate);
    x.session.roundDigits = c.roundDigits;
    x.session.roundMode = c.roundMode;
    WorkItemEditor e = x.open();
    e.setText(WiPart, QStringLiteral("typed before"));
    if (const auto *index = std::get_if<IndexHandOver>(&c.given))
        e.takeIndex(*index);
    else
        e.takeSimpleEntry(std::get<SimpleEntry>(c.given));
    const WorkItemColumn columns[] = {WiPart, WiPartNumber, WiWork, WiIndex, WiLabour, WiUnitPrice, WiQuantity,
                                      WiPartsTotal};
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(e.inputs()[columns[i]], QString::fromUtf8(c.inputs[size_t(i)])) << c.what << " column " << i;
    e.add();
    ASSERT_EQ(e.table().count(), 1);
    EXPECT_TRUE(x.messages.shown.isEmpty());
}

// 2.35 × 5,000 = 11,750; 1.15 × 4,350 = 5,002.5 -> 5,002 (ties to even), at the ones digit
// rounded up -> 5,010; a simple entry's labour is taken as typed, never rounded again.
INSTANTIATE_TEST_SUITE_P(
    IndexScreens, HandOverTest,
    ::testing::Values(
        HandOverCase{"sheet metal", 5000, 0, 0, IndexHandOver{" B : 13d㎡", "2.35"},
                     {"typed before", " B : 13d㎡", "", "2.35", "11750", "", "", ""}},
        HandOverCase{"sheet metal, rounded", 4350, 1, 2, IndexHandOver{" A : 5d㎡", "1.15"},
                     {"typed before", " A : 5d㎡", "", "1.15", "5010", "", "", ""}},
        HandOverCase{"simple, with material", 4350, 1, 2,
                     SimpleEntry{"フロントドア", "キズ・ヘコミ修理（小）", 12405, 3900},
                     {"フロントドア", "", "キズ・ヘコミ修理（小）", "", "12405", "3900", "1", "3900"}},
        HandOverCase{"simple, no material", 5000, 0, 0, SimpleEntry{"ルーフ", "パネル全面塗装", 36000, 0},
                     {"ルーフ", "", "パネル全面塗装", "", "36000", "", "", ""}}));
