#pragma once

#include <map>
#include <vector>

#include <QString>

#include "VORNAGlobal.h"
#include "frmAbout.h"
#include "frmMain.h"
#include "frmMessage.h"
#include "frmSplash.h"

class QApplication;
class QtPlatform;
class MainWindowView;

struct StartOptions
{
    // The program folder; empty for the folder of the running executable.
    QString appPath;
    // False skips the splash wait (tests and benchmarks).
    bool waitForSplash = true;
    // Ports mapped to devices for this run only, by number (--port-map COM1=PATH).
    std::map<int, QString> portMap {};
};

// VORNA in its window: the shared state, which holds one instance of each form, the list of
// the forms with their views, and Main's start order.
class VornaApp
{
public:
    explicit VornaApp(QtPlatform& platform);
    ~VornaApp();
    VornaApp(const VornaApp&) = delete;
    VornaApp& operator=(const VornaApp&) = delete;

    // Start in Main's order; returns with the main window shown and the event loop not yet run.
    void Main(const StartOptions& options);

    VORNAGlobal g;
    // The forms that start-up wires.
    frmSplash& splash;
    frmMain& mainForm;
    frmAbout& about;
    frmMessage& message;

    // The main window's view, once it is shown.
    MainWindowView* mainView() const;
    // Every form, each with a view that the platform makes on its first showing.
    const std::vector<FormModel*>& forms() const { return m_forms; }

private:
    template<class Model, class View> void addView();

    QtPlatform& m_platform;
    std::vector<FormModel*> m_forms;
};

// The options of VORNA's command line into options: "--port-map COMn=PATH", any number of
// times. Returns the reason when the line is not one, else an empty text.
QString ParseStartOptions(const QStringList& arguments, StartOptions& options);

// Main, then the event loop; returns the loop's exit code. A failure in the start steps
// is reported as any unhandled error is, and ends the process.
int RunVORNA(QApplication& app, QtPlatform& platform, const StartOptions& options);
