#pragma once

#include <QByteArray>
#include <QString>

class VORNAGlobal;

// The code page of 8-bit texts when the profile names none.
inline const QString DefaultCodePage = QStringLiteral("Big5");

// The text in the 8-bit code page of the device's texts ([Comm] CodePage, else Big5): what a
// message takes in the device when it is not sent in Unicode. A code page that Qt lacks
// ends the program.
QByteArray ToMultiByte(const VORNAGlobal& g, const QString& text);
