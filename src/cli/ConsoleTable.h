#pragma once

#include <vector>

#include <QString>
#include <QStringList>

// Prints a header and rows on stdout in columns lined up by their width on a terminal, where
// a Chinese character takes two cells; two blanks between columns, none after the last.
void PrintTable(const QStringList& header, const std::vector<QStringList>& rows);

// The cells that a text takes on a terminal.
qsizetype DisplayWidth(const QString& text);
