#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace devsim {

// The frame checksum: CRC-16 with the reflected polynomial 0xA001, started at 0xFFFF, no
// final inversion. Bit by bit: frames are a few dozen bytes, and a table would hide nothing.
inline quint16 Crc16(QByteArrayView bytes)
{
    quint16 crc = 0xFFFF;
    for (char ch : bytes) {
        crc ^= static_cast<quint8>(ch);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? static_cast<quint16>((crc >> 1) ^ 0xA001) : static_cast<quint16>(crc >> 1);
    }
    return crc;
}

// Appends the checksum of the frame so far, low byte first, as it goes on the wire.
inline void AppendCrc(QByteArray& frame)
{
    const quint16 crc = Crc16(frame);
    frame.append(static_cast<char>(crc & 0xFF));
    frame.append(static_cast<char>(crc >> 8));
}

// True when the last two bytes of a frame are the checksum of the bytes before them.
inline bool CrcHolds(QByteArrayView frame)
{
    if (frame.size() < 3)
        return false;
    const quint16 crc = Crc16(frame.first(frame.size() - 2));
    return static_cast<quint8>(frame[frame.size() - 2]) == (crc & 0xFF)
        && static_cast<quint8>(frame[frame.size() - 1]) == (crc >> 8);
}

} // namespace devsim
