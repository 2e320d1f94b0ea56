#include <functional>
#include <memory>
#include <optional>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

#include "CliSession.h"
#include "CommPorts.h"
#include "CommandTable.h"
#include "ConsoleLink.h"
#include "ConsolePlatform.h"
#include "ConsoleView.h"
#include "TraceFile.h"
#include "UnhandledError.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"

namespace {

const ModuleText T {"VORNACli"};

struct Options
{
    QString dir;
    ConsolePlatform::Preset preset = ConsolePlatform::Preset::Ask;
    bool verbose = false;
    bool help = false;
    QStringList words; // the command and its arguments
    std::optional<QString> port;
    std::optional<QString> trace;
    std::optional<QString> slave;
    std::optional<QString> baud;
    std::optional<QString> parity;
};

// The command line as far as it goes, and what is wrong with it, worded only once the
// language is known: the folder that holds the language may come from the command line.
struct ParsedOptions
{
    Options options;
    std::function<QString(const VORNAGlobal&)> error;
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
    const QCommandLineOption port(QStringLiteral("port"), QString(), QStringLiteral("P"));
    const QCommandLineOption trace(QStringLiteral("trace"), QString(), QStringLiteral("FILE"));
    const QCommandLineOption slave(QStringLiteral("slave"), QString(), QStringLiteral("N"));
    const QCommandLineOption baud(QStringLiteral("baud"), QString(), QStringLiteral("B"));
    const QCommandLineOption parity(QStringLiteral("parity"), QString(), QStringLiteral("P"));
    parser.addOptions({dir, yes, no, verbose, help, port, trace, slave, baud, parity});

    ParsedOptions parsed;
    if (!parser.parse(arguments)) {
        // The parser's own wording is English; an unknown option is the usual slip, and is
        // told in the applied language.
        const QStringList unknown = parser.unknownOptionNames();
        const QString error = parser.errorText();
        parsed.error = [unknown, error](const VORNAGlobal& g) {
            return unknown.isEmpty() ? T(g, "選項有誤: ", 1, 45) + error
                                     : T(g, "沒有這個選項: ", 1, 44) + QStringLiteral("--") + unknown.first();
        };
    } else if (parser.isSet(yes) && parser.isSet(no)) {
        parsed.error = [](const VORNAGlobal& g) { return T(g, "--yes 與 --no 不能同時使用", 1, 41); };
    }

