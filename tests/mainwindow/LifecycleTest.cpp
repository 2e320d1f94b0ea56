#include <array>

#include "MainWindowFixture.h"
#include "UnhandledError.h"

namespace {

struct LoadCase
{
    const char* name;
    std::array<const char*, 4> stored; // MainLeft, MainTop, MainWidth, MainHeight; nullptr: absent
    std::array<double, 4> expected;
};

const std::array kLoadCases = {
    LoadCase {"EmptyStoreGivesTheDefaults", {nullptr, nullptr, nullptr, nullptr}, {200, 200, 10800, 6900}},
    LoadCase {"StoredValuesWin", {"15", "-30", "9000.5", "4500"}, {15, -30, 9000.5, 4500}},
    LoadCase {"EachKeyFallsBackAlone", {"600", nullptr, nullptr, "3000"}, {600, 200, 10800, 3000}},
};

const char* const PlaceKeys[] = {"MainLeft", "MainTop", "MainWidth", "MainHeight"};

TEST_F(MainWindowTest, FormLoadRestoresThePlaceFromTheSettingsStore)
{
    for (const LoadCase& c : kLoadCases) {
        SCOPED_TRACE(c.name);
        for (int i = 0; i < 4; ++i) {
            const QString key = "Settings/" + QString::fromLatin1(PlaceKeys[i]);
            platform.settings.erase(key);
            if (c.stored[i])
                platform.settings[key] = QString::fromLatin1(c.stored[i]);
        }
        main.mIsInDelay = true;

        main.Form_Load();

        EXPECT_EQ(main.Left, c.expected[0]);
        EXPECT_EQ(main.Top, c.expected[1]);
        EXPECT_EQ(main.Width, c.expected[2]);
        EXPECT_EQ(main.Height, c.expected[3]);
        EXPECT_FALSE(main.mIsInDelay);
        EXPECT_FALSE(main.Visible) << "the load does not show the window";
    }
}

TEST_F(MainWindowTest, AStoredPlaceThatIsNoNumberIsAnUnhandledError)
{
    platform.settings["Settings/MainTop"] = "left of centre";
    EXPECT_THROW(main.Form_Load(), UnhandledError);
}

TEST_F(MainWindowTest, LoadFormObjWelcomesAndBlanksTheProjectTexts)
{
    main.LoadFormObj();
    EXPECT_EQ(main.panel("Status").Text, "歡迎使用 簡訊報警機");
    EXPECT_EQ(main.panel("ProjName").Text, QString());
    EXPECT_EQ(main.panel("ConnectStatus").Text, "Offline");
    EXPECT_EQ(main.lbltvProjectContentCaption.Caption, QString());
    EXPECT_EQ(main.lbllvNodeContentCaption.Caption, QString()) << "no node selected";
    EXPECT_TRUE(main.tvProjectContent.Nodes.empty());
    EXPECT_TRUE(main.lvNodeContent.ListItems.empty());
}

TEST_F(ProjectWindowTest, OpeningAProjectShowsItsNameInTheLabelAndThePanel)
{
    newProject("Site A.cmb");
    EXPECT_EQ(main.lbltvProjectContentCaption.Caption, "Site A");
    EXPECT_EQ(main.panel("ProjName").Text, "Site A");
    EXPECT_EQ(main.MousePointer, Pointer::Default);
    CloseProject(g);
    EXPECT_EQ(main.panel("ProjName").Text, QString());
}

// Cancel keeps the window and the project, so the next close asks again; what each answer
// does to the project itself is the core tests' close table.
TEST_F(ProjectWindowTest, ClosingWithEditsCancelKeepsTheProjectAndNoClosesItAndExits)
{
    newProject();
    addGroup("Night shift");
    platform.expectBox(MsgBox::YesNoCancel, SavePrompt("Project1"), SaveTitle, MsgBox::Cancel);
    int cancel = 0;
    main.Form_Unload(cancel);
    EXPECT_EQ(cancel, 1);
    EXPECT_EQ(g.project.ProjectName, "Project1");

    platform.expectBox(MsgBox::YesNoCancel, SavePrompt("Project1"), SaveTitle, MsgBox::No);
    cancel = 0;
    try {
        main.Form_Unload(cancel);
        ADD_FAILURE() << "the program did not end";
    } catch (const ProcessEnded& e) {
        EXPECT_EQ(e.status, 0);
    }
    EXPECT_EQ(cancel, 0);
    EXPECT_TRUE(g.project.ProjectName.isEmpty());
}

struct ExitCase
{
    const char* name;
    int windowState;
    bool placeWritten;
};

const ExitCase ExitCases[] = {{"Normal", 0, true}, {"Minimised", 1, false}, {"Maximised", 2, true}};

TEST_F(MainWindowTest, ExitStoresThePlaceUnlessMinimisedAndAlwaysTheViewMode)
{
    for (const ExitCase& c : ExitCases) {
        SCOPED_TRACE(c.name);
        for (const char* key : PlaceKeys)
            platform.settings.erase("Settings/" + QString::fromLatin1(key));
        platform.settings.erase("Settings/ViewMode");
        platform.settings["Settings/MainLeft"] = "1234";
        main.Left = 300;
        main.Top = 450;
        main.Width = 9000.5;
        main.Height = 5000;
        main.WindowState = c.windowState;

        EXPECT_THROW(main.mnuFileExit_Click(), ProcessEnded);

        auto stored = [&](const char* key) {
            const auto it = platform.settings.find("Settings/" + QString::fromLatin1(key));
            return it == platform.settings.end() ? "<none>" : it->second;
        };
        EXPECT_EQ(stored("MainLeft"), c.placeWritten ? "300" : "1234");
        EXPECT_EQ(stored("MainTop"), c.placeWritten ? "450" : "<none>");
        EXPECT_EQ(stored("MainWidth"), c.placeWritten ? "9000.5" : "<none>");
        EXPECT_EQ(stored("MainHeight"), c.placeWritten ? "5000" : "<none>");
        EXPECT_EQ(stored("ViewMode"), "3");
    }
}

} // namespace
