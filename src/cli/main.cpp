#include <array>
#include <optional>

#include <QCoreApplication>
#include <QDir>
#include <QStringList>

#include "ConsolePlatform.h"
#include "ConsoleView.h"
#include "ProjectFiles.h"
#include "SystemDB.h"
#include "UnhandledError.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"

namespace {

constexpr int ExitSuccess = 0;
constexpr int ExitFailed = 1;
constexpr int ExitUsage = 2;

const char* const UsageText
    = "usage: vorna-cli [--dir DIR] [--yes | --no] [--verbose] COMMAND [ARG...]\n"
      "\n"
      "commands:\n"
      "  new PATH            make a new project file from the template\n"
      "  info PATH           show a project's name, model, limits, counts and dates\n"
      "  save-as PATH NEWPATH  save a project under a new name\n"
      "  recent              list the recent projects, newest first\n"
      "\n"
      "options:\n"
      "  --dir DIR   the program folder (where VORNA.set lies); default: this program's folder\n"
      "  --yes       answer every question Yes (or OK)\n"
      "  --no        answer every question No (or Cancel)\n"
      "  --verbose   print the status texts of long operations\n"
      "  --help      show this text\n"
      "\n"
      "Questions are otherwise read from stdin; with no input they count as Cancel, or No.\n"
      "Exit status: 0 done, 1 failed or cancelled, 2 usage error, 3 unhandled error.";

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
    Options options;
    bool yes = false;
    bool no = false;
    bool optionsEnded = false;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString& arg = arguments.at(i);
        if (optionsEnded || !arg.startsWith(QLatin1Char('-')) || arg == QLatin1String("-")) {
            options.words << arg;
        } else if (arg == QLatin1String("--")) {
            optionsEnded = true;
        } else if (arg == QLatin1String("--dir")) {
            if (++i == arguments.size())
                return {std::nullopt, QStringLiteral("--dir needs a folder")};
            options.dir = arguments.at(i);
        } else if (arg == QLatin1String("--yes")) {
            yes = true;
        } else if (arg == QLatin1String("--no")) {
            no = true;
        } else if (arg == QLatin1String("--verbose")) {
            options.verbose = true;
        } else if (arg == QLatin1String("--help") || arg == QLatin1String("-h")) {
            options.help = true;
        } else {
            return {std::nullopt, QStringLiteral("unknown option '") + arg + QLatin1Char('\'')};
        }
    }
    if (yes && no)
        return {std::nullopt, QStringLiteral("--yes and --no exclude each other")};
    if (yes)
        options.preset = ConsolePlatform::Preset::Yes;
    if (no)
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
    return s.g.project.ProjectName.isEmpty() ? ExitFailed : ExitSuccess;
}

int RunInfo(Session& s)
{
    VORNAGlobal& g = s.g;
    if (!OpenProject(g, s.paths.at(0)))
        return ExitFailed;
    auto line = [](const char* label, const QString& value) {
        PrintOutput(QString::fromLatin1(label) + QStringLiteral(": ") + value);
    };
    line("Project", g.project.ProjectName);
    line("File", g.project.ProjectFilePath);
    line("Model", NullToEmpty(g.project.rsBasic.Fields(QStringLiteral("DeviceModelName"))));
    line("MaxTelNo", QString::number(g.project.MaxTelNo));
    line("MaxMemoryByte", QString::number(g.project.MaxMemoryByte));
    line("Groups", QString::number(GetRecordCount(g.project.rsUserGroups)));
    line("Contacts", QString::number(GetRecordCount(g.project.rsUsers)));
    line("Zones", QString::number(GetRecordCount(g.project.rsZones)));
    line("Created", NullToEmpty(g.project.rsBasic.Fields(QStringLiteral("CreatedDate"))));
    line("Modified", NullToEmpty(g.project.rsBasic.Fields(QStringLiteral("ModifiedDate"))));
    return ExitSuccess;
}

int RunSaveAs(Session& s)
{
    if (!OpenProject(s.g, s.paths.at(0)))
        return ExitFailed;
    s.platform.nextDialogPath = s.paths.at(1);
    SaveProjectAs(s.g);
    // A No to the replace question leaves the old project open; a refused name leaves none.
    const bool saved = !s.g.project.ProjectName.isEmpty() && s.g.project.ProjectFilePath == s.paths.at(1);
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
    int pathCount;
    int (*run)(Session&);
};

constexpr std::array<Command, 4> Commands {{
    {"new", 1, RunNew},
    {"info", 1, RunInfo},
    {"save-as", 2, RunSaveAs},
    {"recent", 0, RunRecent},
}};

int UsageError(const QString& message)
{
    PrintError(QStringLiteral("vorna-cli: ") + message);
    PrintError(QString::fromUtf8(UsageText));
    return ExitUsage;
}

int Run(const QStringList& arguments)
{
    const ParsedOptions parsed = ParseOptions(arguments);
    if (!parsed.options)
        return UsageError(parsed.error);
    const Options& options = *parsed.options;
    if (options.help) {
        PrintOutput(QString::fromUtf8(UsageText));
        return ExitSuccess;
    }
    if (options.words.isEmpty())
        return UsageError(QStringLiteral("no command given"));

    const QString name = options.words.first();
    const Command* command = nullptr;
    for (const Command& candidate : Commands)
        if (name == QLatin1String(candidate.name))
            command = &candidate;
    if (!command)
        return UsageError(QStringLiteral("unknown command '") + name + QLatin1Char('\''));
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
