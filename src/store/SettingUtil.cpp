#include "SettingUtil.h"

#include "UnhandledError.h"
#include "VBUtil.h"

namespace {

constexpr int ProfileLineLimit = 1000;

void StoreLine(const QString& line, int number, QStringList& Lines)
{
    const QString trimmed = Trim(line);
    if (number <= Lines.size() && !trimmed.isEmpty())
        Lines[number - 1] = trimmed;
}

// Position from 1 of the first occurrence, 0 if none.
int InStr(const QString& text, QChar c)
{
    return int(text.indexOf(c)) + 1;
}

} // namespace

int SplitLines(const QString& Text, QStringList& Lines)
{
    QString text = Trim(Text);
    for (;;) {
        if (text.endsWith(QStringLiteral("\r\n")))
            text.chop(2);
        else if (text.endsWith(u'\r') || text.endsWith(u'\n'))
            text.chop(1);
        else
            break;
    }
    if (text.isEmpty())
        return 0;

    int number = 1;
    QString line;
    QChar previous;
    for (const QChar c : std::as_const(text)) {
        if (c == u'\r') {
            StoreLine(line, number, Lines);
            line.clear();
            ++number;
        } else if (!(c == u'\n' && previous == u'\r')) {
            line += c;
        }
        previous = c;
    }
    StoreLine(line, number, Lines);
    return number;
}

QString GetProfileString(
    const QString& Section, const QString& Key, const QString& Default, const QString& ProfileText)
{
    const QString wantedSection = Section.toUpper();
    const QString wantedKey = Key.toUpper();
    QStringList lines(ProfileLineLimit);
    const int count = SplitLines(ProfileText, lines);

    QString currentSection;
    for (int i = 1; i <= count; ++i) {
        if (i > ProfileLineLimit)
            throw UnhandledError(QStringLiteral("Subscript out of range"));
        const QString& line = lines[i - 1];
        const int open = InStr(line, u'[');
        const int close = InStr(line, u']');
        if (close - open >= 2) {
            currentSection = Trim(line.mid(open, close - open - 1).toUpper());
            continue;
        }
        const int equals = InStr(line, u'=');
        if (equals >= 3) {
            const QString key = Trim(line.left(equals - 1).toUpper());
            if (key == wantedKey && currentSection == wantedSection)
                return Trim(line.mid(equals));
        }
    }
    return Default;
}
