#pragma once

#include <QByteArray>

#include "Crc16.h"

// A frame from hex with its CRC appended, as it goes on the line.
inline QByteArray Sealed(const char* hex)
{
    QByteArray frame = QByteArray::fromHex(hex);
    devsim::AppendCrc(frame);
    return frame;
}

// The probe of the connection (input register 6), and a phone-book record without its CRC:
// the number 0912345678 as second entry of group 2.
inline constexpr const char* Probe = "F70400060001";
inline constexpr const char* PhoneRecord = "F75043020E00020A0230393132333435363738";
