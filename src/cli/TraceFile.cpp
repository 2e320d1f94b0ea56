#include "TraceFile.h"

namespace {

int Byte(const QByteArray& frame, int position)
{
    return position <= frame.size() ? quint8(frame.at(position - 1)) : -1;
}

QString Hex2(int b)
{
    return QStringLiteral("%1").arg(b & 0xFF, 2, 16, QLatin1Char('0')).toUpper();
}

// Address and count of a register or bit request, as "0080H x2".
QString Range(const QByteArray& frame)
{
    const int address = Byte(frame, 3) * 256 + Byte(frame, 4);
    const int count = Byte(frame, 5) * 256 + Byte(frame, 6);
    return QStringLiteral("%1H x%2").arg(Hex2(address >> 8) + Hex2(address)).arg(count);
}

struct FunctionName
{
    int code;
    const char* name;
};

constexpr FunctionName RegisterFunctions[] = {
    {0x01, "read alarm bits"},
    {0x03, "read holding registers"},
    {0x04, "read input registers"},
    {0x10, "write registers"},
};

// The sub-functions of the dialler's own function 0x50; the records carry their number.
struct SubFunctionName
{
    int code;
    const char* name;
    bool numbered;
};

constexpr SubFunctionName RecordFunctions[] = {
    {0x40, "erase phone book", false},
    {0x50, "erase messages", false},
    {0x43, "phone-book record", true},
    {0x53, "message record", true},
};

} // namespace

QString DescribeRequest(const QByteArray& frame)
{
    if (frame.size() < 6)
        return QStringLiteral("short frame");
    const int function = Byte(frame, 2);
    for (const FunctionName& f : RegisterFunctions)
        if (f.code == function)
            return QString::fromLatin1(f.name) + QLatin1Char(' ') + Range(frame);
    if (function == 0x50) {
        const int sub = Byte(frame, 3);
        for (const SubFunctionName& f : RecordFunctions)
            if (f.code == sub)
                return QStringLiteral("50/") + Hex2(sub) + QLatin1Char(' ') + QString::fromLatin1(f.name)
                    + (f.numbered ? QLatin1Char(' ') + QString::number(Byte(frame, 4)) : QString());
        return QStringLiteral("50/") + Hex2(sub) + QStringLiteral(" unknown sub-function");
    }
    return QStringLiteral("function ") + Hex2(function);
}

bool TraceFile::open(const QString& path)
{
    m_file.setFileName(path);
    m_clock.start();
    return m_file.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

void TraceFile::sent(const QByteArray& frame)
{
    // The same bytes again after a refused answer are the command's next attempt.
    m_attempt = m_lastRefused && frame == m_lastRequest ? m_attempt + 1 : 1;
    m_lastRequest = frame;
    const QString attempt = m_attempt > 1 ? QStringLiteral(" (attempt %1)").arg(m_attempt) : QString();
    writeLine('>', frame, DescribeRequest(frame) + attempt);
}

void TraceFile::received(const QByteArray& bytes, const QString& verdict)
{
    m_lastRefused = verdict != QStringLiteral("ok");
    writeLine('<', bytes, verdict);
}

void TraceFile::writeLine(char direction, const QByteArray& bytes, const QString& meaning)
{
    const QString hex
        = bytes.isEmpty() ? QStringLiteral("-") : QString::fromLatin1(bytes.toHex(' ').toUpper());
    const QString line = QStringLiteral("%1 ms %2 %3 | %4\n")
                             .arg(m_clock.elapsed(), 7)
                             .arg(QString(QLatin1Char(direction)), hex, meaning);
    m_file.write(line.toUtf8());
    m_file.flush();
}
