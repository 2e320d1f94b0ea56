#pragma once

#include <optional>

#include <QString>
#include <QStringList>

class ConsolePlatform;
class VORNAGlobal;

inline constexpr int ExitSuccess = 0;
inline constexpr int ExitFailed = 1;
inline constexpr int ExitUsage = 2;

// What a device command was given besides its paths: the port as the user wrote it, and the
// settings to write (each absent when not given).
struct DeviceOptions
{
    QString port;
    std::optional<int> slave;
    std::optional<QString> baud;
    std::optional<QString> parity;
};

// One run of the program: the shared state on the console platform, started as the
// window starts it. Paths are absolute, as the program folder is the current directory.
struct Session
{
    ConsolePlatform& platform;
    VORNAGlobal& g;
    QStringList paths;
    DeviceOptions device;
};

// Prints the message and the usage text on stderr; gives the usage error's exit status.
int UsageError(const VORNAGlobal& g, const QString& message);
