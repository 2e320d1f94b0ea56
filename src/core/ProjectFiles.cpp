#include "ProjectFiles.h"

#include <array>

#include <QFile>

#include "FileUtil.h"
#include "ProjectView.h"
#include "SystemDB.h"
#include "UnhandledError.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

namespace {

const QString Status = QStringLiteral("Status");

const ModuleText T {"VORNAMain"};

QDate Today(VORNAGlobal& g)
{
    return g.platform.now().date();
}

void SetPointer(VORNAGlobal& g, int pointer)
{
    g.view().setMousePointer(pointer);
}

void SetStatus(VORNAGlobal& g, const QString& text)
{
    g.view().setStatusText(Status, text);
}

// Sets up the shared common dialog as every file command does. The start folder is
// relative to the program's folder, which is the current directory here.
FileDialogOptions DialogOptions(
    VORNAGlobal& g, const QString& title, const QString& fileName, const QString& filter)
{
    if (g.program.dlgCommonDialog.InitDir.isEmpty())
        g.program.dlgCommonDialog.InitDir = NativePath(QStringLiteral("..\\Project"));
    FileDialogOptions options;
    options.DialogTitle = title;
    options.InitDir = g.program.dlgCommonDialog.InitDir;
    // The dialog is one shared control: the name set here stays even if it is cancelled.
    g.program.dlgCommonDialog.FileName = fileName;
    options.FileName = fileName;
    options.Filter = filter;
    options.FilterIndex = 1;
    options.Flags = 4;
    return options;
}

// Shows the dialog and restores the current directory, which the relative folders of the
// profile and the dialogs are read against. Nothing means the user cancelled.
std::optional<QString> ShowFileDialog(VORNAGlobal& g, const FileDialogOptions& options, bool save)
{
    std::optional<QString> chosen = save ? g.platform.showSave(options) : g.platform.showOpen(options);
    ChDir(g.program.AppPath);
    if (chosen)
        g.program.dlgCommonDialog.FileName = *chosen;
    return chosen;
}

// The question before a chosen file is replaced, from the keys of its two places: text
// before and after the path, and title. True for Yes.
bool AskReplace(VORNAGlobal& g, const QString& path, const std::array<TextKey, 3>& keys)
{
    const int answer = g.platform.msgBox(g.GetText(keys[0]) + path + g.GetText(keys[1]),
        MsgBox::YesNo | MsgBox::Exclamation, g.GetText(keys[2]));
    return answer == MsgBox::Yes;
}

// One of the four trapped copies failed: "<action>\n專案檔案[<path><cause>", titled; the keys
// are the action, "專案檔案[", the cause and the title.
void ShowCopyFailure(VORNAGlobal& g, const QString& path, const std::array<TextKey, 4>& keys)
{
    g.platform.msgBox(
        g.GetText(keys[0]) + QStringLiteral("\n") + g.GetText(keys[1]) + path + g.GetText(keys[2]),
        MsgBox::Critical, g.GetText(keys[3]));
}

// "專案[<name>]開啟中...", from the keys of one of its two places.
QString OpeningText(VORNAGlobal& g, const QString& path, const std::array<TextKey, 2>& keys)
{
    return g.GetText(keys[0]) + GetFname(path, 0) + g.GetText(keys[1]);
}

void SetModifiedDate(VORNAGlobal& g)
{
    g.project.rsBasic.setField(QStringLiteral("ModifiedDate"), Today(g));
    g.project.rsBasic.Update();
}

} // namespace

QString ProposedProjectName(VORNAGlobal&)
{
    for (int n = 1; n <= 99; ++n) {
        const QString name = QStringLiteral("Project") + QString::number(n);
        if (!FileExists(NativePath(QStringLiteral("..\\Project\\")) + name + QStringLiteral(".cmb")))
            return name;
    }
    return QString();
}

bool IsProjectFilePath(VORNAGlobal& g, const QString& FilePath)
{
    // The extension test is case-sensitive: "x.CMB" is refused.
    if (FilePath.right(4) != QStringLiteral(".cmb")) {
        g.platform.msgBox(T(g, "本專案無法開啟！", 1, 165) + QStringLiteral("\n")
                + T(g, "因為專案檔名[", 2, 165) + GetFname(FilePath, 2)
                + T(g, "]不屬於[.cmb]，導致本專案無法開啟。", 3, 165),
            MsgBox::Critical, T(g, "本專案無法執行", 4, 165));
        return false;
    }
    if (!FileExists(FilePath)) {
        g.platform.msgBox(T(g, "本專案檔案路徑[", 1, 160) + FilePath + T(g, "]不存在。", 2, 160),
            MsgBox::Critical, T(g, "專案開啟失敗", 3, 160));
        return false;
    }
    return true;
}

