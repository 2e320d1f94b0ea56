#pragma once

#include <QString>

#include "ADOUtil.h"
#include "MLUtil.h"
#include "Platform.h"
#include "VBArray.h"

class ProjectView;

// The common dialog's properties that persist between uses (it is one shared control).
struct CommonDialogState
{
    QString InitDir;
    QString FileName;
};

// Facts of the build.
struct AppInfo
{
    QString Title = QStringLiteral("VORNA");
    QString EXEName = QStringLiteral("VORNA");
    QString Path; // the program's folder
    int Major = VORNA_VERSION_MAJOR;
    int Minor = VORNA_VERSION_MINOR;
    int Revision = VORNA_VERSION_PATCH;
};

// The program's shared state: one instance, owned by the entry point and passed by
// reference to every module. Members carry the names the program's modules use.
class VORNAGlobal
{
public:
    explicit VORNAGlobal(Platform& platform)
        : platform(platform)
        , ml(platform)
    { }
    VORNAGlobal(const VORNAGlobal&) = delete;
    VORNAGlobal& operator=(const VORNAGlobal&) = delete;

    Platform& platform;
    MLUtil ml;
    AppInfo App;
    // The main window, wired by the entry point once it exists.
    ProjectView* view = nullptr;

    QString ProjectName; // empty: no project is open (the only such test)
    QString ProjectFilePath;
    QString ProjectWorkPath;
    bool IsProjectModified = false;
    bool IsDeviceConnected = false;

    VBArray<QString, 1, 4> MRUFilePath;
    qint16 MRUCount = 0;

    Connection SystemConn;
    Recordset rsCommBaudList;
    Recordset rsModelList;
    Recordset rsMRUList;

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

    qint16 CommPort = 1;
    qint32 StationID = 247;
    qint16 CommDebugLevel = 0;

    QString AppPath;
    qint16 Timeout = 2;
    qint16 Retry = 3;

    CommonDialogState dlgCommonDialog;

    QString GetText(const QString& DefaultText, int Seq, int ID, const QString& ModuleName)
    {
        return ml.GetText(DefaultText, Seq, ID, ModuleName);
    }
};
