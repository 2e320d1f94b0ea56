#include <array>

#include "MainWindowFixture.h"

namespace {

struct SizeCase
{
    const char* name;
    double width;
    bool statusBar;
    double x;
    double expectedX;
    double tvWidth;
    double lvWidth;
    double tvHeight;
};

// ScaleHeight 6210, titles 0 + 300, status bar 315 high.
constexpr std::array kSizeCases = {
    SizeCase {"BelowTheLeftLimit", 10800, true, 200, 1500, 1500, 9160, 5595},
    SizeCase {"InRange", 10800, true, 4000, 4000, 4000, 6660, 5595},
    SizeCase {"PastTheRightLimit", 10800, true, 10200, 9300, 9300, 1360, 5595},
    SizeCase {"ExactlyAtTheRightLimit", 10800, true, 9300, 9300, 9300, 1360, 5595},
    SizeCase {"NarrowWindowTheRightLimitWins", 2000, true, 200, 500, 500, 1360, 5595},
    SizeCase {"WithoutStatusBarTheTreeReachesTheBottom", 10800, false, 2000, 2000, 2000, 8660, 5910},
};

TEST_F(MainWindowTest, LaysThePanesOutAroundTheCorrectedSplit)
{
    for (const SizeCase& c : kSizeCases) {
        SCOPED_TRACE(c.name);
        main.Width = c.width;
        main.ScaleHeight = 6210;
        main.sbStatusBar.Visible = c.statusBar;

        double x = c.x;
        main.SizeControls(x);

        EXPECT_EQ(x, c.expectedX) << "the correction goes back to the caller";
        EXPECT_EQ(main.tvProjectContent.Width, c.tvWidth);
        EXPECT_EQ(main.imgSplitter.Left, c.expectedX);
        EXPECT_EQ(main.lvNodeContent.Left, c.expectedX + 40);
        EXPECT_EQ(main.lvNodeContent.Width, c.lvWidth);
        EXPECT_EQ(main.tvProjectContent.Height, c.tvHeight);
        EXPECT_EQ(main.lvNodeContent.Height, c.tvHeight);
    }
}

TEST_F(MainWindowTest, SizesThatCannotBeSetAreSkippedAndTheRestIsLaidOut)
{
    double x = 3000;
    main.ScaleHeight = 6210;
    main.SizeControls(x);

    // Too narrow for any tree and too low for any pane: those steps fail, the others run.
    main.Width = 1000;
    main.ScaleHeight = 200;
    x = 3000;
    main.SizeControls(x);
    EXPECT_EQ(x, -500);
    EXPECT_EQ(main.tvProjectContent.Width, 3000);
    EXPECT_EQ(main.imgSplitter.Left, -500);
    EXPECT_EQ(main.lvNodeContent.Left, -460);
    EXPECT_EQ(main.tvProjectContent.Height, 5595);
    EXPECT_EQ(main.lvNodeContent.Height, 5595);
}

struct ResizeCase
{
    const char* name;
    double width;
    double expectedWidth;
};

constexpr std::array kResizeCases = {
    ResizeCase {"JustBelowTheFloor", 2999, 3000},
    ResizeCase {"AtTheFloor", 3000, 3000},
    ResizeCase {"Wide", 12000, 12000},
};

TEST_F(MainWindowTest, WidensToTheFloorAndKeepsTheSplit)
{
    for (const ResizeCase& c : kResizeCases) {
        SCOPED_TRACE(c.name);
        main.Width = c.width;
        main.Height = 90;
        main.ScaleHeight = 6210;
        main.imgSplitter.Left = 1500;
        main.Form_Resize();

        EXPECT_EQ(main.Width, c.expectedWidth);
        EXPECT_EQ(main.Height, 90) << "the height has no floor";
        EXPECT_EQ(main.tvProjectContent.Width, 1500);
        EXPECT_EQ(main.lvNodeContent.Width, c.expectedWidth - 1640);
    }
}

struct DragCase
{
    const char* name;
    double moveX; // relative to the grip at 2000
    double barLeft;
    double treeWidth;
};

constexpr std::array kDragCases = {
    DragCase {"HeldAtTheFarLeft", -1900, 500, 1500},
    DragCase {"JustRightOfTheLeftLimit", -1499, 501, 1500},
    DragCase {"Inside", 1000, 3000, 3000},
    DragCase {"AtTheRightLimit", 8300, 10300, 9300},
    DragCase {"PastTheRightEdge", 9000, 10300, 9300},
};

TEST_F(MainWindowTest, TheBarStopsAt500AndThePanesAt1500)
{
    for (const DragCase& c : kDragCases) {
        SCOPED_TRACE(c.name);
        main.ScaleHeight = 6210;
        double x = 2000;
        main.SizeControls(x);

        main.imgSplitter_MouseDown();
        EXPECT_TRUE(main.picSplitter.Visible);

        main.imgSplitter_MouseMove(c.moveX);
        EXPECT_EQ(main.picSplitter.Left, c.barLeft);

        main.imgSplitter_MouseUp();
        EXPECT_EQ(main.tvProjectContent.Width, c.treeWidth);
        EXPECT_EQ(main.imgSplitter.Left, c.treeWidth);
        EXPECT_EQ(main.picSplitter.Left, c.barLeft) << "the bar's own place is not corrected";
        EXPECT_FALSE(main.picSplitter.Visible);
        EXPECT_FALSE(main.mbMoving);
    }
}

TEST_F(MainWindowTest, MouseMovesWithoutAMouseDownDoNothing)
{
    const double before = main.picSplitter.Left;
    main.imgSplitter_MouseMove(3000);
    EXPECT_EQ(main.picSplitter.Left, before);
    EXPECT_FALSE(main.picSplitter.Visible);
    EXPECT_FALSE(main.mbMoving);
}

struct TreeWidthCase
{
    const char* name;
    const char* stored; // MainTreeWidth in the settings store; nullptr: absent
    double names;       // the width that the view measured for the node names
    double expected;
};

// A 10800 twips window, its tree at the design's 2000.
constexpr std::array kTreeWidthCases = {
    TreeWidthCase {"WidensToTheNames", nullptr, 3000, 3000},
    TreeWidthCase {"NeverNarrows", nullptr, 1000, 2000},
    TreeWidthCase {"AtMostHalfTheWindow", nullptr, 9000, 5400},
    TreeWidthCase {"TheWidthTheUserGaveWins", "2500", 4000, 2500},
};

class TreeWidthTest : public MainWindowTest, public ::testing::WithParamInterface<TreeWidthCase>
{ };

TEST_P(TreeWidthTest, TheTreeFitsItsNamesUntilTheUserGivesItAWidth)
{
    const TreeWidthCase c = GetParam();
    if (c.stored)
        platform.settings["Settings/MainTreeWidth"] = QString::fromLatin1(c.stored);
    main.Form_Load();
    main.ScaleHeight = 6210;
    main.Form_Resize();

    main.fitTreeWidth(c.names);
    EXPECT_EQ(main.tvProjectContent.Width, c.expected);
    EXPECT_EQ(main.imgSplitter.Left, c.expected);
}

INSTANTIATE_TEST_SUITE_P(Widths, TreeWidthTest, ::testing::ValuesIn(kTreeWidthCases),
    [](const auto& info) { return std::string(info.param.name); });

} // namespace
