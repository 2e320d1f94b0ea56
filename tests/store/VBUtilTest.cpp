#include <array>
#include <functional>
#include <map>

#include <gtest/gtest.h>

#include "Golden.h"
#include "UnhandledError.h"
#include "VBUtil.h"

namespace {

struct FnameCase
{
    const char* name;
    QString path;
    std::array<QString, 4> parts; // modes 0 to 3
};

const std::array FnameCases = {
    FnameCase {"full path of a project", "C:\\VORNA\\Project\\demo.cmb",
        {"demo", "C:\\VORNA\\Project\\", "demo.cmb", "cmb"}},
    FnameCase {"the last of either separator", "a/b\\c/d.txt", {"d", "a/b\\c/", "d.txt", "txt"}},
    FnameCase {"bare word", "VORNA", {"VORNA", "", "VORNA", "VORNA"}},
    FnameCase {"separator but no dot", "C:\\dir\\file", {"", "C:\\dir\\", "file", "C:\\dir\\file"}},
    FnameCase {"dot only in a folder", "C:\\d.x\\file", {"", "C:\\d.x\\", "file", "x\\file"}},
    FnameCase {"one-character file name", "C:\\a", {"", "C:\\", "", "C:\\a"}},
    FnameCase {"one-character extension", "dir\\demo.c", {"demo", "dir\\", "demo.c", ""}},
    FnameCase {"name that is only an extension", "dir\\.cmb", {"", "dir\\", ".cmb", "cmb"}},
    FnameCase {"file name without folder", "VORNA.set", {"VORNA", "", "VORNA.set", "set"}},
    FnameCase {"trailing separator", "C:\\dir\\", {"", "C:\\dir\\", "", "C:\\dir\\"}},
};

TEST(GetFnameTest, ModesKeepTheRulesWithTheirGaps)
{
    for (const FnameCase& c : FnameCases)
        for (int mode = 0; mode < 4; ++mode)
            EXPECT_EQ(GetFname(c.path, mode), c.parts[mode]) << c.name << ", mode " << mode;
}

// Each conversion of a value, or the error that stops it with its title and flags, into one
// transcript; a mode of GetFname that it does not have stops the program as well.
TEST(ConversionTest, NumbersRoundToEvenAndCheckTheirRangeAndTextsKeepTheirForm)
{
    const std::map<QString, std::function<QString(const QVariant&)>> convert = {
        {"NullToEmpty", [](const QVariant& v) { return NullToEmpty(v); }},
        {"Val", [](const QVariant& v) { return QString::number(Val(v.toString())); }},
        {"CInt", [](const QVariant& v) { return QString::number(CInt(v)); }},
        {"CByte", [](const QVariant& v) { return QString::number(CByte(v)); }},
        {"ValToInt16", [](const QVariant& v) { return QString::number(ValToInt16(v.toString())); }},
        {"GetFname", [](const QVariant& v) { return GetFname("a.b", v.toInt()); }},
    };
    struct Case
    {
        const char* function;
        const char* name;
        QVariant input;
    };
    const Case cases[] = {
        {"NullToEmpty", "null", QVariant()},
        {"NullToEmpty", "null text", QVariant(QMetaType::fromType<QString>())},
        {"NullToEmpty", "true", true},
        {"NullToEmpty", "false", false},
        {"NullToEmpty", "date", QDate(2026, 1, 5)},
        {"NullToEmpty", "number", -1.5},
        {"NullToEmpty", "text keeps its blanks", QString("  as is ")},
        {"Val", "leading number", "12abc"},
        {"Val", "blanks, sign and exponent", "  -3.5e2x"},
        {"Val", "empty", ""},
        {"Val", "blanks inside are skipped", "1 2"},
        {"Val", "second dot ends it", "1.2.3"},
        {"Val", "leading dot", ".5"},
        {"Val", "D exponent", "2D3"},
        {"Val", "negative exponent", "4e-1x"},
        {"Val", "leading tab", "\t9"},
        {"CInt", "half rounds down to even", 2.5},
        {"CInt", "half rounds up to even", 3.5},
        {"CInt", "numeric text with blanks", QString(" 7 ")},
        {"CInt", "upper bound", 32767},
        {"CInt", "lower bound", -32768},
        {"CInt", "above the range", 32768},
        {"CInt", "rounds out of the range", 32767.5},
        {"CInt", "text with a trailing word", QString("12abc")},
        {"CInt", "empty text", QString("")},
        {"CInt", "True", true},
        {"CByte", "upper bound", 255},
        {"CByte", "above the range", 256},
        {"CByte", "negative", -1},
        {"CByte", "half to even stays in range", 254.5},
        {"CByte", "half to even leaves the range", 255.5},
        {"CByte", "small negative rounds to zero", -0.4},
        {"CByte", "empty text", QString("")},
        {"ValToInt16", "number", "2"},
        {"ValToInt16", "no number", "abc"},
        {"ValToInt16", "leading number rounded", "3.5 seconds"},
        {"ValToInt16", "out of range", "99999"},
        {"GetFname", "mode below 0", -1},
        {"GetFname", "mode above 3", 4},
    };
    QString log;
    for (const Case& c : cases) {
        QString result;
        try {
            result = "[" + convert.at(c.function)(c.input) + "]";
        } catch (const UnhandledError& e) {
            result = QString("error: %1 (%2, %3)").arg(e.text(), e.title()).arg(e.flags());
        }
        log += QString("%1, %2: %3\n").arg(c.function, c.name, result);
    }
    ExpectGolden("store/golden/conversions.txt", log.replace(u'\r', "\\r"));
}

TEST(DateDiffSecondsTest, CountsSecondBoundaries)
{
    const QDateTime base(QDate(2026, 11, 22), QTime(9, 30, 0, 900));
    EXPECT_EQ(DateDiffSeconds(base, base.addMSecs(200)), 1);  // 0.2 s across a boundary
    EXPECT_EQ(DateDiffSeconds(base.addMSecs(-800), base), 0); // 0.8 s within one second
    EXPECT_EQ(DateDiffSeconds(base.addMSecs(200), base), -1);
    EXPECT_EQ(DateDiffSeconds(base, base.addSecs(3)), 3);
}

} // namespace
