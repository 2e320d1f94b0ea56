#include "Options.h"

#include <QCommandLineParser>

namespace devsim {

namespace {

const char* const Description
    = R"(A virtual GSM SMS alarm dialler on a pseudo-terminal, for testing VORNA's device link.

It opens a pseudo-terminal, prints the path of its slave side on the first line of standard
output, and answers there as the dialler does in setting mode (SW2 ON) at station 247:
function 04 (input registers 0000H-000BH: model id, firmware, S/N, address of new record,
status and counters), 03 and 10 (0080H slave id, 0081H setting byte; 0082H project CRC
read only), 01 (the 64 alarm bits) and 50 (erase the phone book or the short messages, store
a phone-book or a short-message record). Anything else gets a Modbus exception answer.

Faults. Each fault option takes either a rate, a number from 0 to 1 ("0.25": each request
by chance, repeatable with --seed), or a list after "@" of request numbers and records
("@3,7", "@record:5", "@2,record:5x2"). Requests are numbered from 1 in the order the
dialler receives them, counting every well-formed frame for station 247, retries included.
Records (phone-book and short-message records) are numbered from 1 in the order they are
first sent; a retry repeats the same frame and keeps the number. "record:N" strikes every
attempt at record N, "record:NxK" only its first K attempts, so that with K no more than
the tool's retries the record goes through in the end. Several faults on one request apply
in the order of the options below.

Dump. With --dump PATH the dialler writes a JSON file after every request and on exit
(SIGTERM and SIGINT included), replacing it in one step, so a test can read it at any time:
the registers, the phone book and the messages with their bytes, the erase counts, the
request counts and every request with its faults and the answer sent.

Exit status: 0 after SIGTERM, SIGINT or the close fault, 1 if the pseudo-terminal or the
link cannot be made, 2 for a usage error.)";

struct FaultOption
{
    Fault fault;
    const char* help;
};

const FaultOption FaultOptions[] = {
    {Fault::DropRequest, "Ignore the request: no answer, no effect."},
    {Fault::Exception, "Answer with an exception (see --exception-code) instead."},
    {Fault::WrongStation, "Answer from station 248."},
    {Fault::WrongFunction, "Answer with the function code plus one."},
    {Fault::CorruptCrc, "Invert the low byte of the answer's CRC."},
    {Fault::Truncate, "Send only the first half of the answer."},
    {Fault::DropResponse, "Act on the request but send no answer."},
    {Fault::Noise, "Send three random bytes before the answer."},
    {Fault::ExtraBytes, "Send three random bytes after the answer."},
    {Fault::Delay, "Hold the answer back by --delay-ms."},
};

// Hex with or without 0x, for values that are read as hex digits.
bool ParseHex(const QString& text, int digits, quint64& value)
{
    QString hex = text;
    if (hex.startsWith(QLatin1String("0x"), Qt::CaseInsensitive))
        hex = hex.mid(2);
    bool ok = false;
    value = hex.toULongLong(&ok, 16);
    return ok && hex.size() == digits;
}

// Decimal, or hex with 0x.
bool ParseNumber(const QString& text, qint64 low, qint64 high, qint64& value)
{
    bool ok = false;
    value = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive) ? text.mid(2).toLongLong(&ok, 16)
                                                                      : text.toLongLong(&ok, 10);
    return ok && value >= low && value <= high;
}

} // namespace

