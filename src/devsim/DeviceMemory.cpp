#include "DeviceMemory.h"

#include <QJsonArray>
#include <QStringDecoder>

#include "Crc16.h"

namespace devsim {

namespace {

QString Hex(QByteArrayView bytes)
{
    return QString::fromLatin1(bytes.toByteArray().toHex().toUpper());
}

QString Hex4(quint16 value)
{
    return QStringLiteral("%1").arg(value, 4, 16, QLatin1Char('0')).toUpper();
}

// A message's text as a reader wants it: Unicode texts come high byte first, and 8-bit texts
// are in the dialler's code page, Big5, read as Latin-1 where the platform lacks it.
QString MessageText(const StoredRecord& record)
{
    if (record.flags & 0x01) {
        QStringDecoder decoder(QStringDecoder::Utf16BE);
        return decoder.decode(record.data);
    }
    QStringDecoder big5("Big5");
    if (big5.isValid())
        return big5.decode(record.data);
    return QString::fromLatin1(record.data);
}

QJsonObject RecordJson(const StoredRecord& record)
{
    return QJsonObject {
        {QStringLiteral("number"), record.number},
        {QStringLiteral("flags"), record.flags},
        {QStringLiteral("disabled"), (record.flags & 0x80) != 0},
        {QStringLiteral("group"), record.group},
        {QStringLiteral("data"), Hex(record.data)},
        {QStringLiteral("frame"), Hex(record.frame)},
    };
}

} // namespace

std::optional<quint16> DeviceMemory::inputRegister(int address) const
{
    const auto& s = m_identity.serial;
    switch (address) {
    case 0x0000:
        return m_identity.modelId;
    case 0x0001:
        return m_identity.firmware;
    case 0x0002:
    case 0x0003:
    case 0x0004:
    case 0x0005: {
        const int i = 2 * (address - 0x0002);
        return static_cast<quint16>(s[i] << 8 | s[i + 1]);
    }
    case 0x0006: // Address Of New Record: where the next record would go
        return static_cast<quint16>(usedBytes());
    case 0x0007: // Device Status and the counters after it: a quiet, healthy device
    case 0x0008:
    case 0x0009:
    case 0x000A:
    case 0x000B:
        return 0;
    default:
        return std::nullopt;
    }
}

std::optional<quint16> DeviceMemory::holdingRegister(int address) const
{
    switch (address) {
    case 0x0080:
        return m_identity.slaveId;
    case 0x0081:
        return m_identity.settingByte;
    case 0x0082:
        return projectCrc();
    default:
        return std::nullopt;
    }
}

bool DeviceMemory::writeHoldingRegister(int address, quint16 value)
{
    switch (address) {
    case 0x0080:
        m_identity.slaveId = static_cast<quint8>(value & 0xFF);
        return true;
    case 0x0081:
        m_identity.settingByte = static_cast<quint8>(value & 0xFF);
        return true;
    default:
        return false;
    }
}

void DeviceMemory::clearPhoneBook()
{
    m_phoneBook.clear();
    ++m_phoneBookErases;
}

void DeviceMemory::clearShortMessages()
{
    m_messages.clear();
    ++m_messageErases;
}

int DeviceMemory::usedBytes() const
{
    int bytes = 0;
    for (const auto& [number, record] : m_phoneBook)
        bytes += 4 + record.data.size();
    for (const auto& [number, record] : m_messages)
        bytes += 4 + record.data.size();
    return bytes;
}

quint16 DeviceMemory::projectCrc() const
{
    QByteArray all;
    for (const auto& [number, record] : m_phoneBook)
        all += record.frame;
    for (const auto& [number, record] : m_messages)
        all += record.frame;
    return Crc16(all);
}

QJsonObject DeviceMemory::toJson() const
{
    QJsonArray phoneBook;
    for (const auto& [number, record] : m_phoneBook) {
        QJsonObject entry = RecordJson(record);
        entry.insert(QStringLiteral("phoneNumber"), QString::fromLatin1(record.data));
        phoneBook.append(entry);
    }
    QJsonArray messages;
    for (const auto& [number, record] : m_messages) {
        QJsonObject entry = RecordJson(record);
        entry.insert(QStringLiteral("unicode"), (record.flags & 0x01) != 0);
        entry.insert(QStringLiteral("text"), MessageText(record));
        messages.append(entry);
    }
    const QJsonObject registers {
        {QStringLiteral("modelId"), Hex4(m_identity.modelId)},
        {QStringLiteral("firmware"), Hex4(m_identity.firmware)},
        {QStringLiteral("serial"), Hex(QByteArrayView(m_identity.serial.data(), 8))},
        {QStringLiteral("slaveId"), m_identity.slaveId},
        {QStringLiteral("settingByte"), m_identity.settingByte},
        {QStringLiteral("addressOfNewRecord"), usedBytes()},
        {QStringLiteral("projectCrc"), Hex4(projectCrc())},
    };
    return QJsonObject {
        {QStringLiteral("registers"), registers},
        {QStringLiteral("phoneBook"), phoneBook},
        {QStringLiteral("shortMessages"), messages},
        {QStringLiteral("erases"),
            QJsonObject {{QStringLiteral("phoneBook"), m_phoneBookErases},
                {QStringLiteral("shortMessages"), m_messageErases}}},
    };
}

} // namespace devsim
