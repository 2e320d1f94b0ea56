#include "MainWindowFixture.h"

namespace {

// The panes and the split, twips: the tree's size, the splitter's place, the list's place and
// size.
QString Panes(const frmMain& m)
{
    return QStringLiteral("tree %1x%2, splitter at %3, list at %4 %5x%6")
        .arg(m.tvProjectContent.Width)
        .arg(m.tvProjectContent.Height)
        .arg(m.imgSplitter.Left)
        .arg(m.lvNodeContent.Left)
        .arg(m.lvNodeContent.Width)
        .arg(m.lvNodeContent.Height);
}

// ScaleHeight 6210 but for the last row, titles 0 + 300, status bar 315 high; each row starts
// from what the row before it left.
TEST_F(MainWindowTest, LaysThePanesOutAroundTheCorrectedSplit)
{
    const struct
    {
        const char* name;
        double width;
        bool statusBar;
        double scaleHeight;
        double x;
        double correctedX;
        const char* panes;
    } cases[] = {
        {"below the left limit", 10800, true, 6210, 200, 1500,
            "tree 1500x5595, splitter at 1500, list at 1540 9160x5595"},
        {"in range", 10800, true, 6210, 4000, 4000,
            "tree 4000x5595, splitter at 4000, list at 4040 6660x5595"},
        {"past the right limit", 10800, true, 6210, 10200, 9300,
            "tree 9300x5595, splitter at 9300, list at 9340 1360x5595"},
        {"at the right limit", 10800, true, 6210, 9300, 9300,
            "tree 9300x5595, splitter at 9300, list at 9340 1360x5595"},
        {"a narrow window: the right limit wins", 2000, true, 6210, 200, 500,
            "tree 500x5595, splitter at 500, list at 540 1360x5595"},
        {"without the status bar the panes reach the bottom", 10800, false, 6210, 2000, 2000,
            "tree 2000x5910, splitter at 2000, list at 2040 8660x5910"},
        {"a normal size", 10800, true, 6210, 3000, 3000,
            "tree 3000x5595, splitter at 3000, list at 3040 7660x5595"},
        // Too narrow for any tree and too low for any pane: those steps fail, the others run.
        {"sizes that cannot be set are skipped", 1000, true, 200, 3000, -500,
            "tree 3000x5595, splitter at -500, list at -460 7660x5595"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        main.Width = c.width;
        main.ScaleHeight = c.scaleHeight;
        main.sbStatusBar.Visible = c.statusBar;
        double x = c.x;
        main.SizeControls(x);
        EXPECT_EQ(x, c.correctedX) << "the correction goes back to the caller";
        EXPECT_EQ(Panes(main), c.panes);
    }
}

TEST_F(MainWindowTest, WidensToTheFloorAndKeepsTheSplit)
{
    for (const auto& [width, panes] :
        {std::pair {2999.0, "tree 1500x5595, splitter at 1500, list at 1540 1360x5595"},
            {3000.0, "tree 1500x5595, splitter at 1500, list at 1540 1360x5595"},
            {12000.0, "tree 1500x5595, splitter at 1500, list at 1540 10360x5595"}}) {
        SCOPED_TRACE(width);
        main.Width = width;
        main.Height = 90;
        main.imgSplitter.Left = 1500;
        main.Form_Resize();
        EXPECT_EQ(main.Width, std::max(width, 3000.0));
        EXPECT_EQ(main.Height, 90) << "the height has no floor";
        EXPECT_EQ(Panes(main), panes);
    }
}

// The bar stops at 500 and the panes at 1500; the bar's own place is not corrected. A move
// without a press does nothing.
TEST_F(MainWindowTest, TheSplitterBarStopsAt500AndThePanesAt1500)
{
    const struct
    {
        double moveX; // relative to the grip at 2000
        double barLeft;
        double treeWidth;
    } cases[] = {
        {-1900, 500, 1500}, {-1499, 501, 1500}, {1000, 3000, 3000}, {8300, 10300, 9300}, {9000, 10300, 9300}};
    double x = 2000;
    main.SizeControls(x);
    const double bar = main.picSplitter.Left;
    main.imgSplitter_MouseMove(3000);
    EXPECT_FALSE(main.picSplitter.Visible || main.mbMoving);
    EXPECT_EQ(main.picSplitter.Left, bar);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.moveX);
        x = 2000;
        main.SizeControls(x);
        main.imgSplitter_MouseDown();
        EXPECT_TRUE(main.picSplitter.Visible);
        main.imgSplitter_MouseMove(c.moveX);
        main.imgSplitter_MouseUp();
        EXPECT_EQ(main.picSplitter.Left, c.barLeft);
        EXPECT_EQ(main.tvProjectContent.Width, c.treeWidth);
        EXPECT_EQ(main.imgSplitter.Left, c.treeWidth);
        EXPECT_FALSE(main.picSplitter.Visible || main.mbMoving);
    }
}

struct TreeWidthCase
{
    const char* name;
    const char* stored; // MainTreeWidth in the settings store; nullptr: absent
    double names;       // the width that the view measured for the node names
    double expected;
};

// A 10800 twips window, its tree at the design's 2000.
constexpr TreeWidthCase kTreeWidthCases[] = {
    {"WidensToTheNames", nullptr, 3000, 3000},
    {"NeverNarrows", nullptr, 1000, 2000},
    {"AtMostHalfTheWindow", nullptr, 9000, 5400},
    {"TheWidthTheUserGaveWins", "2500", 4000, 2500},
};

class TreeWidthTest : public MainWindowTest, public ::testing::WithParamInterface<TreeWidthCase>
{ };

TEST_P(TreeWidthTest, TheTreeFitsItsNamesUntilTheUserGivesItAWidth)
{
    const TreeWidthCase c = GetParam();
    if (c.stored)
        platform.settings["Settings/MainTreeWidth"] = QString::fromLatin1(c.stored);
    main.Form_Load();
    main.Form_Resize();
    main.fitTreeWidth(c.names);
    EXPECT_EQ(main.tvProjectContent.Width, c.expected);
    EXPECT_EQ(main.imgSplitter.Left, c.expected);
}

INSTANTIATE_TEST_SUITE_P(Widths, TreeWidthTest, ::testing::ValuesIn(kTreeWidthCases),
    [](const auto& info) { return std::string(info.param.name); });

} // namespace
