#pragma once

#include <QString>

#include "SerialLine.h"

struct LinkState;
class VORNAGlobal;

// Port numbers and the devices they stand for. Unless this run's mapping or the profile's
// [Ports] section maps a port, COM1 to COM8 are /dev/ttyUSB0 to /dev/ttyUSB7 (USB adapters, the usual line to
// a dialler), COM9 to COM16 are /dev/ttyS0 to /dev/ttyS7, and COM17 onward are /dev/ttyACM0 onward.
QString CommPortPath(const LinkState& link, int port);

// The device the link opens: the device path given instead of a port, else CommPort's.
QString CommDevicePath(const LinkState& link);

// A port as a user gives it: "COM3", "3" or a device path. Sets CommPort (and clears the
// device path) or sets the device path; false, changing nothing, for anything else.
bool SetCommPort(LinkState& link, const QString& text);

// One line on what to do about a port that would not open.
QString OpenFailureAdvice(const VORNAGlobal& g, SerialLine::OpenFailure failure, const QString& path);