    Options& options = parsed.options;
    options.dir = parser.value(dir);
    options.verbose = parser.isSet(verbose);
    options.help = parser.isSet(help);
    options.words = parser.positionalArguments();
    if (parser.isSet(yes))
        options.preset = ConsolePlatform::Preset::Yes;
    if (parser.isSet(no))
        options.preset = ConsolePlatform::Preset::No;
    auto value = [&parser](const QCommandLineOption& option) {
        return parser.isSet(option) ? std::optional<QString>(parser.value(option)) : std::nullopt;
    };
    options.port = value(port);
    options.trace = value(trace);
    options.slave = value(slave);
    options.baud = value(baud);
    options.parity = value(parity);
    return parsed;
}

// The device options checked against what the command takes and against their allowed
// values; an empty text when they are right.
QString CheckDeviceOptions(const VORNAGlobal& g, const Options& o, const Command& c, DeviceOptions& device)
{
    const QString name = QLatin1Char('\'') + QString::fromLatin1(c.name);
    if (!(c.options & PortOption)) {
        if (o.port || o.trace)
            return name + T(g, "' 不與報警機通訊: --port 與 --trace 不適用", 1, 33);
    } else if (!o.port) {
        return name + T(g, "' 需要 --port", 1, 34);
    }
    if (!(c.options & WriteOptions) && (o.slave || o.baud || o.parity))
        return name + T(g, "' 不接受 --slave、--baud 或 --parity", 1, 35);
    if (o.port) {
        LinkState scratch;
        const QString port = o.port->trimmed();
        static const QRegularExpression number(
            QStringLiteral("^(?:COM)?(\\d+)$"), QRegularExpression::CaseInsensitiveOption);
        const QRegularExpressionMatch m = number.match(port);
        if (m.hasMatch() ? (m.captured(1).toInt() < 1 || m.captured(1).toInt() > 255)
                         : !SetCommPort(scratch, port))
            return QStringLiteral("--port ") + *o.port
                + T(g, ": 請指定 COM1 至 COM255 (或 1 至 255)，或裝置路徑，例如 /dev/ttyUSB0", 1, 36);
        device.port = port;
    }
    if (o.slave) {
        static const QRegularExpression digits(QStringLiteral("^\\d{1,3}$"));
        const int slave = o.slave->toInt();
        if (!digits.match(*o.slave).hasMatch() || slave < 1 || slave > 255)
            return QStringLiteral("--slave ") + *o.slave + T(g, ": 請指定 1 至 255 的裝置識別碼", 1, 37);
        device.slave = slave;
    }
    if (o.parity) {
        const QString parity = o.parity->toUpper();
        if (!QStringList {QStringLiteral("NONE"), QStringLiteral("ODD"), QStringLiteral("EVEN")}.contains(
                parity))
            return QStringLiteral("--parity ") + *o.parity + T(g, ": 請指定 NONE、ODD 或 EVEN", 1, 38);
        device.parity = parity;
    }
    device.baud = o.baud;
    return QString();
}

// The language of the usage texts, known before the program's own start, which a usage
// error never reaches. Without the profile or the language file the texts stay as written;
// the start then tells what is missing.
void LoadUsageLanguage(VORNAGlobal& g, const QString& programDir)
{
    const QDir dir(programDir);
    const QString profile = dir.filePath(g.program.App.EXEName + QStringLiteral(".set"));
    const QString language = dir.filePath(g.program.App.Title + QStringLiteral(".ml"));
    if (!QFileInfo::exists(profile) || !QFileInfo::exists(language))
        return;
    g.ml.ReadMLSettings(profile, g.program.App.EXEName);
    g.ml.OpenMLConn(language);
    g.ml.LoadTextTable();
    g.ml.CloseML();
}

int Run(const QStringList& arguments)
{
    const ParsedOptions parsed = ParseOptions(arguments);
    const Options& options = parsed.options;
    // Paths on the command line are the caller's, taken before the program folder
    // becomes the current directory.
    const QDir callerDir = QDir::current();
    const QString programDir = options.dir.isEmpty()
        ? QCoreApplication::applicationDirPath()
        : QDir::cleanPath(callerDir.absoluteFilePath(options.dir));

    ConsolePlatform platform(options.preset);
    VORNAGlobal g(platform);
    LoadUsageLanguage(g, programDir);
    if (parsed.error)
        return UsageError(g, parsed.error(g));
    if (options.words.isEmpty()) {
        if (!options.help)
            return UsageError(g, T(g, "沒有指定命令", 1, 30));
        PrintOutput(Usage(g));
        return ExitSuccess;
    }

    const QString name = options.words.first();
    const Command* command = FindCommand(name);
    if (!command)
        return UsageError(g, T(g, "沒有這個命令 '", 1, 31) + name + QLatin1Char('\''));
    if (options.help) {
        PrintOutput(CommandUsage(g, *command));
        return ExitSuccess;
    }
    if (options.words.size() - 1 != command->pathCount)
        return UsageError(g,
            QLatin1Char('\'') + name + T(g, "' 應有 ", 1, 32) + QString::number(command->pathCount)
                + T(g, " 個引數", 2, 32));
    DeviceOptions device;
    const QString optionError = CheckDeviceOptions(g, options, *command, device);
    if (!optionError.isEmpty())
        return UsageError(g, optionError);

    QStringList paths;
    for (qsizetype i = 1; i < options.words.size(); ++i) {
        if (options.words.at(i).isEmpty())
            return UsageError(g, T(g, "路徑是空的", 1, 39));
        paths << QDir::cleanPath(callerDir.absoluteFilePath(options.words.at(i)));
    }
    if (options.trace && options.trace->isEmpty())
        return UsageError(g, T(g, "路徑是空的", 1, 39));
    // The profile and the language file are found through the current directory.
    if (!QDir::setCurrent(programDir))
        return UsageError(g, T(g, "無法進入程式資料夾 '", 1, 40) + programDir + QLatin1Char('\''));

    TraceFile trace;
    if (options.trace) {
        const QString tracePath = QDir::cleanPath(callerDir.absoluteFilePath(*options.trace));
        if (!trace.open(tracePath)) {
            PrintError(QStringLiteral("vorna-cli: ") + T(g, "無法寫入追蹤檔 '", 1, 43) + tracePath
                + QStringLiteral("': ") + trace.errorString());
            return ExitFailed;
        }
    }

    InitApplication(g, programDir);
    // The boxes of the start are worded before any language is known; from here on the
    // console's own words follow the applied language too.
    platform.language = &g.ml;
    ConsoleView view(options.verbose,
        g.ml.GetFormText(
            QStringLiteral("frmMain"), QStringLiteral("sbStatusBar.Panels(1)"), QStringLiteral("Text")));
    g.setView(&view);

    Session session {platform, g, paths, device};
    std::unique_ptr<ConsoleLink> link;
    if (command->options & PortOption) {
        SetCommPort(g.link, device.port);
        link = std::make_unique<ConsoleLink>(g, platform);
        if (options.trace)
            g.link.Trace = &trace;
    }
    const int status = command->run(session);
    g.link.Trace = nullptr;
    link.reset();

    // The program's closing steps, with the command's own status.
    CloseApplication(g);
    return status;
}

} // namespace

int UsageError(const VORNAGlobal& g, const QString& message)
{
    PrintError(QStringLiteral("vorna-cli: ") + message);
    PrintError(Usage(g));
    return ExitUsage;
}

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
