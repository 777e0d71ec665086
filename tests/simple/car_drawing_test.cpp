#include "simple/car_drawing.h"
#include "simple/panels.h"

#include <QEnterEvent>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace est::simple;

class PanelTest : public ::testing::TestWithParam<Panel> {};

// Clicking the middle of each picture, where the mouse would land, reports its panel number.
TEST_P(PanelTest, ClickingTheCentreOfThePictureChoosesItsPanel)
{
    const Panel &panel = GetParam();
    CarDrawing drawing;
    drawing.show();
    auto *picture = drawing.findChild<QWidget *>(QLatin1String(panel.pictureName));
    ASSERT_TRUE(picture) << panel.pictureName;
    const QPoint centre = picture->geometry().center();
    ASSERT_EQ(drawing.childAt(centre), picture) << panel.pictureName;
    QSignalSpy clicked(&drawing, &CarDrawing::panelClicked);
    QTest::mouseClick(picture, Qt::LeftButton, {}, picture->mapFrom(&drawing, centre));
    ASSERT_EQ(clicked.size(), 1);
    EXPECT_EQ(clicked.first().first().toInt(), panel.num);
}

TEST_P(PanelTest, TheOutlineLiesInsideTheDrawingAndOverlapsNoOtherPanel)
{
    const Panel &panel = GetParam();
    const QPainterPath path = panelPath(panel.num);
    ASSERT_FALSE(path.isEmpty());
    EXPECT_TRUE(QRectF(0, 0, kDrawingWidth, kDrawingHeight).contains(path.boundingRect()));
    // Big enough to hit with the mouse.
    EXPECT_GE(path.boundingRect().width(), 24);
    EXPECT_GE(path.boundingRect().height(), 24);
    for (const Panel &other : panels()) {
        if (other.num != panel.num) {
            EXPECT_TRUE(path.intersected(panelPath(other.num)).boundingRect().isEmpty())
                << panel.pictureName << " / " << other.pictureName;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllPanels, PanelTest, ::testing::ValuesIn(panels()),
                         [](const auto &info) { return std::string(info.param.pictureName); });

TEST(CarDrawing, TheElevenPanelsAreNumberedAsThePicturesSay)
{
    const char *expected[] = {"imgBampa", "imgFender", "imgFrDoor", "imgRrDoor", "imgQuarter", "imgFood",
                              "imgRoof", "imgTrank", "imgRightPanel", "imgMaskP", "imgSraidDor"};
    ASSERT_EQ(panels().size(), 11);
    for (int num = 1; num <= 11; ++num)
        EXPECT_STREQ(panelByNum(num)->pictureName, expected[num - 1]);
    EXPECT_FALSE(panelByNum(0));
    EXPECT_FALSE(panelByNum(12));
}

TEST(CarDrawing, AClickBesideThePanelsChoosesNothing)
{
    CarDrawing drawing;
    drawing.show();
    QSignalSpy clicked(&drawing, &CarDrawing::panelClicked);
    const QPoint wheel(95, 300); // the front tyre, under the fender's wheel arch
    EXPECT_EQ(drawing.childAt(wheel), nullptr);
    QTest::mouseClick(&drawing, Qt::LeftButton, {}, wheel);
    EXPECT_EQ(clicked.size(), 0);
}

TEST(CarDrawing, ThePanelUnderThePointerIsHighlightedAndTheChosenOneMarked)
{
    CarDrawing drawing;
    drawing.show();
    auto *roof = drawing.findChild<QWidget *>(QStringLiteral("imgRoof"));
    const QImage before = roof->grab().toImage();
    QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    QApplication::sendEvent(roof, &enter);
    EXPECT_EQ(drawing.hovered(), 7);
    const QImage hovered = roof->grab().toImage();
    EXPECT_NE(hovered, before);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(roof, &leave);
    EXPECT_EQ(drawing.hovered(), 0);
    drawing.setChosen(7);
    const QImage chosen = roof->grab().toImage();
    EXPECT_NE(chosen, before);
    EXPECT_NE(chosen, hovered);
}

// Without a mouse: Tab reaches the panels, the focused one is highlighted, Space or Enter
// chooses it.
TEST(CarDrawing, EveryPanelCanBeChosenFromTheKeyboard)
{
    CarDrawing drawing;
    drawing.show();
    QSignalSpy clicked(&drawing, &CarDrawing::panelClicked);
    auto *roof = drawing.findChild<QWidget *>(QStringLiteral("imgRoof"));
    ASSERT_TRUE(roof);
    EXPECT_EQ(roof->focusPolicy(), Qt::StrongFocus);
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(roof, &in);
    EXPECT_EQ(drawing.hovered(), 7);
    QTest::keyClick(roof, Qt::Key_Space);
    QTest::keyClick(roof, Qt::Key_Return);
    QTest::keyClick(roof, Qt::Key_A); // any other key chooses nothing
    ASSERT_EQ(clicked.size(), 2);
    EXPECT_EQ(clicked.at(0).at(0).toInt(), 7);
    int focusable = 0;
    for (QWidget *panel : drawing.findChildren<QWidget *>())
        focusable += panel->focusPolicy() == Qt::StrongFocus ? 1 : 0;
    EXPECT_EQ(focusable, 11);
}
