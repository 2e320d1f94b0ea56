#include <array>

#include "MainWindowFixture.h"
#include "UnhandledError.h"

namespace {

const char* const PlaceKeys[] = {"MainLeft", "MainTop", "MainWidth", "MainHeight"};

// The window's place, as the settings store spells it.
QString Place(const frmMain& m)
{
    return QStringLiteral("%1 %2 %3 %4").arg(m.Left).arg(m.Top).arg(m.Width).arg(m.Height);
}

TEST_F(MainWindowTest, FormLoadRestoresThePlaceFromTheSettingsStoreKeyByKey)
{
    const struct
    {
        std::array<const char*, 4> stored; // MainLeft, MainTop, MainWidth, MainHeight; nullptr: absent
        const char* place;
    } cases[] = {
        {{nullptr, nullptr, nullptr, nullptr}, "200 200 10800 6900"},
        {{"15", "-30", "9000.5", "4500"}, "15 -30 9000.5 4500"},
        {{"600", nullptr, nullptr, "3000"}, "600 200 10800 3000"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.place);
        for (int i = 0; i < 4; ++i) {
            const QString key = "Settings/" + QString::fromLatin1(PlaceKeys[i]);
            platform.settings.erase(key);
            if (c.stored[i])
                platform.settings[key] = QString::fromLatin1(c.stored[i]);
        }
        main.mIsInDelay = true;
        main.Form_Load();
        EXPECT_EQ(Place(main), c.place);
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

// Exit stores the place unless the window is minimised, and always the view mode.
TEST_F(MainWindowTest, ExitStoresThePlaceUnlessMinimisedAndAlwaysTheViewMode)
{
    for (const auto& [windowState, stored] :
        {std::pair {0, "300 450 9000.5 5000 3"}, {1, "1234 - - - 3"}, {2, "300 450 9000.5 5000 3"}}) {
        SCOPED_TRACE(windowState);
        platform.settings.clear();
        platform.settings["Settings/MainLeft"] = "1234";
        main.Left = 300;
        main.Top = 450;
        main.Width = 9000.5;
        main.Height = 5000;
        main.WindowState = windowState;
        EXPECT_THROW(main.mnuFileExit_Click(), ProcessEnded);
        QStringList values;
        for (const char* key : {"MainLeft", "MainTop", "MainWidth", "MainHeight", "ViewMode"}) {
            const auto it = platform.settings.find("Settings/" + QString::fromLatin1(key));
            values << (it == platform.settings.end() ? "-" : it->second);
        }
        EXPECT_EQ(values.join(' '), stored);
    }
}

} // namespace
