#include "VornaApp.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QRegularExpression>

#include "AboutView.h"
#include "AddOtherUserView.h"
#include "AddUserGroupView.h"
#include "AddUserView.h"
#include "AllUserGroupsView.h"
#include "ComPortView.h"
#include "CommSettingView.h"
#include "DebugView.h"
#include "EditGroupListView.h"
#include "EditTelListView.h"
#include "EditZoneListView.h"
#include "KeyInStringView.h"
#include "MainWindowView.h"
#include "MessageView.h"
#include "MoveUsersView.h"
#include "QtPlatform.h"
#include "SplashView.h"
#include "UnhandledError.h"
#include "VORNAMain.h"
#include "VornaApplication.h"
#include "frmAddOtherUser.h"
#include "frmAddUser.h"
#include "frmAddUserGroup.h"
#include "frmAllUserGroups.h"
#include "frmComPort.h"
#include "frmCommSetting.h"
#include "frmDebug.h"
#include "frmEditGroupList.h"
#include "frmEditTelList.h"
#include "frmEditZoneList.h"
#include "frmKeyInString.h"
#include "frmMoveUsers.h"

VornaApp::VornaApp(QtPlatform& platform)
    : g(platform)
    , splash(g.form<frmSplash>())
    , mainForm(g.form<frmMain>())
    , about(g.form<frmAbout>())
    , message(g.form<frmMessage>())
    , m_platform(platform)
{
    g.link.BusyForm = &message;
    mainForm.about = &about;
    about.openServiceWindow = [this] { ShowDialog<frmDebug>(g); };
    // The one list of forms: a form is shown through the platform by any code that asks the
    // shared state for it; here it gets its view.
    addView<frmSplash, SplashView>();
    addView<frmMain, MainWindowView>();
    addView<frmAbout, AboutView>();
    addView<frmMessage, MessageView>();
    addView<frmKeyInString, KeyInStringView>();
    addView<frmEditGroupList, EditGroupListView>();
    addView<frmEditZoneList, EditZoneListView>();
    addView<frmEditTelList, EditTelListView>();
    addView<frmAllUserGroups, AllUserGroupsView>();
    addView<frmAddUser, AddUserView>();
    addView<frmAddUserGroup, AddUserGroupView>();
    addView<frmAddOtherUser, AddOtherUserView>();
    addView<frmMoveUsers, MoveUsersView>();
    addView<frmComPort, ComPortView>();
    addView<frmCommSetting, CommSettingView>();
    addView<frmDebug, DebugView>();
}

VornaApp::~VornaApp()
{
    m_platform.dropViews();
    g.setView(nullptr);
    g.link.BusyForm = nullptr;
}

template<class Model, class View> void VornaApp::addView()
{
    Model& form = g.form<Model>();
    m_forms.push_back(&form);
    m_platform.addForm(form.formName(), [](FormModel& model, QWidget* parent) -> FormView* {
        return new View(static_cast<Model&>(model), parent);
    });
}

MainWindowView* VornaApp::mainView() const
{
    return dynamic_cast<MainWindowView*>(m_platform.existingView(mainForm.formName()));
}

void VornaApp::Main(const StartOptions& options)
{
    const QString appPath
        = options.appPath.isEmpty() ? QCoreApplication::applicationDirPath() : options.appPath;
    InitApplication(g, QDir::toNativeSeparators(appPath));
    g.link.RunPortPaths = options.portMap;
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

QString ParseStartOptions(const QStringList& arguments, StartOptions& options)
{
    QCommandLineParser parser;
    const QCommandLineOption portMap(QStringLiteral("port-map"), QString(), QStringLiteral("COMn=PATH"));
    parser.addOption(portMap);
    if (!parser.parse(arguments))
        return parser.errorText();
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("unexpected argument '") + parser.positionalArguments().first()
            + QLatin1Char('\'');
    // The same numbers as the profile's [Ports] section may map.
    static const QRegularExpression entry(
        QStringLiteral("^COM(\\d{1,3})=(/.+)$"), QRegularExpression::CaseInsensitiveOption);
    for (const QString& value : parser.values(portMap)) {
        const QRegularExpressionMatch m = entry.match(value);
        const int port = m.hasMatch() ? m.captured(1).toInt() : 0;
        if (port < 1 || port > 255)
            return QStringLiteral("--port-map takes COMn=PATH, n from 1 to 255, PATH a device: '") + value
                + QLatin1Char('\'');
        options.portMap[port] = m.captured(2);
    }
    return {};
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
