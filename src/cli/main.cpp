#include <array>
#include <memory>
#include <optional>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>
#include <QStringList>

#include "CliSession.h"
#include "CommPorts.h"
#include "ConsoleLink.h"
#include "ConsolePlatform.h"
#include "ConsoleView.h"
#include "DeviceCommands.h"
#include "ProjectCommands.h"
#include "TraceFile.h"
#include "UnhandledError.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"

namespace {

const char* const UsageText
    = "usage: vorna-cli [--dir DIR] [--yes | --no] [--verbose] COMMAND [ARG...] [--port P] [--trace FILE]\n"
      "\n"
      "commands (vorna-cli COMMAND --help tells more of one):\n"
      "%1"
      "\n"
      "options:\n"
      "  --dir DIR     the program folder (where VORNA.set lies); default: this program's folder\n"
      "  --yes         answer every question Yes (or OK)\n"
      "  --no          answer every question No (or Cancel)\n"
      "  --verbose     print the status texts of long operations\n"
      "  --port P      the dialler's port: COM1 to COM255 (mapped as VORNA.set's [Ports] says)\n"
      "                or a device path such as /dev/ttyUSB0\n"
      "  --trace FILE  write every frame to and from the dialler into FILE as it goes\n"
      "  --help        show this text\n"
      "\n"
      "Questions are otherwise read from stdin; with no input they count as Cancel, or No.\n"
      "Exit status: 0 done, 1 failed or cancelled (a question answered No included),\n"
      "2 usage error, 3 unhandled error.";

// The options that a command may take beyond the common ones.
enum CommandOption : unsigned {
    NoOption = 0,
    PortOption = 1,   // --port, which the command needs, and --trace
    WriteOptions = 2, // --slave, --baud, --parity
};

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
    const QCommandLineOption port(QStringLiteral("port"), QString(), QStringLiteral("P"));
    const QCommandLineOption trace(QStringLiteral("trace"), QString(), QStringLiteral("FILE"));
    const QCommandLineOption slave(QStringLiteral("slave"), QString(), QStringLiteral("N"));
    const QCommandLineOption baud(QStringLiteral("baud"), QString(), QStringLiteral("B"));
    const QCommandLineOption parity(QStringLiteral("parity"), QString(), QStringLiteral("P"));
    parser.addOptions({dir, yes, no, verbose, help, port, trace, slave, baud, parity});
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
    auto value = [&parser](const QCommandLineOption& option) {
        return parser.isSet(option) ? std::optional<QString>(parser.value(option)) : std::nullopt;
    };
    options.port = value(port);
    options.trace = value(trace);
    options.slave = value(slave);
    options.baud = value(baud);
    options.parity = value(parity);
    return {options, QString()};
}

