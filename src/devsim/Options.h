#pragma once

#include <QString>
#include <QStringList>

#include "Dialler.h"

namespace devsim {

struct Options
{
    DiallerSettings dialler;
    QString link;
    int baud = 9600; // 0: as fast as the pseudo-terminal goes
    QString dump;
};

enum class ParseResult { Run, Help, Error };

// Reads the command line (program name first). Help and Error leave their text in message.
ParseResult ParseOptions(const QStringList& arguments, Options& options, QString& message);

} // namespace devsim
