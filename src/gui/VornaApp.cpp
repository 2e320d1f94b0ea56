#include "VornaApp.h"

#include <QApplication>
#include <QDir>

#include "AboutView.h"
#include "MainWindowView.h"
#include "QtPlatform.h"
#include "SplashView.h"
#include "UnhandledError.h"
#include "VORNAMain.h"
#include "VornaApplication.h"

VornaApp::VornaApp(QtPlatform& platform)
    : g(platform)
    , splash(g)
    , mainForm(g)
    , about(g)
    , message(g)
    , m_platform(platform)
{
    g.link.BusyForm = &message;
}

VornaApp::~VornaApp()
{
    for (const FormModel* form : {static_cast<const FormModel*>(&splash),
             static_cast<const FormModel*>(&mainForm), static_cast<const FormModel*>(&about)})
        m_platform.unregisterView(form->formName());
    g.setView(nullptr);
    g.link.BusyForm = nullptr;
}

void VornaApp::Main(const StartOptions& options)
{
    const QString appPath
        = options.appPath.isEmpty() ? QCoreApplication::applicationDirPath() : options.appPath;
    InitApplication(g, QDir::toNativeSeparators(appPath));
    InstallToolkitTranslation(g.ml.CurAppliedLang);

    splashView = std::make_unique<SplashView>(splash);
    m_platform.registerView(splash.formName(), *splashView);
    splash.Form_Load();
    m_platform.showModeless(splash);
    m_platform.refreshForm(splash);

    // The main window is made and loaded here, but shown only after the splash.
    mainView = std::make_unique<MainWindowView>(mainForm);
    m_platform.registerView(mainForm.formName(), *mainView);
    g.setView(&mainForm);
    aboutView = std::make_unique<AboutView>(about, mainView.get());
    m_platform.registerView(about.formName(), *aboutView);
    mainForm.about = &about;
    mainForm.Form_Load();

    if (options.waitForSplash)
        WaitForSplash(g, [this] { return splash.clicked(); });
    m_platform.hideForm(splash);

    mainForm.LoadFormObj();
    m_platform.showModeless(mainForm);
}

int RunVORNA(QApplication& app, QtPlatform& platform, const StartOptions& options)
{
    VornaApp vorna(platform);
    try {
        vorna.Main(options);
    } catch (const UnhandledError& error) {
        ReportUnhandledError(platform, error);
    } catch (const std::exception& error) {
        ReportRuntimeError(platform, error);
    }
    return app.exec();
}