ParseResult ParseOptions(const QStringList& arguments, Options& options, QString& message)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QString::fromUtf8(Description));
    parser.addHelpOption();
    const auto value = [&parser](const char* name, const char* help, const char* valueName,
                           const QString& defaultValue = {}) {
        parser.addOption(QCommandLineOption(QString::fromLatin1(name), QString::fromUtf8(help),
            QString::fromLatin1(valueName), defaultValue));
    };
    value("link", "Also make a symbolic link at PATH to the pseudo-terminal (removed on exit).", "PATH");
    value(
        "model-id", "Model ID register, 4 hex digits (default 4006: RM64T).", "HEX", QStringLiteral("4006"));
    value(
        "firmware", "Firmware Version register, 4 hex digits (default 0301).", "HEX", QStringLiteral("0301"));
    value("serial",
        "Product S/N, 16 hex digits in the order of the answer (default 0102030405060708, "
        "which the tool shows as 07-08-0506-030401-02).",
        "HEX", QStringLiteral("0102030405060708"));
    value("slave-id", "Slave ID of COM1, 0 to 255 (default 1).", "N", QStringLiteral("1"));
    value("setting-byte", "Setting of COM1: parity bits and BaudID (default 3: 9600, none).", "N",
        QStringLiteral("3"));
    value("alarm-bits", "The 64 alarm bits, 16 hex digits, alarm 63 first (default all clear).", "HEX",
        QStringLiteral("0000000000000000"));
    parser.addOption(QCommandLineOption(QStringLiteral("sw2-off"),
        QStringLiteral("Switch SW2 off (run mode): receive and count requests, answer none.")));
    value("baud",
        "Pace the line at N baud: a request counts as in once its bytes would have crossed, the "
        "answer starts 3.5 characters later, each byte sent when its 10 bits have passed "
        "(default 9600; 0 answers at once).",
        "N", QStringLiteral("9600"));
    for (const FaultOption& fault : FaultOptions)
        parser.addOption(QCommandLineOption(FaultName(fault.fault), QString::fromUtf8(fault.help),
            QStringLiteral("RATE|@N,record:N[xK],...")));
    value("exception-code", "Exception code of the exception fault (default 4).", "N", QStringLiteral("4"));
    value("delay-ms", "Hold-back of the delay fault, in ms (default 3500).", "MS", QStringLiteral("3500"));
    value("close-after-record", "Answer the K-th phone-book or message record, then hang up and exit.", "K",
        QStringLiteral("0"));
    value("seed", "Seed of the random choices of the rates and the noise (default 1).", "N",
        QStringLiteral("1"));
    value("dump", "Write the JSON dump to PATH after every request and on exit.", "PATH");

    if (!parser.parse(arguments)) {
        message = parser.errorText();
        return ParseResult::Error;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        message = parser.helpText();
        return ParseResult::Help;
    }
    if (!parser.positionalArguments().isEmpty()) {
        message = QStringLiteral("unexpected argument: %1").arg(parser.positionalArguments().first());
        return ParseResult::Error;
    }

    const auto bad = [&message](const char* option, const QString& text) {
        message = QStringLiteral("bad value for --%1: %2").arg(QString::fromLatin1(option), text);
        return ParseResult::Error;
    };
    DiallerSettings& dialler = options.dialler;
    Identity& identity = dialler.identity;
    quint64 hex = 0;
    qint64 number = 0;
    QString text = parser.value(QStringLiteral("model-id"));
    if (!ParseHex(text, 4, hex))
        return bad("model-id", text);
    identity.modelId = static_cast<quint16>(hex);
    text = parser.value(QStringLiteral("firmware"));
    if (!ParseHex(text, 4, hex))
        return bad("firmware", text);
    identity.firmware = static_cast<quint16>(hex);
    text = parser.value(QStringLiteral("serial"));
    if (!ParseHex(text, 16, hex))
        return bad("serial", text);
    for (int i = 0; i < 8; ++i)
        identity.serial[i] = static_cast<quint8>(hex >> (8 * (7 - i)));
    text = parser.value(QStringLiteral("alarm-bits"));
    if (!ParseHex(text, 16, hex))
        return bad("alarm-bits", text);
    identity.alarmBits = hex;
    text = parser.value(QStringLiteral("slave-id"));
    if (!ParseNumber(text, 0, 255, number))
        return bad("slave-id", text);
    identity.slaveId = static_cast<quint8>(number);
    text = parser.value(QStringLiteral("setting-byte"));
    if (!ParseNumber(text, 0, 255, number))
        return bad("setting-byte", text);
    identity.settingByte = static_cast<quint8>(number);
    dialler.sw2On = !parser.isSet(QStringLiteral("sw2-off"));

    text = parser.value(QStringLiteral("baud"));
    if (!ParseNumber(text, 0, 4'000'000, number))
        return bad("baud", text);
    options.baud = static_cast<int>(number);
    dialler.gapUs = 35'000'000 / (options.baud > 0 ? options.baud : 9600);

    for (const FaultOption& fault : FaultOptions) {
        const QString name = FaultName(fault.fault);
        if (!parser.isSet(name))
            continue;
        text = parser.value(name);
        const std::optional<FaultSelector> selector = ParseFaultSelector(text);
        if (!selector)
            return bad(name.toLatin1().constData(), text);
        dialler.faults[static_cast<int>(fault.fault)] = *selector;
    }
    text = parser.value(QStringLiteral("exception-code"));
    if (!ParseNumber(text, 0, 255, number))
        return bad("exception-code", text);
    dialler.exceptionCode = static_cast<quint8>(number);
    text = parser.value(QStringLiteral("delay-ms"));
    if (!ParseNumber(text, 0, 600'000, number))
        return bad("delay-ms", text);
    dialler.delayUs = number * 1000;
    text = parser.value(QStringLiteral("close-after-record"));
    if (!ParseNumber(text, 0, 1'000'000, number))
        return bad("close-after-record", text);
    dialler.closeAfterRecord = static_cast<int>(number);
    text = parser.value(QStringLiteral("seed"));
    if (!ParseNumber(text, 0, 0xFFFFFFFF, number))
        return bad("seed", text);
    dialler.seed = static_cast<quint32>(number);

    options.link = parser.value(QStringLiteral("link"));
    options.dump = parser.value(QStringLiteral("dump"));
    return ParseResult::Run;
}

} // namespace devsim
