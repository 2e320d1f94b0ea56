#include "VornaApp.h"

#include <QApplication>
#include <QDir>

#include "AboutView.h"
#include "AddUserView.h"
#include "AllUserGroupsView.h"
#include "EditGroupListView.h"
#include "EditTelListView.h"
#include "EditZoneListView.h"
#include "KeyInStringView.h"
#include "MainWindowView.h"
#include "MessageView.h"
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
    , projectForms(g)
    , m_platform(platform)
{
    g.link.BusyForm = &message;
    g.setDialogs(&projectForms);
    mainForm.about = &about;
    addView<SplashView>(splash);
    addView<MainWindowView>(mainForm);
    addView<AboutView>(about);
    addView<MessageView>(message);
    addView<KeyInStringView>(projectForms.keyInString);
    addView<EditGroupListView>(projectForms.editGroupList);
    addView<EditZoneListView>(projectForms.editZoneList);
    addView<EditTelListView>(projectForms.editTelList);
    addView<AllUserGroupsView>(projectForms.allUserGroups);
    addView<AddUserView>(projectForms.addUser);
}

VornaApp::~VornaApp()
{
    m_platform.dropViews();
    g.setView(nullptr);
    g.setDialogs(nullptr);
    g.link.BusyForm = nullptr;
}

template<class View, class Model> void VornaApp::addView(Model& form)
{
    m_platform.addForm(form.formName(), [](FormModel& model, QWidget* parent) -> FormView* {
        return new View(static_cast<Model&>(model), parent);
    });
}

MainWindowView* VornaApp::mainView() const
{
    return dynamic_cast<MainWindowView*>(m_platform.existingView(mainForm.formName()));
}

std::vector<FormModel*> VornaApp::forms()
{
    std::vector<FormModel*> all {&splash, &mainForm, &about, &message};
    for (FormModel* form : projectForms.forms())
        all.push_back(form);
    return all;
}

void VornaApp::Main(const StartOptions& options)
{
    const QString appPath
        = options.appPath.isEmpty() ? QCoreApplication::applicationDirPath() : options.appPath;
    InitApplication(g, QDir::toNativeSeparators(appPath));
    InstallToolkitTranslation(g.ml.CurAppliedLang);

    m_platform.showModeless(splash);
    m_platform.refreshForm(splash);

    // The main window is loaded here, but shown only after the splash.
    g.setView(&mainForm);
    mainForm.Load();

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
