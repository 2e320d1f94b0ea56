#pragma once

#include <QString>
#include <QStringList>

// The profile's own parser.

// Splits text into lines ended by CR or CR LF (a bare LF stays inside its line).
// Lines are trimmed; a line whose number is within Lines' size and that is not empty is
// stored at index number-1. Returns the count of all lines, also those beyond the array.
int SplitLines(const QString& Text, QStringList& Lines);

// The value of Key in [Section] of ProfileText, or Default. Section and key ignore case;
// the first match wins. The text is split into 1000 lines; a search that runs past
// line 1000 throws UnhandledError (subscript out of range).
QString GetProfileString(
    const QString& Section, const QString& Key, const QString& Default, const QString& ProfileText);
