#include "Dialler.h"

#include <QJsonArray>

#include "Crc16.h"

namespace devsim {

namespace {

constexpr quint8 IllegalFunction = 0x01;
constexpr quint8 IllegalAddress = 0x02;
constexpr quint8 IllegalValue = 0x03;

quint8 Byte(const QByteArray& frame, qsizetype i)
{
    return static_cast<quint8>(frame[i]);
}

int Word(const QByteArray& frame, qsizetype i)
{
    return Byte(frame, i) << 8 | Byte(frame, i + 1);
}

QByteArray Frame(std::initializer_list<int> head)
{
    QByteArray frame;
    for (int byte : head)
        frame.append(static_cast<char>(byte));
    return frame;
}

QByteArray Sealed(QByteArray frame)
{
    AppendCrc(frame);
    return frame;
}

QByteArray ExceptionAnswer(quint8 function, quint8 code)
{
    return Sealed(Frame({Station, function | 0x80, code}));
}

} // namespace

Dialler::Dialler(const DiallerSettings& settings)
    : m_settings(settings)
    , m_memory(settings.identity)
    , m_reader(settings.gapUs)
    , m_faults(settings.faults, settings.seed)
{ }

std::vector<Reply> Dialler::receive(QByteArrayView bytes, qint64 nowUs)
{
    return handle(m_reader.receive(bytes, nowUs));
}

std::vector<Reply> Dialler::silence(qint64 nowUs)
{
    return handle(m_reader.silence(nowUs));
}

std::vector<Reply> Dialler::handle(const std::vector<QByteArray>& frames)
{
    std::vector<Reply> replies;
    for (const QByteArray& frame : frames) {
        if (std::optional<Reply> reply = handle(frame))
            replies.push_back(*reply);
    }
    return replies;
}

std::optional<Reply> Dialler::handle(const QByteArray& frame)
{
    // Another station's request is not ours to number or answer; after a hang-up nothing is.
    if (Byte(frame, 0) != Station) {
        ++m_otherStations;
        return std::nullopt;
    }
    if (m_closed)
        return std::nullopt;
    LoggedRequest logged {++m_requests, countRecord(frame), frame, {}, {}};
    Reply reply {m_requests, {}, 0, false};
    if (!m_settings.sw2On) {
        logged.faults.append(QStringLiteral("sw2-off"));
        m_log.push_back(logged);
        return std::nullopt;
    }

    const FaultSet faults = m_faults.decide(m_requests, logged.record);
    for (int i = 0; i < FaultCount; ++i) {
        if (faults.test(i))
            logged.faults.append(FaultName(static_cast<Fault>(i)));
    }
    if (faults.test(int(Fault::DropRequest))) {
        m_log.push_back(logged);
        return std::nullopt;
    }

    const int recordsBefore = m_records;
    // An exception answer says that the device did not act, so the request is not carried out.
    QByteArray bytes = faults.test(int(Fault::Exception))
        ? ExceptionAnswer(Byte(frame, 1), m_settings.exceptionCode)
        : answer(frame);
    if (faults.test(int(Fault::WrongStation)) || faults.test(int(Fault::WrongFunction))) {
        bytes.chop(2);
        if (faults.test(int(Fault::WrongStation)))
            bytes[0] = static_cast<char>(Byte(bytes, 0) + 1);
        if (faults.test(int(Fault::WrongFunction)))
            bytes[1] = static_cast<char>(Byte(bytes, 1) + 1);
        AppendCrc(bytes);
    }
    if (faults.test(int(Fault::CorruptCrc)))
        bytes[bytes.size() - 2] = static_cast<char>(~Byte(bytes, bytes.size() - 2));
    if (faults.test(int(Fault::Truncate)))
        bytes.truncate(bytes.size() / 2);
    if (faults.test(int(Fault::DropResponse)))
        bytes.clear();
    if (faults.test(int(Fault::Noise)))
        bytes.prepend(m_faults.noise(3));
    if (faults.test(int(Fault::ExtraBytes)))
        bytes.append(m_faults.noise(3));
    if (faults.test(int(Fault::Delay)))
        reply.delayUs = m_settings.delayUs;

    if (m_settings.closeAfterRecord > 0 && recordsBefore < m_settings.closeAfterRecord
        && m_records >= m_settings.closeAfterRecord) {
        reply.closeLine = true;
        m_closed = true;
        logged.faults.append(QStringLiteral("close-line"));
    }
    reply.bytes = bytes;
    logged.answer = bytes;
    m_log.push_back(logged);
    if (!bytes.isEmpty())
        ++m_answered;
    if (bytes.isEmpty() && !reply.closeLine)
        return std::nullopt;
    return reply;
}

RecordAttempt Dialler::countRecord(const QByteArray& frame)
{
    const bool isRecord
        = frame.size() > 2 && Byte(frame, 1) == 0x50 && (Byte(frame, 2) == 0x43 || Byte(frame, 2) == 0x53);
    if (!isRecord)
        return {};
    // A record carries its kind and number, so only a retry repeats the last frame.
    if (frame == m_lastRecordFrame) {
        ++m_lastRecord.attempt;
    } else {
        m_lastRecordFrame = frame;
        m_lastRecord = {m_lastRecord.record + 1, 1};
    }
    return m_lastRecord;
}

QByteArray Dialler::answer(const QByteArray& frame)
{
    const quint8 function = Byte(frame, 1);
    switch (function) {
    case 0x01:
        return readBits(frame);
    case 0x03:
        return readRegisters(frame, false);
    case 0x04:
        return readRegisters(frame, true);
    case 0x10:
        return writeRegisters(frame);
    case 0x50:
        return deviceFunction(frame);
    default:
        return ExceptionAnswer(function, IllegalFunction);
    }
}

QByteArray Dialler::readBits(const QByteArray& frame)
{
    const int start = Word(frame, 2);
    const int count = Word(frame, 4);
    if (count < 1 || count > 2000)
        return ExceptionAnswer(0x01, IllegalValue);
    if (start + count > 64)
        return ExceptionAnswer(0x01, IllegalAddress);
    QByteArray data((count + 7) / 8, '\0');
    for (int i = 0; i < count; ++i) {
        if (m_memory.alarmBit(start + i))
            data[i / 8] = static_cast<char>(Byte(data, i / 8) | (1 << (i % 8)));
    }
    return Sealed(Frame({Station, 0x01, int(data.size())}) + data);
}

QByteArray Dialler::readRegisters(const QByteArray& frame, bool input)
{
    const quint8 function = Byte(frame, 1);
    const int start = Word(frame, 2);
    const int count = Word(frame, 4);
    if (count < 1 || count > 125)
        return ExceptionAnswer(function, IllegalValue);
    QByteArray answer = Frame({Station, function, 2 * count});
    for (int address = start; address < start + count; ++address) {
        const std::optional<quint16> value
            = input ? m_memory.inputRegister(address) : m_memory.holdingRegister(address);
        if (!value)
            return ExceptionAnswer(function, IllegalAddress);
        answer += Frame({*value >> 8, *value & 0xFF});
    }
    return Sealed(answer);
}

QByteArray Dialler::writeRegisters(const QByteArray& frame)
{
    const int start = Word(frame, 2);
    const int count = Word(frame, 4);
    if (count < 1 || Byte(frame, 6) != 2 * count)
        return ExceptionAnswer(0x10, IllegalValue);
    // All or nothing: the device takes the write only if every register in it is writable.
    DeviceMemory trial = m_memory;
    for (int i = 0; i < count; ++i) {
        if (!trial.writeHoldingRegister(start + i, static_cast<quint16>(Word(frame, 7 + 2 * i))))
            return ExceptionAnswer(0x10, IllegalAddress);
    }
    m_memory = trial;
    return Sealed(frame.first(6));
}

QByteArray Dialler::deviceFunction(const QByteArray& frame)
{
    const quint8 sub = Byte(frame, 2);
    switch (sub) {
    case 0x40:
        m_memory.clearPhoneBook();
        break;
    case 0x50:
        m_memory.clearShortMessages();
        break;
    case 0x43:
    case 0x53:
        return storeRecord(frame);
    default:
        return ExceptionAnswer(0x50, IllegalFunction);
    }
    return Sealed(frame.first(4));
}

QByteArray Dialler::storeRecord(const QByteArray& frame)
{
    // Head: station, 0x50, kind, number, length; record head: flags, group, data length, spare.
    const quint8 sub = Byte(frame, 2);
    if (frame.size() < 11 || frame.size() != Byte(frame, 4) + 7 || Byte(frame, 4) != Byte(frame, 7) + 4)
        return ExceptionAnswer(0x50, IllegalValue);
    StoredRecord record;
    record.number = Byte(frame, 3);
    record.flags = Byte(frame, 5);
    record.group = Byte(frame, 6);
    record.spare = Byte(frame, 8);
    record.data = frame.sliced(9, Byte(frame, 7));
    record.frame = frame.first(frame.size() - 2);
    if (sub == 0x43)
        m_memory.storePhoneBookRecord(record);
    else
        m_memory.storeShortMessage(record);
    ++m_records;
    return Sealed(frame.first(4));
}

QJsonObject Dialler::toJson() const
{
    QJsonObject json = m_memory.toJson();
    QJsonArray log;
    for (const LoggedRequest& entry : m_log) {
        log.append(QJsonObject {
            {QStringLiteral("request"), entry.request},
            {QStringLiteral("record"), entry.record.record},
            {QStringLiteral("attempt"), entry.record.attempt},
            {QStringLiteral("frame"), QString::fromLatin1(entry.frame.toHex().toUpper())},
            {QStringLiteral("faults"), QJsonArray::fromStringList(entry.faults)},
            {QStringLiteral("answer"), QString::fromLatin1(entry.answer.toHex().toUpper())},
        });
    }
    json.insert(QStringLiteral("sw2"), m_settings.sw2On ? QStringLiteral("on") : QStringLiteral("off"));
    json.insert(QStringLiteral("requests"),
        QJsonObject {
            {QStringLiteral("received"), m_requests},
            {QStringLiteral("answered"), m_answered},
            {QStringLiteral("records"), m_records},
            {QStringLiteral("otherStations"), m_otherStations},
            {QStringLiteral("discardedBytes"), m_reader.discardedBytes()},
        });
    json.insert(QStringLiteral("log"), log);
    return json;
}

} // namespace devsim