void ReadModelLimits(VORNAGlobal& g)
{
    // The last matching model wins; an unknown model keeps the previous project's limits.
    const QString model = NullToEmpty(g.project.rsBasic.Fields(QStringLiteral("DeviceModelName")));
    g.system.rsModelList.MoveFirst();
    while (!g.system.rsModelList.IsEOF()) {
        if (NullToEmpty(g.system.rsModelList.Fields(QStringLiteral("ModelName"))) == model) {
            g.project.MaxTelNo = CInt(g.system.rsModelList.Fields(QStringLiteral("MaxTelNo")));
            g.project.MaxMemoryByte = CInt(g.system.rsModelList.Fields(QStringLiteral("MaxMemoryByte")));
        }
        g.system.rsModelList.MoveNext();
    }
}

void OpenProjectTables(VORNAGlobal& g, const QString& FilePath)
{
    g.project.ProjectConn = OpenMDBConn(g.platform, FilePath, {}, {});
    g.project.rsBasic = OpenRecordset(g.project.ProjectConn, QStringLiteral("Basic"), false);
    g.project.rsUserGroups = OpenRecordset(g.project.ProjectConn, QStringLiteral("UserGroups"), false);
    g.project.rsUsers = OpenRecordset(g.project.ProjectConn, QStringLiteral("Users"), false);
    g.project.rsZones = OpenRecordset(g.project.ProjectConn, QStringLiteral("Zones"), false);
}

void CloseProjectTables(VORNAGlobal& g)
{
    // No test of state: closing tables that are not open is an unhandled error.
    for (Recordset* rs :
        {&g.project.rsBasic, &g.project.rsUserGroups, &g.project.rsUsers, &g.project.rsZones}) {
        rs->Close();
        *rs = Recordset();
    }
    if (g.project.ProjectConn.isNothing())
        throw UnhandledError(QStringLiteral("Object variable not set"));
    g.project.ProjectConn.Close();
    g.project.ProjectConn = Connection();
}

void NewProject(VORNAGlobal& g)
{
    if (!g.project.ProjectName.isEmpty() && CloseProject(g) == ProjectResult::Cancelled)
        return;

    const QString proposed = ProposedProjectName(g);
    QString path;
    for (;;) {
        const auto chosen = ShowFileDialog(g,
            DialogOptions(g, T(g, "開新專案", 1, 84), proposed,
                T(g, "Quillbeacon設定檔案,(*.cmb)|*.cmb|所有檔案,(*.*)|*.*", 1, 89)),
            false);
        if (!chosen)
            return;
        path = *chosen;
        if (!FileExists(path))
            break;
        if (AskReplace(g, path,
                {T.key("檔案[", 1, 103), T.key("]已經存在，您要取代現存的檔案嗎？", 2, 103),
                    T.key("此檔案已經存在", 3, 103)})) {
            // Deleted with force in effect, but the old file goes only when the template's
            // copy takes its place.
            PrepareReplace(path, true);
            break;
        }
    }

    if (!FileCopy(JoinPath(g.program.AppPath, QStringLiteral("RM64.mdb")), path)) {
        ShowCopyFailure(g, path,
            {T.key("開新專案失敗。", 1, 121), T.key("專案檔案[", 2, 121), T.key("]檔案無法複製。", 3, 121),
                T.key("開新專案失敗", 4, 121)});
        return;
    }
    OpenProject(g, path);
    // Goes into the working copy only; the project is not marked modified by it.
    g.project.rsBasic.setField(QStringLiteral("CreatedDate"), Today(g));
    g.project.rsBasic.Update();
}

bool OpenProject(VORNAGlobal& g, QString FilePath)
{
    if (FilePath.isEmpty()) {
        const auto chosen = ShowFileDialog(g,
            DialogOptions(g, T(g, "開啟專案", 1, 135), GetFname(g.program.dlgCommonDialog.FileName, 0),
                T(g, "Quillbeacon設定檔案,(*.cmb)|*.cmb", 1, 142)),
            false);
        if (!chosen)
            return false;
        FilePath = *chosen;
    }

    if (!IsProjectFilePath(g, FilePath))
        return false;
    if (!g.project.ProjectName.isEmpty() && CloseProject(g) != ProjectResult::Done)
        return false;

    SetPointer(g, Pointer::Hourglass);
    SetStatus(g, OpeningText(g, FilePath, {T.key("專案[", 2, 176), T.key("]開啟中...", 3, 176)}));

    // A working copy left from an earlier run is overwritten without a word. The working copy
    // is the program's own file: writable even when the project file is read-only, whose
    // refusal then comes at the save's copy.
    const QString workPath = GetFname(FilePath, 1) + GetFname(FilePath, 0) + QStringLiteral(".mir");
    if (!FileCopyOwn(FilePath, workPath)) {
        SetPointer(g, Pointer::Default);
        SetStatus(g, QString());
        ShowCopyFailure(g, FilePath,
            {T.key("開啟專案失敗。", 1, 210), T.key("專案檔案[", 2, 210), T.key("]檔案無法開啟。", 3, 210),
                T.key("開啟專案失敗", 4, 210)});
        return false;
    }
    OpenProjectTables(g, workPath);
    g.project.ProjectFilePath = FilePath;
    g.project.ProjectName = GetFname(g.project.ProjectFilePath, 0);
    g.project.ProjectWorkPath = workPath;

    ReadModelLimits(g);

    AddMRUFilePath(g, g.project.ProjectFilePath);
    g.project.IsProjectModified = false;
    g.view().RefreshFormObj();
    SetPointer(g, Pointer::Default);
    SetStatus(g, QString());
    return true;
}

