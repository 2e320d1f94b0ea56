#include <array>
#include <optional>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QStringList>
#include <QTemporaryDir>

#include "ConsolePlatform.h"
#include "ConsoleView.h"
#include "DownloadSteps.h"
#include "FileUtil.h"
#include "ProjectFiles.h"
#include "ProjectImage.h"
#include "SystemDB.h"
#include "UnhandledError.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"
#include "ValidUtil.h"

namespace {

constexpr int ExitSuccess = 0;
constexpr int ExitFailed = 1;
constexpr int ExitUsage = 2;

const char* const UsageText
    = "usage: vorna-cli [--dir DIR] [--yes | --no] [--verbose] COMMAND [ARG...]\n"
      "\n"
      "commands (vorna-cli COMMAND --help tells more of one):\n"
      "%1"
      "\n"
      "options:\n"
      "  --dir DIR   the program folder (where VORNA.set lies); default: this program's folder\n"
      "  --yes       answer every question Yes (or OK)\n"
      "  --no        answer every question No (or Cancel)\n"
      "  --verbose   print the status texts of long operations\n"
      "  --help      show this text\n"
      "\n"
      "Questions are otherwise read from stdin; with no input they count as Cancel, or No.\n"
      "Exit status: 0 done, 1 failed or cancelled (a question answered No included),\n"
      "2 usage error, 3 unhandled error.";

struct Options
{
    QString dir;
    ConsolePlatform::Preset preset = ConsolePlatform::Preset::Ask;
    bool verbose = false;
    bool help = false;
    QStringList words; // the command and its arguments
};

// The command line, or the reason it is not one.
struct ParsedOptions
{
    std::optional<Options> options;
    QString error;
};

ParsedOptions ParseOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption dir(QStringLiteral("dir"), QString(), QStringLiteral("DIR"));
    const QCommandLineOption yes(QStringLiteral("yes"));
    const QCommandLineOption no(QStringLiteral("no"));
    const QCommandLineOption verbose(QStringLiteral("verbose"));
    const QCommandLineOption help(QStringList {QStringLiteral("help"), QStringLiteral("h")});
    parser.addOptions({dir, yes, no, verbose, help});
    if (!parser.parse(arguments))
        return {std::nullopt, parser.errorText()};
    if (parser.isSet(yes) && parser.isSet(no))
        return {std::nullopt, QStringLiteral("--yes and --no exclude each other")};

    Options options;
    options.dir = parser.value(dir);
    options.verbose = parser.isSet(verbose);
    options.help = parser.isSet(help);
    options.words = parser.positionalArguments();
    if (parser.isSet(yes))
        options.preset = ConsolePlatform::Preset::Yes;
    if (parser.isSet(no))
        options.preset = ConsolePlatform::Preset::No;
    return {options, QString()};
}

// One run of the program: the shared state on the console platform, started as the
// window starts it. Paths are absolute, as the program folder is the current directory.
struct Session
{
    ConsolePlatform& platform;
    VORNAGlobal& g;
    QStringList paths;
};

int RunNew(Session& s)
{
    s.platform.nextDialogPath = s.paths.at(0);
    NewProject(s.g);
    return s.platform.noAnswers > 0 || s.g.project.ProjectName.isEmpty() ? ExitFailed : ExitSuccess;
}

// The labels of info, in the applied language.
QString InfoLabel(const VORNAGlobal& g, const char* defaultText, int id)
{
    return g.GetText(QString::fromUtf8(defaultText), 1, id, QStringLiteral("VORNACli"));
}

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

int RunInfo(Session& s)
{
    VORNAGlobal& g = s.g;
    const QString path = s.paths.at(0);
    QTemporaryDir scratch;
    if (!OpenPrivateCopy(g, path, scratch))
        return ExitFailed;

    auto line = [&g](const char* label, int id, const QString& value) {
        PrintOutput(InfoLabel(g, label, id) + QStringLiteral(": ") + value);
    };
    ProjectState& p = g.project;
    line("專案", 1, GetFname(path, 0));
    line("檔案", 2, path);
    line("機型", 3, NullToEmpty(p.rsBasic.Fields(QStringLiteral("DeviceModelName"))));
    line("電話號碼上限", 4, QString::number(p.MaxTelNo));
    line("記憶體位元組", 5, QString::number(p.MaxMemoryByte));
    line("群組", 6, QString::number(GetRecordCount(p.rsUserGroups)));
    line("連絡人", 7, QString::number(GetRecordCount(p.rsUsers)));
    line("警報點", 8, QString::number(GetRecordCount(p.rsZones)));
    line("建立日期", 9, NullToEmpty(p.rsBasic.Fields(QStringLiteral("CreatedDate"))));
    line("修改日期", 10, NullToEmpty(p.rsBasic.Fields(QStringLiteral("ModifiedDate"))));
    CloseProjectTables(g);
    return ExitSuccess;
}

