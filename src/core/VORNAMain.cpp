#include "VORNAMain.h"

#include "ProfileSettings.h"
#include "ProjectFiles.h"
#include "ProjectView.h"
#include "SystemDB.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

void InitApplication(VORNAGlobal& g, const QString& appPath)
{
    // The language layer comes first, since every later message passes through it. Its
    // missing-profile path leaves through the same exit as the rest of the program.
    g.ml.exitApplication = [&g](bool saveWindowState) { ExitApplication(g, saveWindowState); };
    g.ml.InitML(g.program.App.EXEName, g.program.App.Title);

    g.program.AppPath = appPath;
    g.system.MRUCount = 0;
    g.link.CommPort = 1;
    g.link.StationID = 247;
    ReadCommSettings(g, QString());
    OpenSystemDB(g);
    LoadMRUList(g);
}

void CloseApplication(VORNAGlobal& g)
{
    // The result is ignored: a Cancel in the save prompt here still exits, leaving the
    // edits in the working copy. Closing the window asks CloseProject itself first.
    if (!g.project.ProjectName.isEmpty())
        CloseProject(g);
    CloseSystemDB(g);
    g.ml.CloseML();
}

void SaveWindowPlacement(VORNAGlobal& g)
{
    const auto place = g.view().windowPlacement();
    if (!place)
        return;
    auto save = [&g](const char* key, const QString& value) {
        g.platform.saveSetting(
            g.program.App.Title, QStringLiteral("Settings"), QString::fromLatin1(key), value);
    };
    auto single = [](double v) { return QString::number(static_cast<float>(v), 'g', 7); };
    // A minimised window would store its icon's place; keep the last real one.
    if (place->WindowState != 1) {
        save("MainLeft", single(place->Left));
        save("MainTop", single(place->Top));
        save("MainWidth", single(place->Width));
        save("MainHeight", single(place->Height));
    }
    save("ViewMode", QString::number(place->View));
}

void ExitApplication(VORNAGlobal& g, bool SaveWindowState)
{
    CloseApplication(g);
    if (SaveWindowState)
        SaveWindowPlacement(g);
    g.platform.endProcess(SaveWindowState ? 0 : 1);
    Q_UNREACHABLE();
}

void WaitForSplash(VORNAGlobal& g, const std::function<bool()>& splashClicked)
{
    const QDateTime start = g.platform.now();
    while (DateDiffSeconds(start, g.platform.now()) <= 2 && !splashClicked())
        g.platform.waitEvents(10);
}