int CloseProject(VORNAGlobal& g)
{
    if (SaveProject(g, false, true, true) == ProjectResult::Cancelled)
        return ProjectResult::Cancelled;

    SetPointer(g, Pointer::Hourglass);
    SetStatus(g, T(g, "專案[", 2, 222) + g.project.ProjectName + T(g, "]關閉中...", 3, 222));
    CloseProjectTables(g);
    DeleteFile(g.project.ProjectWorkPath);
    SetPointer(g, Pointer::Default);
    SetStatus(g, QString());

    g.project.ProjectName.clear();
    g.project.ProjectFilePath.clear();
    g.project.ProjectWorkPath.clear();
    g.project.IsProjectModified = false;
    g.view().RefreshFormObj();
    return ProjectResult::Done;
}

int SaveProject(VORNAGlobal& g, bool Force, bool Prompt, bool AllowCancel)
{
    if (g.project.ProjectName.isEmpty())
        return ProjectResult::Done;

    if (!Force) {
        if (!g.project.IsProjectModified)
            return ProjectResult::Done;
        if (Prompt) {
            // The two places of the question have a key each.
            const QString text = (AllowCancel ? T(g, "您要將變更儲存到專案[", 1, 279)
                                              : T(g, "您要將變更儲存到專案[", 1, 292))
                + g.project.ProjectName + QStringLiteral("]?");
            const QString title = AllowCancel ? T(g, "是否儲存專案", 3, 279) : T(g, "是否儲存專案", 3, 292);
            if (AllowCancel) {
                const int answer = g.platform.msgBox(text, MsgBox::YesNoCancel, title);
                if (answer == MsgBox::Cancel)
                    return ProjectResult::Cancelled;
                if (answer == MsgBox::No)
                    return ProjectResult::AnsweredNo;
                SetModifiedDate(g);
            } else if (g.platform.msgBox(text, MsgBox::YesNo, title) == MsgBox::No) {
                return ProjectResult::AnsweredNo;
            }
        }
    }

    CloseProjectTables(g);
    if (!FileCopy(g.project.ProjectWorkPath, g.project.ProjectFilePath)) {
        // The tables stay closed while the project stays named: any further use of a
        // project table ends the program.
        ShowCopyFailure(g, g.project.ProjectFilePath,
            {T.key("儲存專案失敗。", 1, 316), T.key("專案檔案[", 2, 316), T.key("]檔案無法儲存。", 3, 316),
                T.key("儲存專案失敗", 4, 316)});
        return ProjectResult::Done;
    }
    OpenProjectTables(g, g.project.ProjectWorkPath);
    g.project.IsProjectModified = false;
    // After the copy on purpose: this date reaches the project file with the next commit.
    SetModifiedDate(g);
    return ProjectResult::Done;
}

void SaveProjectAs(VORNAGlobal& g)
{
    const auto chosen = ShowFileDialog(g,
        DialogOptions(g, T(g, "另存專案", 1, 403), ProposedProjectName(g),
            T(g, "Quillbeacon設定檔案,(*.cbm)|*.cmb|所有檔案,(*.*)|*.*", 1, 408)),
        true);
    if (!chosen)
        return;
    const QString path = *chosen;
    if (FileExists(path)) {
        if (!AskReplace(g, path,
                {T.key("檔案[", 1, 422), T.key("]已經存在，您要取代現存的檔案嗎？", 2, 422),
                    T.key("此檔案已經存在", 3, 422)}))
            return;
        // The copy below replaces the file in one step; it is never deleted first.
        PrepareReplace(path);
    }

    SetPointer(g, Pointer::Hourglass);
    SetStatus(g, OpeningText(g, path, {T.key("專案[", 2, 432), T.key("]開啟中...", 3, 432)}));
    CloseProjectTables(g);
    if (!FileCopy(g.project.ProjectWorkPath, path)) {
        SetPointer(g, Pointer::Default);
        SetStatus(g, QString());
        ShowCopyFailure(g, path,
            {T.key("另存專案失敗。", 1, 446), T.key("專案檔案[", 2, 446), T.key("]檔案無法另存。", 3, 446),
                T.key("另存專案失敗", 4, 446)});
        return;
    }
    // Emptied first so that the open below neither closes nor prompts.
    g.project.ProjectName.clear();
    DeleteFile(g.project.ProjectWorkPath);
    SetPointer(g, Pointer::Default);
    SetStatus(g, QString());
    OpenProject(g, path);
}

void CommitWorkingCopy(VORNAGlobal& g)
{
    CloseProjectTables(g);
    // No trap and no question here: a failed copy is not handled.
    if (!FileCopy(g.project.ProjectWorkPath, g.project.ProjectFilePath))
        throw UnhandledError(QStringLiteral("Permission denied: ") + g.project.ProjectFilePath);
    OpenProjectTables(g, g.project.ProjectWorkPath);
    SetModifiedDate(g);
}
