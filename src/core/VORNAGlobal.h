#pragma once

#include <map>
#include <utility>

#include <QString>

#include "ADOUtil.h"
#include "FormSet.h"
#include "MLUtil.h"
#include "Platform.h"
#include "ProjectView.h"
#include "StoreText.h"
#include "VBArray.h"
#include "Version.h"

class CommControl;
class LinkTrace;
class frmMessage;

// Facts of the build.
struct AppInfo
{
    QString Title = QStringLiteral("VORNA");
    QString EXEName = QStringLiteral("VORNA");
    int Major = Version::Major;
    int Minor = Version::Minor;
    int Revision = Version::Revision;
};

// The common dialog's properties that persist between uses (it is one shared control).
struct CommonDialogState
{
    QString InitDir;
    QString FileName;
};

// The running tool: its facts, its folder and the one common dialog.
struct ProgramState
{
    AppInfo App;
    QString AppPath; // the program's folder, also the current directory between dialogs
    CommonDialogState dlgCommonDialog;
};

// The system database, open from start to exit, and the recent list read from it.
struct SystemState
{
    Connection SystemConn;
    Recordset rsCommBaudList;
    Recordset rsModelList;
    Recordset rsMRUList;

    VBArray<QString, 1, 4> MRUFilePath;
    qint16 MRUCount = 0;
};

// The open project: its files, its four tables on the working copy and its model's limits.
struct ProjectState
{
    QString ProjectName; // empty: no project is open (the only such test)
    QString ProjectFilePath;
    QString ProjectWorkPath;
    bool IsProjectModified = false;

    Connection ProjectConn;
    Recordset rsBasic;
    Recordset rsUserGroups;
    Recordset rsUsers;
    Recordset rsZones;

    qint16 MaxTelNo = 0;
    qint16 MaxMemoryByte = 0;
    qint16 TelNoCount = 0;
    qint16 ProjGroupCount = 0;
    qint16 ProjTelCount = 0;
    qint32 ProjectImageSize = 0;
};

// The device link's settings, from the profile and the port dialog, and how it last ended.
struct LinkState
{
    bool IsDeviceConnected = false;
    qint16 CommPort = 1;
    qint32 StationID = 247;
    qint16 CommDebugLevel = 0;
    qint16 Timeout = 2;
    qint16 Retry = 3;

    // A device path given instead of a port number ("/dev/ttyACM0"); empty: CommPort is used.
    QString CommDevice;
    // Ports that the profile's [Ports] section maps, by number; others follow the default rule.
    std::map<int, QString> PortPaths;
    // Ports mapped for this run only (VORNA --port-map): they come before the profile's and
    // are never written to it.
    std::map<int, QString> RunPortPaths;
    // The 8-bit code page of the texts sent to the device ([Comm] CodePage); empty: Big5.
    QString CodePage;
    // The serial control, which the main window owns, and the busy box; wired at start.
    CommControl* CommCtl = nullptr;
    frmMessage* BusyForm = nullptr;
    // Told of every frame both ways when set (vorna-cli --trace).
    LinkTrace* Trace = nullptr;
};

// The shared state: one instance, owned by the entry point. Its members are grouped by
// owner, so that a module can take only the part it works on.
class VORNAGlobal
{
public:
    explicit VORNAGlobal(Platform& platform)
        : platform(platform)
        , ml(platform)
    {
        // The store's own failures are worded in this program's applied language.
        RegisterStoreTextLookup(this, [this](const QString& text, int seq, int id, const QString& module) {
            return GetText(text, seq, id, module);
        });
    }
    ~VORNAGlobal() { UnregisterStoreTextLookup(this); }
    VORNAGlobal(const VORNAGlobal&) = delete;
    VORNAGlobal& operator=(const VORNAGlobal&) = delete;

    Platform& platform;
    MLUtil ml;
    ProgramState program;
    SystemState system;
    ProjectState project;
    LinkState link;

    // The main window as the operations see it; a do-nothing view until one is wired.
    ProjectView& view() const { return m_view ? *m_view : NullProjectView::instance(); }
    void setView(ProjectView* view) { m_view = view; }

    // The one instance of a form, made with this state at its first use.
    template<class Form> Form& form() { return m_forms.get<Form>(*this); }

    QString GetText(const QString& DefaultText, int Seq, int ID, const QString& ModuleName) const
    {
        return ml.GetText(DefaultText, Seq, ID, ModuleName);
    }
    QString GetText(const TextKey& key) const { return ml.GetText(key); }

private:
    ProjectView* m_view = nullptr;
    FormSet m_forms;
};

// Opens a dialog as every caller does: LoadFormObj with the arguments, then shown modally
// until it hides itself. Its answer is then in its members.
template<class Form, class... Args> Form& ShowDialog(VORNAGlobal& g, Args&&... args)
{
    Form& form = g.form<Form>();
    form.LoadFormObj(std::forward<Args>(args)...);
    g.platform.showModal(form);
    return form;
}

// The message lookup of one module: a source file names its module once,
//     const ModuleText T {"EditZoneList"};
// and asks T(g, "default text", seq, id), or keeps T.key("default text", seq, id) for later;
// texts, seqs and ids are literals at the call, so that each key can be read off the source.
struct ModuleText
{
    const char* module;
    QString operator()(const VORNAGlobal& g, const char* defaultText, int seq, int id) const
    {
        return g.GetText(QString::fromUtf8(defaultText), seq, id, QString::fromLatin1(module));
    }
    constexpr TextKey key(const char* defaultText, int seq, int id) const
    {
        return {module, id, seq, defaultText};
    }
};