struct Command
{
    const char* name;
    const char* arguments;
    const char* summary;
    const char* details; // what --help adds after the summary, or nothing
    int pathCount;
    unsigned options;
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
      "Every frame is built before the first is printed: a project that would fail midway\n"
      "prints none.\n"
      "\n"
      "Exit status: 0 the project would go, 1 a check refuses it (or the file cannot be\n"
      "opened), 2 usage error, 3 unhandled error (such as a record number over 255).\n";

const char* const ConnectDetails
    = "Opens the port and asks the dialler who it is, as Device Connect does after its port\n"
      "dialog. Its boxes (the dialler's model, serial number and settings, or the failure and\n"
      "the check list) are printed on stderr in the applied language.\n"
      "\n"
      "Exit status: 0 the dialler answered, 1 it did not (or the port would not open).\n";

const char* const DownloadDetails
    = "Opens the project as the window does, copies its working copy over the file without a\n"
      "question, and downloads it as Device Download does: the project check, the size check,\n"
      "the question (--yes answers OK), the two erases and every record, then closes it.\n"
      "PhoneBook.dbg and SHORTMSG.dbg are written into the program folder. On a terminal the\n"
      "record being sent is shown on one line of stderr.\n"
      "\n"
      "Exit status: 0 downloaded, 1 refused, cancelled or failed.\n";

const char* const SettingsDetails
    = "Reads the dialler's model, serial number and communication settings through the\n"
      "settings dialog and prints them. Given --slave N (1 to 255), --baud B (a baud rate\n"
      "that the dialler's model offers) or --parity NONE|ODD|EVEN, it chooses them in the\n"
      "dialog and presses its OK: its check, its question (--yes answers OK) and the write.\n"
      "Settings left out keep the dialler's.\n"
      "\n"
      "Exit status: 0 read (and written, or nothing changed), 1 the dialler did not answer,\n"
      "the check refused, the question was cancelled or the write failed; 2 a value that is\n"
      "not allowed.\n";

const char* const RegistersDetails
    = "Reads every register of the service window's list in turn and prints it: item,\n"
      "content in hexadecimal, address, length; then the read's box. A register that does not\n"
      "answer ends the read, and the rows from it on stay empty.\n"
      "\n"
      "Exit status: 0 every register read, 1 otherwise.\n";

const char* const PortsDetails
    = "Lists COM1 to COM16 with the device each opens, then the system's serial ports that none\n"
      "of those reaches: port number (\"-\" for none), device path, whether it is present,\n"
      "the adapter's description, its serial number and its name under /dev/serial/by-id.\n";

constexpr std::array<Command, 10> Commands {{
    {"new", "PATH", "make a new project file from the template, as File New does", nullptr, 1, NoOption,
        RunNew},
    {"info", "PATH", "show a project's name, model, limits, counts and dates, changing nothing", nullptr, 1,
        NoOption, RunInfo},
    {"save-as", "PATH NEWPATH", "open a project and save it under a new name, as File Save As does", nullptr,
        2, NoOption, RunSaveAs},
    {"recent", "", "list the recent projects, newest first", nullptr, 0, NoOption, RunRecent},
    {"image", "PATH", "show what a download of the project would send, sending nothing", ImageDetails, 1,
        NoOption, RunImage},
    {"connect", "--port P", "connect to the dialler and show who it is, as Device Connect does",
        ConnectDetails, 0, PortOption, RunConnect},
    {"download", "PATH --port P", "download the project into the dialler, as Device Download does",
        DownloadDetails, 1, PortOption, RunDownload},
    {"settings", "--port P [--slave N] [--baud B] [--parity NONE|ODD|EVEN]",
        "show the dialler's identity and settings, or write its settings", SettingsDetails, 0,
        PortOption | WriteOptions, RunSettings},
    {"registers", "--port P", "read the dialler's registers, as the service window does", RegistersDetails, 0,
        PortOption, RunRegisters},
    {"ports", "", "list the serial ports and the devices they open", PortsDetails, 0, NoOption, RunPorts},
}};

QString Usage()
{
    QString commands;
    constexpr int Column = 22;
    for (const Command& c : Commands) {
        const QString call = QString::fromLatin1(c.name) + u' ' + QString::fromLatin1(c.arguments);
        // A call too long for its column has its summary on the next line.
        const QString gap = call.size() < Column ? QString(Column + 1 - call.size(), u' ')
                                                 : QStringLiteral("\n") + QString(Column + 3, u' ');
        commands += QStringLiteral("  ") + call + gap + QString::fromLatin1(c.summary) + u'\n';
    }
    return QString::fromUtf8(UsageText).arg(commands);
}

QString CommandUsage(const Command& c)
{
    const QString trace = (c.options & PortOption) ? QStringLiteral(" [--trace FILE]") : QString();
    return QStringLiteral("usage: vorna-cli [--dir DIR] [--yes | --no] [--verbose] %1 %2%3\n\n%4.\n%5")
        .arg(QString::fromLatin1(c.name), QString::fromLatin1(c.arguments), trace,
            QString::fromLatin1(c.summary),
            c.details ? QStringLiteral("\n") + QString::fromUtf8(c.details) : QString());
}

// The device options checked against what the command takes and against their allowed
// values; an empty text when they are right.
QString CheckDeviceOptions(const Options& o, const Command& c, DeviceOptions& device)
{
    const QString name = QString::fromLatin1(c.name);
    if (!(c.options & PortOption)) {
        if (o.port || o.trace)
            return QLatin1Char('\'') + name
                + QStringLiteral("' talks to no dialler: --port and --trace do not apply");
    } else if (!o.port) {
        return QLatin1Char('\'') + name + QStringLiteral("' needs --port");
    }
    if (!(c.options & WriteOptions) && (o.slave || o.baud || o.parity))
        return QLatin1Char('\'') + name + QStringLiteral("' takes no --slave, --baud or --parity");
    if (o.port) {
        LinkState scratch;
        const QString port = o.port->trimmed();
        static const QRegularExpression number(
            QStringLiteral("^(?:COM)?(\\d+)$"), QRegularExpression::CaseInsensitiveOption);
        const QRegularExpressionMatch m = number.match(port);
        if (m.hasMatch() ? (m.captured(1).toInt() < 1 || m.captured(1).toInt() > 255)
                         : !SetCommPort(scratch, port))
            return QStringLiteral("--port ") + *o.port
                + QStringLiteral(
                    ": give COM1 to COM255 (or 1 to 255), or a device path such as /dev/ttyUSB0");
        device.port = port;
    }
    if (o.slave) {
        static const QRegularExpression digits(QStringLiteral("^\\d{1,3}$"));
        const int slave = o.slave->toInt();
        if (!digits.match(*o.slave).hasMatch() || slave < 1 || slave > 255)
            return QStringLiteral("--slave ") + *o.slave + QStringLiteral(": give a slave id from 1 to 255");
        device.slave = slave;
    }
    if (o.parity) {
        const QString parity = o.parity->toUpper();
        if (!QStringList {QStringLiteral("NONE"), QStringLiteral("ODD"), QStringLiteral("EVEN")}.contains(
                parity))
            return QStringLiteral("--parity ") + *o.parity + QStringLiteral(": give NONE, ODD or EVEN");
        device.parity = parity;
    }
    device.baud = o.baud;
    return QString();
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
    DeviceOptions device;
    const QString optionError = CheckDeviceOptions(options, *command, device);
    if (!optionError.isEmpty())
        return UsageError(optionError);

    // Paths on the command line are the caller's, taken before the program folder
    // becomes the current directory.
    const QDir callerDir = QDir::current();
    QStringList paths;
    for (qsizetype i = 1; i < options.words.size(); ++i) {
        if (options.words.at(i).isEmpty())
            return UsageError(QStringLiteral("empty path"));
        paths << QDir::cleanPath(callerDir.absoluteFilePath(options.words.at(i)));
    }
    if (options.trace && options.trace->isEmpty())
        return UsageError(QStringLiteral("empty path"));
    const QString programDir = options.dir.isEmpty()
        ? QCoreApplication::applicationDirPath()
        : QDir::cleanPath(callerDir.absoluteFilePath(options.dir));
    // The profile and the language file are found through the current directory.
    if (!QDir::setCurrent(programDir))
        return UsageError(
            QStringLiteral("cannot enter the program folder '") + programDir + QLatin1Char('\''));

    TraceFile trace;
    if (options.trace) {
        const QString tracePath = QDir::cleanPath(callerDir.absoluteFilePath(*options.trace));
        if (!trace.open(tracePath)) {
            PrintError(QStringLiteral("vorna-cli: cannot write the trace '") + tracePath
                + QStringLiteral("': ") + trace.errorString());
            return ExitFailed;
        }
    }

    ConsolePlatform platform(options.preset);
    VORNAGlobal g(platform);
    ConsoleView view(options.verbose);
    InitApplication(g, programDir);
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

int UsageError(const QString& message)
{
    PrintError(QStringLiteral("vorna-cli: ") + message);
    PrintError(Usage());
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
