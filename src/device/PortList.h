#pragma once

#include <vector>

#include <QString>

#include "SerialLine.h"

struct LinkState;
class VORNAGlobal;

// One row of the port list: a port number and the device it opens, with what the system
// knows is plugged in there.
struct PortRow
{
    int CommPort = 0;      // 0 for a device that no port number reaches
    QString Path;          // the device the number opens
    bool Present = false;  // the system has that device now
    SerialPortInfo Device; // what the system knows of it, when present
    bool operator==(const PortRow&) const = default;
};

// The number whose device is path, by the profile's [Ports] section or the default rule; 0
// when none is.
int CommPortOf(const LinkState& link, const QString& path);

// COM1 to COM16, as the port dialog offers them, each with its device; then the system's
// serial ports that none of those opens, each with the number that reaches it (COM17 and
// above through the default rule, or a [Ports] entry), or 0.
std::vector<PortRow> ListCommPorts(VORNAGlobal& g);
