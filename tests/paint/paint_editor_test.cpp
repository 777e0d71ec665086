#include "paint/paint_editor.h"
#include "temp_app_folder.h"

#include <gtest/gtest.h>

using namespace est;
using namespace est::paint;

namespace {

struct EditorFixture
{
    test::TempAppFolder folder;
    std::unique_ptr<PaintMasters> masters;
    Session session;
    EditorFixture(const char *kind = "ﾒﾀﾘｯｸ", const char *highFunction = "ﾌｯｿｺｰﾄ", const char *vehicleClass = "普通")
    {
        QString error;
        masters = PaintMasters::open(folder.path(), &error);
        session.customer[2] = QStringLiteral("山田 太郎");
        session.vehicle[4] = QStringLiteral("プリウス");
        session.vehicle[13] = QStringLiteral("1F7");
        session.vehicle[14] = QString::fromUtf8(kind);
        session.vehicle[15] = QString::fromUtf8(highFunction);
        session.paint.vehicleClass = QString::fromUtf8(vehicleClass);
        session.paintLabourRate = 7010;
    }
};

} // namespace

TEST(PaintEditor, MetallicWithFluorineCoatOnAnOrdinaryCar)
{
    EditorFixture x;
    PaintEditor editor(x.masters.get(), x.session);
    EXPECT_EQ(editor.colourCode(), QStringLiteral("M"));
    EXPECT_EQ(editor.coefficient(), QStringLiteral("0.47"));          // 0.35 + 0.12
    EXPECT_EQ(editor.highFunctionIndex(), QStringLiteral("0.45"));
    EXPECT_EQ(editor.highFunctionCoefficient(), QStringLiteral("0.12"));
    EXPECT_EQ(editor.basicIndex(QStringLiteral("1"), QStringLiteral("速乾")), QStringLiteral("5.29")); // 4.84 + 0.45
    EXPECT_EQ(editor.basicIndex(QStringLiteral("2"), QStringLiteral("速乾")), QStringLiteral("9.16")); // 8.71 + 0.45
    EXPECT_EQ(editor.presetMaterial(), QString());
    EXPECT_EQ(editor.customerName(), QStringLiteral("山田 太郎"));

    const auto line = editor.makeLine(LineKind::Basic, QStringLiteral("フロント"), QStringLiteral("ボンネット"),
                                      QString(), QStringLiteral("1枚"), QStringLiteral("5.29"), true);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->labour, 37083);   // 5.29 × 7,010 = 37,082.9
    EXPECT_EQ(line->material, 17429); // 0.47 × 37,083 = 17,429.01
}

struct CountCase
{
    const char *panels;
    const char *material;
};

class PanelCounts : public ::testing::TestWithParam<CountCase>
{
};

TEST_P(PanelCounts, NoBasicIndexWithoutAUsableCountAndMaterial)
{
    EditorFixture x;
    PaintEditor editor(x.masters.get(), x.session);
    EXPECT_EQ(editor.basicIndex(QString::fromUtf8(GetParam().panels), QString::fromUtf8(GetParam().material)),
              QString());
}

INSTANTIATE_TEST_SUITE_P(BadInput, PanelCounts,
                         ::testing::Values(CountCase{"0", "速乾"}, CountCase{"-2", "速乾"}, CountCase{"abc", "速乾"},
                                           CountCase{"", "速乾"}, CountCase{"99999", "速乾"},
                                           CountCase{"1.5", "速乾"}, CountCase{"2", ""},
                                           CountCase{"2", "ラッカー"}));

TEST(PaintEditor, SolidPresetsQuickDryAndTheSurchargeRows)
{
    EditorFixture x("ｿﾘｯﾄﾞ", "", "軽自");
    PaintEditor editor(x.masters.get(), x.session);
    EXPECT_EQ(editor.presetMaterial(), QStringLiteral("速乾"));
    EXPECT_EQ(editor.coefficient(), QStringLiteral("0.30"));
    EXPECT_FALSE(editor.hasHighFunction());
    EXPECT_EQ(editor.basicIndex(QStringLiteral("1"), QStringLiteral("速乾")), QStringLiteral("3.60"));
    EXPECT_EQ(editor.twoCoatAddition(), QStringLiteral("0.15"));
    EXPECT_EQ(editor.lowHidingAddition(), QStringLiteral("0.20"));

    const SurchargeEntry roof = editor.twoCoatSolid(QStringLiteral("ルーフパネル"), true);
    EXPECT_EQ(roof.partName, QStringLiteral("ルーフパネル  2ｺｰﾄｿﾘｯﾄﾞ加算 　ﾙｰﾌ"));
    EXPECT_EQ(roof.index, QStringLiteral("0.70"));
    EXPECT_EQ(roof.kind, LineKind::TwoCoatSolid);
    const SurchargeEntry side = editor.lowHiding(QStringLiteral("リアドア(右)"), false);
    EXPECT_EQ(side.partName, QStringLiteral("リアドア(右)  低隠蔽性塗料　ﾙｰﾌ以外"));
    EXPECT_EQ(side.index, QStringLiteral("0.50"));
    EXPECT_EQ(side.kind, LineKind::LowHiding);
    EXPECT_EQ(editor.lowHidingFor(QStringLiteral("ルーフ以外"), QStringLiteral("新品")), QStringLiteral("0.60"));
}

