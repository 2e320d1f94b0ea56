#include "ConsoleTable.h"

#include <algorithm>

#include "ConsolePlatform.h"

namespace {

// The wide ranges of East Asian scripts: CJK, Hangul, kana and the full-width forms.
bool IsWide(char32_t c)
{
    return (c >= 0x1100 && c <= 0x115F) || (c >= 0x2E80 && c <= 0xA4CF) || (c >= 0xAC00 && c <= 0xD7A3)
        || (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xFE30 && c <= 0xFE4F) || (c >= 0xFF00 && c <= 0xFF60)
        || (c >= 0xFFE0 && c <= 0xFFE6) || (c >= 0x20000 && c <= 0x3FFFD);
}

} // namespace

qsizetype DisplayWidth(const QString& text)
{
    qsizetype width = 0;
    for (char32_t c : text.toUcs4())
        width += IsWide(c) ? 2 : 1;
    return width;
}

void PrintTable(const QStringList& header, const std::vector<QStringList>& rows)
{
    std::vector<qsizetype> widths(size_t(header.size()), 0);
    auto measure = [&widths](const QStringList& row) {
        for (qsizetype i = 0; i < row.size() && size_t(i) < widths.size(); ++i)
            widths[size_t(i)] = std::max(widths[size_t(i)], DisplayWidth(row.at(i)));
    };
    measure(header);
    for (const QStringList& row : rows)
        measure(row);
    auto print = [&widths](const QStringList& row) {
        QString line;
        for (qsizetype i = 0; i < row.size(); ++i) {
            line += row.at(i);
            if (i + 1 < row.size())
                line += QString(widths[size_t(i)] - DisplayWidth(row.at(i)) + 2, u' ');
        }
        while (line.endsWith(u' '))
            line.chop(1);
        PrintOutput(line);
    };
    print(header);
    for (const QStringList& row : rows)
        print(row);
}
