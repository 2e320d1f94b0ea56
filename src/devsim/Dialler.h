#pragma once

#include <vector>

#include <QByteArray>
#include <QJsonObject>
#include <QStringList>

#include "DeviceMemory.h"
#include "FaultPlan.h"
#include "FrameReader.h"

namespace devsim {

constexpr quint8 Station = 247;

struct DiallerSettings
{
    Identity identity;
    bool sw2On = true; // setting mode; with SW2 off the device stays silent
    std::array<FaultSelector, FaultCount> faults {};
    quint8 exceptionCode = 0x04; // "server device failure"
    qint64 delayUs = 3'500'000;  // beyond a 2-second silent time-out and its rounding
    int closeAfterRecord = 0;    // close the line after this many records; 0 never
    quint32 seed = 1;
    qint64 gapUs = 3646; // 3.5 characters at 9600 baud
};

// What the dialler puts on the line for one request.
struct Reply
{
    int request = 0;
    QByteArray bytes;       // noise and extra bytes included; empty when nothing is sent
    qint64 delayUs = 0;     // held back this long on top of the frame gap
    bool closeLine = false; // hang up once the bytes are out
};

// One request as the device saw it, for the dump.
struct LoggedRequest
{
    int request = 0;
    RecordAttempt record;
    QByteArray frame; // CRC included
    QStringList faults;
    QByteArray answer; // what went out, after the faults
};

// The device in setting mode, without any I/O: bytes in, answers out. Tests drive it byte
// for byte; the program puts it on a pseudo-terminal.
class Dialler
{
public:
    explicit Dialler(const DiallerSettings& settings);

    std::vector<Reply> receive(QByteArrayView bytes, qint64 nowUs);
    std::vector<Reply> silence(qint64 nowUs);

    const DeviceMemory& memory() const { return m_memory; }
    const std::vector<LoggedRequest>& log() const { return m_log; }
    int requestCount() const { return m_requests; }

    // The registers, the records, the erases and every request with its faults.
    QJsonObject toJson() const;

private:
    std::vector<Reply> handle(const std::vector<QByteArray>& frames);
    std::optional<Reply> handle(const QByteArray& frame);
    RecordAttempt countRecord(const QByteArray& frame);
    QByteArray answer(const QByteArray& frame);
    QByteArray readBits(const QByteArray& frame);
    QByteArray readRegisters(const QByteArray& frame, bool input);
    QByteArray writeRegisters(const QByteArray& frame);
    QByteArray deviceFunction(const QByteArray& frame);
    QByteArray storeRecord(const QByteArray& frame);

    DiallerSettings m_settings;
    DeviceMemory m_memory;
    FrameReader m_reader;
    FaultPlan m_faults;
    std::vector<LoggedRequest> m_log;
    int m_requests = 0;
    int m_answered = 0;
    int m_records = 0;
    // The last record frame sent and where it stands, to tell a retry from the next record.
    QByteArray m_lastRecordFrame;
    RecordAttempt m_lastRecord;
    int m_otherStations = 0;
    bool m_closed = false;
};

} // namespace devsim