TEST(PaintEditor, UnknownKindMissingDatabaseAndHighFunctionName)
{
    EditorFixture x("ﾏｲｶ", "ﾊｲﾚﾌｺｰﾄ");
    PaintEditor editor(x.masters.get(), x.session);
    EXPECT_EQ(editor.colourCode(), QString());
    EXPECT_EQ(editor.coefficient(), QString());
    EXPECT_EQ(editor.basicIndex(QStringLiteral("1"), QStringLiteral("速乾")), QString());

    EditorFixture y("3ｺｰﾄﾊﾟｰﾙ", "ﾊｲﾚﾌｺｰﾄ");
    PaintEditor hirefu(y.masters.get(), y.session);
    EXPECT_EQ(hirefu.coefficient(), QStringLiteral("0.57")); // 0.45 + 0.12
    EXPECT_EQ(hirefu.highFunctionSurcharge(QStringLiteral("ボンネット")).partName,
              QStringLiteral("ボンネット  ﾊｲﾚﾌｺｰﾄ割増"));

    PaintEditor none(nullptr, y.session);
    EXPECT_TRUE(none.categories().isEmpty());
    EXPECT_EQ(none.basicIndex(QStringLiteral("1"), QStringLiteral("速乾")), QString());
    EXPECT_EQ(none.twoCoatSolid(QStringLiteral("A"), true).index, QString());
}

TEST(PaintEditor, StoredLinesComeBackWithTheirMaterial)
{
    EditorFixture x;
    PaintEditor first(x.masters.get(), x.session);
    const auto line = first.makeLine(LineKind::Basic, QStringLiteral("フロント"), QStringLiteral("ボンネット"),
                                     QString(), QStringLiteral("1枚"), QStringLiteral("5.29"), true);
    ASSERT_TRUE(line);
    ASSERT_EQ(first.calculation().add(*line), PaintCalculation::Change::Done);
    first.store({QStringLiteral("速乾"), QStringLiteral("1"), false, false, true}, x.session);

    PaintEditor again(x.masters.get(), x.session);
    ASSERT_EQ(again.calculation().count(), 1);
    EXPECT_EQ(again.calculation().lines().first(), *line);
    EXPECT_EQ(again.calculation().totals(), first.calculation().totals());
}

// The entry line: what kind of line it makes follows what filled its index last.
TEST(PaintEditorEntry, KindPartKindAndRangeFollowWhatFilledTheIndex)
{
    EditorFixture x;
    PaintEditor editor(x.masters.get(), x.session);
    editor.chooseCategory(QStringLiteral("フロント"));
    EntryOutcome why = EntryOutcome::Done;

    EXPECT_FALSE(editor.entryLine({QStringLiteral("ボンネット"), QStringLiteral("2"), QStringLiteral(" "), true}, &why));
    EXPECT_EQ(why, EntryOutcome::NoIndex);

    // A basic line takes its range from the panel count; labour 1.00 × 7,010, material 0.47 × 7,010 = 3,294.7.
    auto basic = editor.entryLine({QStringLiteral("ボンネット"), QStringLiteral("2"), QStringLiteral("1"), true}, &why);
    ASSERT_TRUE(basic);
    EXPECT_EQ(why, EntryOutcome::Done);
    EXPECT_EQ(basic->section, QStringLiteral("フロント"));
    EXPECT_EQ(basic->range, QStringLiteral("2枚"));
    EXPECT_EQ(basic->index, QStringLiteral("1.00"));
    EXPECT_EQ(basic->labour, 7010);
    EXPECT_EQ(basic->material, 3295);

    // The low-hiding dialog's index plus its addition, with the part's kind; no range.
    EXPECT_EQ(editor.takeLowHiding(QStringLiteral("0.60"), QStringLiteral("0.20"), QStringLiteral("新品")),
              QStringLiteral("0.80"));
    EXPECT_EQ(editor.takeLowHiding(QStringLiteral("0.60"), QString(), QStringLiteral("修正")), QStringLiteral("0.60"));
    auto low = editor.entryLine({QStringLiteral("ドア"), QStringLiteral("2"), QStringLiteral("0.8"), false}, &why);
    ASSERT_TRUE(low);
    EXPECT_EQ(low->kind, LineKind::LowHiding);
    EXPECT_EQ(low->partKind, QStringLiteral("修正"));
    EXPECT_EQ(low->range, QString());
    EXPECT_EQ(low->labour, 5608); // 0.80 × 7,010
    EXPECT_EQ(low->material, 0);

    // Any other kind forgets the part's kind.
    editor.setEntryKind(LineKind::TwoCoatSolid);
    EXPECT_EQ(editor.entryPartKind(), QString());
    editor.setEntryKind(LineKind::LowHiding);
    EXPECT_EQ(editor.entryPartKind(), QString());

    x.session.paintLabourRate = 32767;
    PaintEditor dear(x.masters.get(), x.session);
    EXPECT_FALSE(dear.entryLine({QStringLiteral("A"), QString(), QStringLiteral("99999.99"), true}, &why));
    EXPECT_EQ(why, EntryOutcome::Overflow);
}

