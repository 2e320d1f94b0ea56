#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>

// A line break as the tables, the boxes and the profile hold it.
inline const QString CRLF = QStringLiteral("\r\n");

// Removes the spaces at both ends; tabs and line breaks are part of the text.
QString Trim(const QString& Text);

// Part of a path by mode: 0 base name, 1 folder with its closing separator, 2 file name
// with extension, 3 extension without the dot. Both '\' and '/' count as separators.
// The gaps of the rules are kept (see the tests). Any other mode is a deliberate stop
// (UnhandledError with the box "GetFname - VBUtil", flags 17).
QString GetFname(const QString& Path, int Mode);

// Position of the last occurrence of Find in Text, from 1; 0 if none.
int LastInStr(const QString& Text, const QString& Find);

// The value as text; empty for a null. Booleans read "True"/"False", dates yyyy-MM-dd.
QString NullToEmpty(const QVariant& Value);

// True for a value held as a number (not text, not Boolean).
bool IsNumericValue(const QVariant& Value);

// Whether a whole text reads as a number by the platform's rules: blanks around it, a
// leading sign or surrounding parentheses, thousands commas in the whole part, a decimal
// point and an exponent ("1E5", "1D-3") pass; a blank inside the number does not.
bool IsNumeric(const QString& Text);

// The leading numeric value of a text ("12abc" gives 12, "abc" gives 0).
double Val(const QString& Text);

// Conversions that fail as the platform's do: a value out of range is an overflow,
// text that is not a number is a type mismatch. Both throw UnhandledError.
// Rounding is to the nearest even integer on a tie.
qint16 CInt(const QVariant& Value);
quint8 CByte(const QVariant& Value);
// CInt of Val(text): the profile's way of reading a number.
qint16 ValToInt16(const QString& Text);

// Whole calendar-second boundaries between two moments (later minus earlier).
qint64 DateDiffSeconds(const QDateTime& from, const QDateTime& to);
