#pragma once

#include <functional>

#include <QString>

class VORNAGlobal;

// Start and exit steps. Main's own order (splash, main window) runs in the entry point,
// which calls these steps in turn.

// InitML, AppPath, MRUCount, CommPort, StationID, ReadCommSettings, OpenSystemDB, and
// the recent list from MRUList. appPath is the program's folder.
void InitApplication(VORNAGlobal& g, const QString& appPath);

// The closing steps: the project (with its save prompt, whose result is ignored), then the
// system and language databases. vorna-cli runs these and returns its own status.
void CloseApplication(VORNAGlobal& g);
// The window's place and view mode into the per-user settings store, if there is a window.
void SaveWindowPlacement(VORNAGlobal& g);

// Closes the project (with its save prompt, whose result is ignored), the system and
// language databases, stores the window's place when asked, and ends the process:
// status 0 on the way out with SaveWindowState, 1 on the failed starts without it.
[[noreturn]] void ExitApplication(VORNAGlobal& g, bool SaveWindowState);

// The splash's wait at start: while the whole-second difference from its start is at
// most 2 and the splash has not been clicked, let events run. About 3 seconds.
void WaitForSplash(VORNAGlobal& g, const std::function<bool()>& splashClicked);
