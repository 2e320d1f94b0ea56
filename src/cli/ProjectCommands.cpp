#include "ProjectCommands.h"

#include <utility>
#include <vector>

#include <QTemporaryDir>

#include "CliSession.h"
#include "ConsolePlatform.h"
#include "DownloadSteps.h"
#include "FileUtil.h"
#include "ProjectFiles.h"
#include "ProjectImage.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "ValidUtil.h"

namespace {

const ModuleText T {"VORNACli"};

// Opens the project's tables on a private copy after Open's checks of the path, so that
// neither the file, a working copy beside it nor the recent list changes.
bool OpenPrivateCopy(VORNAGlobal& g, const QString& path, const QTemporaryDir& scratch)
{
    if (!IsProjectFilePath(g, path))
        return false;
    const QString copy = scratch.filePath(QStringLiteral("project.mir"));
    if (!scratch.isValid() || !FileCopyOwn(path, copy))
        return false;
    OpenProjectTables(g, copy);
    ReadModelLimits(g);
    return true;
}

QString HexBytes(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

} // namespace

int RunNew(Session& s)
{
    s.platform.nextDialogPath = s.paths.at(0);
    NewProject(s.g);
    return s.platform.noAnswers > 0 || s.g.project.ProjectName.isEmpty() ? ExitFailed : ExitSuccess;
}

int RunInfo(Session& s)
{
    VORNAGlobal& g = s.g;
    const QString path = s.paths.at(0);
    QTemporaryDir scratch;
    if (!OpenPrivateCopy(g, path, scratch))
        return ExitFailed;

    auto line = [&g](const TextKey& label, const QString& value) {
        PrintOutput(g.GetText(label) + QStringLiteral(": ") + value);
    };
    ProjectState& p = g.project;
    line(T.key("專案", 1, 1), GetFname(path, 0));
    line(T.key("檔案", 1, 2), path);
    line(T.key("機型", 1, 3), NullToEmpty(p.rsBasic.Fields(QStringLiteral("DeviceModelName"))));
    line(T.key("電話號碼上限", 1, 4), QString::number(p.MaxTelNo));
    line(T.key("記憶體位元組", 1, 5), QString::number(p.MaxMemoryByte));
    line(T.key("連絡人群組", 1, 6), QString::number(GetRecordCount(p.rsUserGroups)));
    line(T.key("連絡人", 1, 7), QString::number(GetRecordCount(p.rsUsers)));
    line(T.key("警報點", 1, 8), QString::number(GetRecordCount(p.rsZones)));
    line(T.key("建立日期", 1, 9), NullToEmpty(p.rsBasic.Fields(QStringLiteral("CreatedDate"))));
    line(T.key("修改日期", 1, 10), NullToEmpty(p.rsBasic.Fields(QStringLiteral("ModifiedDate"))));
    CloseProjectTables(g);
    return ExitSuccess;
}

// A download without the line: the project sized and checked in the download's order, then
// the size, every frame and the two debug files' content. Every frame is built before the
// first is printed, so that a project that would fail midway prints none.
int RunImage(Session& s)
{
    VORNAGlobal& g = s.g;
    QTemporaryDir scratch;
    if (!OpenPrivateCopy(g, s.paths.at(0), scratch))
        return ExitFailed;
    ProjectImage image;
    BuildProjectImage(g, image);
    const bool ready = IsProjectReady(g) && IsImageSizeAllowed(g);
    if (ready) {
        std::vector<std::pair<QByteArray, QString>> frames;
        ForEachDownloadFrame(g, image, [&frames](const QByteArray& frame, const QString& dbgFile) {
            frames.emplace_back(frame, dbgFile);
        });
        PrintOutput(QString::number(g.project.ProjectImageSize));
        QByteArray phoneBook, shortMsg;
        for (const auto& [frame, dbgFile] : frames) {
            PrintOutput(HexBytes(frame));
            if (!dbgFile.isEmpty())
                (dbgFile == PhoneBookDbgFile ? phoneBook : shortMsg).append(frame.chopped(2));
        }
        for (const auto& [file, content] :
            {std::pair {PhoneBookDbgFile, phoneBook}, {ShortMsgDbgFile, shortMsg}})
            PrintOutput((file + QLatin1Char(':') + QLatin1Char(' ') + HexBytes(content)).trimmed());
    }
    CloseProjectTables(g);
    return ready ? ExitSuccess : ExitFailed;
}

int RunSaveAs(Session& s)
{
    if (!OpenProject(s.g, s.paths.at(0)))
        return ExitFailed;
    s.platform.nextDialogPath = s.paths.at(1);
    SaveProjectAs(s.g);
    // A No to the replace question leaves the old project open; a refused name leaves none.
    const bool saved = s.platform.noAnswers == 0 && !s.g.project.ProjectName.isEmpty()
        && s.g.project.ProjectFilePath == s.paths.at(1);
    return saved ? ExitSuccess : ExitFailed;
}

int RunRecent(Session& s)
{
    for (int i = 1; i <= s.g.system.MRUCount; ++i)
        PrintOutput(s.g.system.MRUFilePath(i));
    return ExitSuccess;
}