TEST(PaintEditorEntry, AddInsertEditAndDeleteThroughTheChosenRow)
{
    EditorFixture x;
    PaintEditor editor(x.masters.get(), x.session);
    const auto names = [&editor] {
        QStringList out;
        for (const PaintLine &l : editor.calculation().lines())
            out << l.partName;
        return out;
    };
    EXPECT_EQ(editor.canRemoveChosen(), EntryOutcome::NoLines);
    ASSERT_EQ(editor.addEntry({QStringLiteral("A"), QStringLiteral("1"), QStringLiteral("1"), false}), EntryOutcome::Done);
    ASSERT_EQ(editor.insertEntry({QStringLiteral("B"), QString(), QStringLiteral("2"), false}), EntryOutcome::Done);
    editor.chooseRow(0);
    ASSERT_EQ(editor.insertEntry({QStringLiteral("C"), QString(), QStringLiteral("3"), false}), EntryOutcome::Done);
    EXPECT_EQ(names(), (QStringList{QStringLiteral("C"), QStringLiteral("A"), QStringLiteral("B")}));

    // 修正 takes the chosen line back into the entry, then replaces it.
    editor.chooseRow(1);
    std::optional<EntryText> load;
    ASSERT_EQ(editor.editEntry({}, &load), EntryOutcome::Done);
    ASSERT_TRUE(load);
    EXPECT_TRUE(editor.editing());
    EXPECT_EQ(load->partName, QStringLiteral("A"));
    EXPECT_EQ(load->panels, QStringLiteral("1"));
    EXPECT_EQ(load->index, QStringLiteral("1.00"));
    EXPECT_EQ(editor.canConfirm({}), EntryOutcome::StillEditing);
    load.reset();
    EXPECT_EQ(editor.editEntry({QStringLiteral("A2"), QStringLiteral("3"), QString(), false}, &load),
              EntryOutcome::NoIndex);
    EXPECT_TRUE(editor.editing());
    ASSERT_EQ(editor.editEntry({QStringLiteral("A2"), QStringLiteral("3"), QStringLiteral("1.5"), false}, &load),
              EntryOutcome::Done);
    EXPECT_FALSE(load);
    EXPECT_FALSE(editor.editing());
    EXPECT_EQ(editor.calculation().lines().at(1).range, QStringLiteral("3枚"));
    EXPECT_EQ(editor.calculation().lines().at(1).labour, 10515); // 1.50 × 7,010

    editor.chooseRow(-1);
    EXPECT_EQ(editor.editEntry({}, &load), EntryOutcome::NoRowChosen);
    EXPECT_EQ(editor.canRemoveChosen(), EntryOutcome::NoRowChosen);
    editor.chooseRow(2);
    ASSERT_EQ(editor.removeChosen(), EntryOutcome::Done);
    EXPECT_EQ(editor.chosenRow(), -1);
    EXPECT_EQ(names(), (QStringList{QStringLiteral("C"), QStringLiteral("A2")}));

    EXPECT_EQ(editor.canConfirm({QString(), QString(), QStringLiteral("2"), false}), EntryOutcome::PendingEntry);
    EXPECT_EQ(editor.canConfirm({}), EntryOutcome::Done);
}

TEST(PaintEditorEntry, AFullGridTakesNoMoreLines)
{
    EditorFixture x;
    PaintEditor editor(x.masters.get(), x.session);
    for (int i = 0; i < kMaxPaintLines; ++i)
        ASSERT_EQ(editor.addEntry({QStringLiteral("P"), QString(), QStringLiteral("0.1"), false}), EntryOutcome::Done);
    EXPECT_EQ(editor.addEntry({QStringLiteral("P"), QString(), QStringLiteral("0.1"), false}), EntryOutcome::Full);
    EXPECT_EQ(editor.insertEntry({QStringLiteral("P"), QString(), QStringLiteral("0.1"), false}), EntryOutcome::Full);
}
