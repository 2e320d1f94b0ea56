#include <array>

#include <gtest/gtest.h>

#include "SettingUtil.h"
#include "UnhandledError.h"

namespace {

struct SplitCase
{
    const char* name;
    QString text;
    int count;
    QStringList lines; // the array of five after the split
};

const std::array SplitCases = {
    SplitCase {"empty text", "", 0, {"", "", "", "", ""}},
    SplitCase {"only blanks and line breaks", "  \r\n\r\n", 0, {"", "", "", "", ""}},
    SplitCase {"blank line keeps its number", "a\r\n\r\nb", 3, {"a", "", "b", "", ""}},
    SplitCase {"bare line feed stays in its line", "a\nb\r\nc", 2, {"a\nb", "c", "", "", ""}},
    SplitCase {"carriage return alone ends a line", "a\rb", 2, {"a", "b", "", "", ""}},
    SplitCase {"lines are trimmed of blanks", " a \r b ", 2, {"a", "b", "", "", ""}},
    SplitCase {"tabs are not blanks", "\ta\t\r\nb", 2, {"\ta\t", "b", "", "", ""}},
    SplitCase {"trailing line breaks do not count", "a\r\r\n\n", 1, {"a", "", "", "", ""}},
    SplitCase {"leading line break makes an empty first line", "\r\na", 2, {"", "a", "", "", ""}},
    SplitCase {"lines beyond the array are counted", "1\r2\r3\r4\r5\r6\r7", 7, {"1", "2", "3", "4", "5"}},
};

TEST(SplitLinesTest, NumbersEveryLine)
{
    for (const SplitCase& c : SplitCases) {
        QStringList lines(5);
        EXPECT_EQ(SplitLines(c.text, lines), c.count) << c.name;
        EXPECT_EQ(lines, c.lines) << c.name;
    }
}

// A profile of the given number of lines with Timeout=5 on line keyLine (none for 0).
QString ManyLines(int count, int keyLine)
{
    QString text = "[Comm]\r\n";
    for (int i = 2; i <= count; ++i)
        text += i == keyLine ? QString("Timeout=5\r\n") : QString("Other%1=x\r\n").arg(i);
    return text;
}

struct ProfileCase
{
    const char* name;
    QString section;
    QString key;
    QString text;
    QString expected; // the default is "dflt"; an error its text
};

const std::array ProfileTable = {
    ProfileCase {"key in its section", "Comm", "Timeout", "[Comm]\r\nTimeout=5\r\nRetry=4\r\n", "5"},
    ProfileCase {"missing section", "Comm", "Timeout", "[ML]\r\nAppliedLangName=AUTO\r\n", "dflt"},
    ProfileCase {"empty profile", "Comm", "Timeout", "", "dflt"},
    ProfileCase {"lower-case section and key in the file", "Comm", "Timeout", "[comm]\r\ntimeout=7", "7"},
    ProfileCase {"lower-case section and key asked for", "comm", "tImeOut", "[Comm]\r\nTimeOut=7", "7"},
    ProfileCase {
        "blanks around section, key and value", "Comm", "Timeout", "[ Comm ]\r\n  TimeOut  =  9  ", "9"},
    ProfileCase {"value keeps its case", "ML", "AppliedLangName", "[ML]\r\nAppliedLangName=Auto", "Auto"},
    ProfileCase {"non-numeric value comes back as text", "Comm", "Retry", "[Comm]\r\nRetry=abc", "abc"},
    ProfileCase {
        "key of another section", "Comm", "Timeout", "[ML]\r\nTimeout=5\r\n[Comm]\r\nRetry=1", "dflt"},
    ProfileCase {"first match wins", "Comm", "Timeout", "[Comm]\r\nTimeout=1\r\nTimeout=2", "1"},
    ProfileCase {
        "bracketed value makes a header", "Comm", "Timeout", "[Comm]\r\nNote=[x]\r\nTimeout=5", "dflt"},
    ProfileCase {"empty brackets make no header", "Comm", "Timeout", "[Comm]\r\nNote=[]\r\nTimeout=5", "5"},
    ProfileCase {"one-character key cannot be read", "Comm", "T", "[Comm]\r\nT=5", "dflt"},
    ProfileCase {"one-character key with a blank can", "Comm", "T", "[Comm]\r\nT =5", "5"},
    ProfileCase {"blank lines between", "Comm", "Timeout", "[Comm]\r\n\r\n\r\nTimeout=5", "5"},
    ProfileCase {"bare line feeds make one line", "Comm", "Timeout", "[Comm]\nTimeout=5\n", "dflt"},
    ProfileCase {"key before any header", "Comm", "Timeout", "Timeout=5\r\n[Comm]", "dflt"},
    ProfileCase {"empty value", "ML", "AlternateLangName", "[ML]\r\nAlternateLangName=\r\n", ""},
    ProfileCase {"a thousand lines are searched", "Comm", "Timeout", ManyLines(1000, 0), "dflt"},
    ProfileCase {"a key on line 1000 is found", "Comm", "Timeout", ManyLines(1500, 1000), "5"},
    ProfileCase {"searching line 1001 is an error", "Comm", "Timeout", ManyLines(1001, 0),
        "error: Subscript out of range"},
    ProfileCase {"a key past line 1000 is not reached", "Comm", "Timeout", ManyLines(1500, 1001),
        "error: Subscript out of range"},
};

TEST(GetProfileStringTest, FindsTheValueOrTheDefault)
{
    for (const ProfileCase& c : ProfileTable) {
        QString found;
        try {
            found = GetProfileString(c.section, c.key, "dflt", c.text);
        } catch (const UnhandledError& e) {
            found = "error: " + e.text();
        }
        EXPECT_EQ(found, c.expected) << c.name;
    }
}

} // namespace