QString HexBytes(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

// A download without the line: the project sized and checked in the download's order, then
// the size, every frame and the two debug files' content.
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
        PrintOutput(QString::number(g.project.ProjectImageSize));
        QByteArray phoneBook, shortMsg;
        ForEachDownloadFrame(g, image, [&](const QByteArray& frame, const QString& dbgFile) {
            PrintOutput(HexBytes(frame));
            if (!dbgFile.isEmpty())
                (dbgFile == PhoneBookDbgFile ? phoneBook : shortMsg).append(frame.chopped(2));
        });
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

struct Command
{
    const char* name;
    const char* arguments;
    const char* summary;
    const char* details; // what --help adds after the summary, or nothing
    int pathCount;
    int (*run)(Session&);
};

const char* const ImageDetails
    = "The project is read as the window opens it, from a private copy: neither the file nor\n"
      "the recent list changes, and no port is opened. It is then checked as a download\n"
      "checks it: its image is sized, the project check runs, and the size is compared with\n"
      "the memory of its model (MaxMemoryByte). A check that refuses the project prints its\n"
      "box on stderr, title and text in the applied language. Nothing is asked.\n"
      "\n"
      "Output, when the project would go:\n"
      "  the image size in bytes, in decimal;\n"
      "  every frame the download would send, in order, one a line in hexadecimal with its\n"
      "  CRC (low byte first): the erase of the phone book, the erase of the short messages,\n"
      "  each phone-book record, each short-message record;\n"
      "  \"PhoneBook.dbg:\" and \"SHORTMSG.dbg:\", each followed by the content in hexadecimal\n"
      "  that the download would write to that file (its records without their CRC).\n"
      "\n"
      "Exit status: 0 the project would go, 1 a check refuses it (or the file cannot be\n"
      "opened), 2 usage error, 3 unhandled error (such as a record number over 255).\n";

constexpr std::array<Command, 5> Commands {{
    {"new", "PATH", "make a new project file from the template, as File New does", nullptr, 1, RunNew},
    {"info", "PATH", "show a project's name, model, limits, counts and dates, changing nothing", nullptr, 1,
        RunInfo},
    {"save-as", "PATH NEWPATH", "open a project and save it under a new name, as File Save As does", nullptr,
        2, RunSaveAs},
    {"recent", "", "list the recent projects, newest first", nullptr, 0, RunRecent},
    {"image", "PATH", "show what a download of the project would send, sending nothing", ImageDetails, 1,
        RunImage},
}};

QString Usage()
{
    QString commands;
    for (const Command& c : Commands)
        commands += QStringLiteral("  %1 %2\n")
                        .arg(QString::fromLatin1(c.name) + u' ' + QString::fromLatin1(c.arguments), -22)
                        .arg(QString::fromLatin1(c.summary));
    return QString::fromUtf8(UsageText).arg(commands);
}

QString CommandUsage(const Command& c)
{
    return QStringLiteral("usage: vorna-cli [--dir DIR] [--yes | --no] [--verbose] %1 %2\n\n%3.\n%4")
        .arg(QString::fromLatin1(c.name), QString::fromLatin1(c.arguments), QString::fromLatin1(c.summary),
            c.details ? QStringLiteral("\n") + QString::fromUtf8(c.details) : QString());
}

int UsageError(const QString& message)
{
    PrintError(QStringLiteral("vorna-cli: ") + message);
    PrintError(Usage());
    return ExitUsage;
}

int Run(const QStringList& arguments)
{
    const ParsedOptions parsed = ParseOptions(arguments);
    if (!parsed.options)
        return UsageError(parsed.error);
    const Options& options = *parsed.options;
    if (options.words.isEmpty()) {
        if (!options.help)
            return UsageError(QStringLiteral("no command given"));
        PrintOutput(Usage());
        return ExitSuccess;
    }

    const QString name = options.words.first();
    const Command* command = nullptr;
    for (const Command& candidate : Commands)
        if (name == QLatin1String(candidate.name))
            command = &candidate;
    if (!command)
        return UsageError(QStringLiteral("unknown command '") + name + QLatin1Char('\''));
    if (options.help) {
        PrintOutput(CommandUsage(*command));
        return ExitSuccess;
    }
    if (options.words.size() - 1 != command->pathCount)
        return UsageError(QStringLiteral("'") + name + QStringLiteral("' takes ")
            + QString::number(command->pathCount) + QStringLiteral(" argument(s)"));

    // Paths on the command line are the caller's, taken before the program folder
    // becomes the current directory.
    const QDir callerDir = QDir::current();
    QStringList paths;
    for (qsizetype i = 1; i < options.words.size(); ++i) {
        if (options.words.at(i).isEmpty())
            return UsageError(QStringLiteral("empty path"));
        paths << QDir::cleanPath(callerDir.absoluteFilePath(options.words.at(i)));
    }
    const QString programDir = options.dir.isEmpty()
        ? QCoreApplication::applicationDirPath()
        : QDir::cleanPath(callerDir.absoluteFilePath(options.dir));
    // The profile and the language file are found through the current directory.
    if (!QDir::setCurrent(programDir))
        return UsageError(
            QStringLiteral("cannot enter the program folder '") + programDir + QLatin1Char('\''));

    ConsolePlatform platform(options.preset);
    VORNAGlobal g(platform);
    ConsoleView view(options.verbose);
    InitApplication(g, programDir);
    g.setView(&view);

    Session session {platform, g, paths};
    const int status = command->run(session);

    // The program's closing steps, with the command's own status.
    CloseApplication(g);
    return status;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    try {
        return Run(QCoreApplication::arguments());
    } catch (const UnhandledError& error) {
        QString text = error.text();
        text.replace(QLatin1Char('\n'), QLatin1Char(' '));
        PrintError(QStringLiteral("vorna-cli: ") + error.title() + QStringLiteral(": ") + text);
        return UnhandledErrorExitStatus;
    }
}
