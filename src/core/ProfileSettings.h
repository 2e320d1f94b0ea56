#pragma once

#include <QString>

class VORNAGlobal;

// The profile file "VORNA.set": its [Comm] section (with the code page of the device's
// texts), its [Ports] section (COM1=/dev/ttyUSB0 and so on), and the writer of the whole file.

// The profile's name: the executable's base name and ".set", found through the current directory.
QString ProfileFileName(VORNAGlobal& g);

void ReadCommSettings(VORNAGlobal& g, const QString& FilePath);
void WriteSettings(VORNAGlobal& g, const QString& FilePath);
// The text that WriteSettings writes.
QString SettingsText(VORNAGlobal& g);
