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
