#include <array>
#include <optional>

#include <gtest/gtest.h>

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

TEST(GetFnameTest, OtherModeStopsTheProgram)
{
    for (int mode : {-1, 4}) {
        try {
            GetFname("a.b", mode);
            ADD_FAILURE() << "mode " << mode << " did not stop";
        } catch (const UnhandledError& e) {
            EXPECT_EQ(e.text(), "Error! in getfname function ( vbutil)\rProgramm will stop!");
            EXPECT_EQ(e.title(), "GetFname - VBUtil");
            EXPECT_EQ(e.flags(), 17);
        }
    }
}

TEST(LastInStrTest, FindsTheLastOccurrenceFromOne)
{
    EXPECT_EQ(LastInStr("a.b.c", "."), 4);
    EXPECT_EQ(LastInStr("aaaa", "aa"), 3);
    EXPECT_EQ(LastInStr("", "."), 0);
}

TEST(NullToEmptyTest, GivesTheTextOfEachKind)
{
    EXPECT_EQ(NullToEmpty(QVariant()), "");
    EXPECT_EQ(NullToEmpty(QVariant(QMetaType::fromType<QString>())), "");
    EXPECT_EQ(NullToEmpty(true), "True");
    EXPECT_EQ(NullToEmpty(false), "False");
    EXPECT_EQ(NullToEmpty(QDate(2026, 1, 5)), "2026-01-05");
    EXPECT_EQ(NullToEmpty(-1.5), "-1.5");
    EXPECT_EQ(NullToEmpty(QString("  as is ")), "  as is ");
}

struct NumberCase
{
    const char* name;
    QVariant input;
    std::optional<int> expected; // nothing: an unhandled error with this text
    const char* error = "";
};

struct ValCase
{
    const char* text;
    double expected;
};

TEST(ValTest, TakesTheLeadingNumber)
{
    const std::array cases = {
        ValCase {"12abc", 12},
        ValCase {"  -3.5e2x", -350},
        ValCase {"", 0},
        ValCase {"1 2", 12},
        ValCase {"1.2.3", 1.2},
        ValCase {".5", 0.5},
        ValCase {"2D3", 2000},
        ValCase {"4e-1x", 0.4},
        ValCase {"\t9", 9},
    };
    for (const ValCase& c : cases)
        EXPECT_DOUBLE_EQ(Val(c.text), c.expected) << c.text;
}

const std::array CIntCases = {
    NumberCase {"half rounds down to even", 2.5, 2},
    NumberCase {"half rounds up to even", 3.5, 4},
    NumberCase {"numeric text with blanks", QString(" 7 "), 7},
    NumberCase {"upper bound", 32767, 32767},
    NumberCase {"lower bound", -32768, -32768},
    NumberCase {"above the range", 32768, std::nullopt, "Overflow"},
    NumberCase {"rounds out of the range", 32767.5, std::nullopt, "Overflow"},
    NumberCase {"text with a trailing word", QString("12abc"), std::nullopt, "Type mismatch"},
    NumberCase {"empty text", QString(""), std::nullopt, "Type mismatch"},
    NumberCase {"True", true, -1},
};

const std::array CByteCases = {
    NumberCase {"upper bound", 255, 255},
    NumberCase {"above the range", 256, std::nullopt, "Overflow"},
    NumberCase {"negative", -1, std::nullopt, "Overflow"},
    NumberCase {"half to even stays in range", 254.5, 254},
    NumberCase {"half to even leaves the range", 255.5, std::nullopt, "Overflow"},
    NumberCase {"small negative rounds to zero", -0.4, 0},
    NumberCase {"empty text", QString(""), std::nullopt, "Type mismatch"},
};

template<typename Convert> void CheckConversion(const NumberCase& c, Convert convert)
{
    try {
        const int got = convert(c.input);
        ASSERT_TRUE(c.expected.has_value()) << c.name << ": gave " << got;
        EXPECT_EQ(got, *c.expected) << c.name;
    } catch (const UnhandledError& e) {
        EXPECT_FALSE(c.expected.has_value()) << c.name << ": " << e.text().toStdString();
        EXPECT_EQ(e.text(), c.error) << c.name;
    }
}

TEST(CIntCByteTest, RoundToEvenAndCheckTheRange)
{
    for (const NumberCase& c : CIntCases)
        CheckConversion(c, [](const QVariant& v) { return int(CInt(v)); });
    for (const NumberCase& c : CByteCases)
        CheckConversion(c, [](const QVariant& v) { return int(CByte(v)); });
}

TEST(ValToInt16Test, ReadsTheLeadingNumberRounded)
{
    EXPECT_EQ(ValToInt16("2"), 2);
    EXPECT_EQ(ValToInt16("abc"), 0);
    EXPECT_EQ(ValToInt16("3.5 seconds"), 4);
    EXPECT_THROW(ValToInt16("99999"), UnhandledError);
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
