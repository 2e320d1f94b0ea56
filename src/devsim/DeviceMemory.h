#pragma once

#include <array>
#include <map>
#include <optional>

#include <QByteArray>
#include <QJsonObject>

namespace devsim {

// What the device answers about itself; every value can be set from the command line.
struct Identity
{
    quint16 modelId = 0x4006;  // class 0x40, 2^6: RM64T
    quint16 firmware = 0x0301; // "0301"
    std::array<quint8, 8> serial {1, 2, 3, 4, 5, 6, 7, 8};
    quint8 slaveId = 1;
    quint8 settingByte = 0x03; // no parity, BaudID 3
    quint64 alarmBits = 0;     // bit i is alarm i of the 64

    bool operator==(const Identity&) const = default;
};

// One phone-book or short-message record as the device keeps it: the record head and its data.
struct StoredRecord
{
    int number = 0; // the entry number, or MsgNo
    quint8 flags = 0;
    quint8 group = 0;
    quint8 spare = 0; // the fourth byte of the record head
    QByteArray data;  // the number's or the text's bytes
    QByteArray frame; // the request without its CRC, as it came

    bool operator==(const StoredRecord&) const = default;
};

// The device's registers and its two record stores. Records are kept by their number, so a
// record sent again (a retry after a lost answer) replaces the first copy.
class DeviceMemory
{
public:
    explicit DeviceMemory(const Identity& identity)
        : m_identity(identity)
    { }

    std::optional<quint16> inputRegister(int address) const;
    std::optional<quint16> holdingRegister(int address) const;
    // Only the two communication settings take a write; their low byte is the value.
    bool writeHoldingRegister(int address, quint16 value);
    bool alarmBit(int index) const { return (m_identity.alarmBits >> index) & 1; }

    void clearPhoneBook();
    void clearShortMessages();
    void storePhoneBookRecord(const StoredRecord& record) { m_phoneBook[record.number] = record; }
    void storeShortMessage(const StoredRecord& record) { m_messages[record.number] = record; }

    const std::map<int, StoredRecord>& phoneBook() const { return m_phoneBook; }
    const std::map<int, StoredRecord>& shortMessages() const { return m_messages; }
    const Identity& identity() const { return m_identity; }

    // Bytes the records take: four for each record head and its data.
    int usedBytes() const;
    // Checksum of every stored record frame, phone book first, each in number order.
    quint16 projectCrc() const;

    QJsonObject toJson() const;

private:
    Identity m_identity;
    std::map<int, StoredRecord> m_phoneBook;
    std::map<int, StoredRecord> m_messages;
    int m_phoneBookErases = 0;
    int m_messageErases = 0;
};

} // namespace devsim
