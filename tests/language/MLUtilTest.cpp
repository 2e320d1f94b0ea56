#include <algorithm>
#include <array>
#include <vector>

#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <gtest/gtest.h>

#include "MLUtil.h"
#include "ScriptedPlatform.h"
#include "TestFolder.h"
#include "UnhandledError.h"

namespace {

// Rows of a test language file. Text rows hold ModuleName, ID, Seq and IsDisable, form rows
// FormName, Objectpath and PropertyName; then one cell per language: Big5 (the original),
// GB (the alternate) and English. A blank is NULL, as the shipped file stores it.
using Rows = std::vector<QVariantList>;

const Rows SampleTexts = {
    {"VORNAMain", 84, 1, 0, "開新專案", "新建项目", "New Project"},
    {"VORNAMain", 103, 1, 0, "檔案[", "文件[", "File ["},
    {"VORNAMain", 103, 3, 0, "此檔案已經存在", "此文件已经存在", "File already exists"},
    {"VORNAMain", 831, 1, 1, "(空)", "(空)", "(empty)"},
    {"VORNAMain", 976, 2, 0, "歡迎使用", "欢迎使用", {}},
    {"VORNAMain", 1019, 1, 0, {}, "项目(", "Project ("},
    {"VORNAUtil", 30, 1, 0, "新增連絡人群組", "新增联系人群组", "New Contact Group"},
    {"Disabled", 1, 1, 1, "甲", "甲", "A"},
};

const Rows SampleForms = {
    {"frmAbout", {}, "Caption", "關於", "关于", "About"},
    {"frmAbout", "cmdOK", "Caption", "確定", "确定", "OK"},
    {"frmAbout", "Label1", "Caption", "簡訊報警機", "短信报警机", {}},
    {"frmAbout", "lblTitle", "Caption", "標題", {}, {}},
    {"frmAbout", "lblVersion", "Caption", {}, "版本", "Version"},
    {"frmMain", "sbStatusBar.Panels(1)", "Text", "狀態", "状态", "Status"},
};

void WriteMlFile(const QString& path, const Rows& texts = SampleTexts, const Rows& forms = SampleForms)
{
    QFile::remove(path);
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "ml-test-writer");
        db.setDatabaseName(path);
        ASSERT_TRUE(db.open());
        QSqlQuery query(db);
        const QString cells = "ChineseBig5 TEXT, ChineseGB TEXT, English TEXT)";
        ASSERT_TRUE(query.exec(
            "CREATE TABLE \"Text\" (ModuleName TEXT, ID INTEGER, Seq INTEGER, IsDisable BOOLEAN, " + cells));
        ASSERT_TRUE(
            query.exec("CREATE TABLE \"Form\" (FormName TEXT, Objectpath TEXT, PropertyName TEXT, " + cells));
        for (const auto& [table, rows] : {std::pair {"Text", &texts}, {"Form", &forms}}) {
            for (const QVariantList& row : *rows) {
                query.prepare(QString("INSERT INTO \"%1\" VALUES (?%2)")
                                  .arg(table, QString(",?").repeated(row.size() - 1)));
                for (const QVariant& cell : row)
                    query.addBindValue(cell);
                ASSERT_TRUE(query.exec()) << query.lastError().text().toStdString();
            }
        }
    }
    QSqlDatabase::removeDatabase("ml-test-writer");
}

void WriteProfile(const QString& path, const QString& applied, const QString& alternate = "ChineseBig5")
{
    WriteAll(path,
        ("[Comm]\r\nTimeOut=2\r\nRetry=3\r\n\r\n[ML]\r\nAppliedLangName=" + applied + "\r\nAlternateLangName="
            + alternate + "\r\nOriginalLangName =ChineseBig5\r\nIsFormDisable= 0\r\nIsTextDisable= 1\r\n")
            .toUtf8());
}

class MLUtilTest : public ::testing::Test
{
protected:
    TestFolder folder {false};
    ScriptedPlatform platform;
    MLUtil ml {platform};

    void SetUpLanguage(const QString& applied)
    {
        WriteProfile(folder.path("VORNA.set"), applied, "ChineseGB");
        WriteMlFile(folder.path("VORNA.ml"));
    }
};

TEST(LanguageForLocale, MapsLocalesToTheThreeLanguages)
{
    const std::array<std::pair<const char*, std::vector<const char*>>, 3> cases = {{
        {"ChineseBig5", {"zh_TW", "zh_HK", "zh_TW.UTF-8", "zh-TW", "ZH_tw", "zh_Hant"}},
        {"ChineseGB", {"zh_CN", "zh_SG", "zh-Hans-SG"}},
        {"English", {"zh", "zh_US", "", "en_US", "zh.UTF-8"}},
    }};
    for (const auto& [language, locales] : cases)
        for (const char* locale : locales)
            EXPECT_EQ(LanguageForLocale(locale).toStdString(), language) << locale;
}

TEST_F(MLUtilTest, ReadMLSettingsAppliesTheAutoRuleToTheAppliedLanguageOnly)
{
    struct Case
    {
        const char* name;
        const char* applied;
        const char* locale;
        const char* curApplied;
    };
    constexpr std::array cases {
        Case {"upper case AUTO", "AUTO", "zh_TW", "ChineseBig5"},
        Case {"lower case auto", "auto", "zh_CN", "ChineseGB"},
        Case {"empty means auto", "", "zh_HK", "ChineseBig5"},
        Case {"explicit name ignores the locale", "ChineseGB", "zh_TW", "ChineseGB"},
        Case {"unknown name is kept as it is", "Klingon", "zh_TW", "Klingon"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        WriteProfile(folder.path("VORNA.set"), c.applied);
        platform.localeName = c.locale;
        ml.ReadMLSettings(QString());
        EXPECT_EQ(ml.CurAppliedLang.toStdString(), c.curApplied);
        // The profile's own values stay as read, so that they are written back unchanged.
        EXPECT_EQ(ml.AppliedLangName.toStdString(), c.applied);
        EXPECT_EQ(ml.CurOriginalLang, "ChineseBig5");
        EXPECT_EQ(ml.CurAlternateLang, "ChineseBig5");
        EXPECT_EQ(ml.IsTextDisable, 1);
    }
}

TEST_F(MLUtilTest, SourceLanguageTakesTheFastPathWithoutLoadingTexts)
{
    SetUpLanguage("AUTO");
    platform.localeName = "zh_TW";
    EXPECT_EQ(ml.InitML(), 2);

    EXPECT_TRUE(ml.TextTable.empty());
    // The table's Big5 piece differs from the default on purpose: the default wins.
    EXPECT_EQ(ml.GetText("預設", 1, 84, "VORNAMain"), "預設");
    // Form texts are loaded whatever the languages.
    EXPECT_EQ(ml.GetFormText("frmAbout", "cmdOK", "Caption"), "確定");
}

TEST_F(MLUtilTest, GetTextGivesTheAppliedLanguageElseTheDefault)
{
    SetUpLanguage("English");
    ASSERT_EQ(ml.InitML(), 2);
    EXPECT_EQ(ml.TextTable.size(), 2u);

    struct Case
    {
        const char* name;
        const char* module;
        int id;
        int seq;
        const char* expected;
    };
    constexpr std::array cases {
        Case {"translated piece", "VORNAMain", 84, 1, "New Project"},
        Case {"second module", "VORNAUtil", 30, 1, "New Contact Group"},
        Case {"disabled row", "VORNAMain", 831, 1, "default"},
        Case {"module with only disabled rows", "Disabled", 1, 1, "default"},
        Case {"empty applied cell, alternate has text", "VORNAMain", 976, 2, "default"},
        Case {"empty original cell", "VORNAMain", 1019, 1, "default"},
        Case {"missing piece", "VORNAMain", 103, 2, "default"},
        Case {"seq and id are not swapped", "VORNAMain", 1, 84, "default"},
        Case {"module name compares exactly", "vornamain", 84, 1, "default"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ml.GetText("default", c.seq, c.id, c.module).toStdString(), c.expected) << c.name;
}

TEST_F(MLUtilTest, FormTextFallsBackFromAppliedToAlternateToOriginal)
{
    SetUpLanguage("English");
    ml.InitML();

    struct Case
    {
        const char* name;
        const char* form;
        const char* path;
        const char* property;
        const char* expected;
    };
    constexpr std::array cases {
        Case {"applied text", "frmAbout", "cmdOK", "Caption", "OK"},
        Case {"the form itself", "frmAbout", "", "Caption", "About"},
        Case {"alternate when applied is empty", "frmAbout", "Label1", "Caption", "短信报警机"},
        Case {"original when both are empty", "frmAbout", "lblTitle", "Caption", "標題"},
        Case {"row without original is dropped", "frmAbout", "lblVersion", "Caption", ""},
        Case {"property Text", "frmMain", "sbStatusBar.Panels(1)", "Text", "Status"},
        Case {"object path compares exactly", "frmAbout", "cmdok", "Caption", ""},
        Case {"property compares exactly", "frmAbout", "cmdOK", "caption", ""},
        Case {"form name compares exactly", "FRMABOUT", "cmdOK", "Caption", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ml.GetFormText(c.form, c.path, c.property).toStdString(), c.expected) << c.name;
}

TEST_F(MLUtilTest, MissingProfileShowsTheBoxAndExits)
{
    struct Case
    {
        const char* name;
        const char* exeName;
        bool hookSet;
        bool hookReturns;
        int status;
    };
    constexpr std::array cases {
        Case {"exit step ends the process", "VORNA", true, false, 0},
        Case {"exit step that returns", "VORNA", true, true, 1},
        Case {"no exit step wired", "VORNA", false, false, 1},
        Case {"profile named for the executable", "Other", false, false, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        MLUtil layer(platform);
        std::vector<bool> exitCalls;
        if (c.hookSet) {
            layer.exitApplication = [&, c](bool saveWindowState) {
                exitCalls.push_back(saveWindowState);
                if (!c.hookReturns)
                    platform.endProcess(0);
            };
        }
        const QString name = QString(c.exeName) + ".set";
        platform.expectBox(
            MsgBox::Critical, "ML system failed!\nFile [" + name + "] not exist.", "ML system failed");
        try {
            layer.InitML(c.exeName);
            ADD_FAILURE() << "the process did not end";
        } catch (const ProcessEnded& ended) {
            EXPECT_EQ(ended.status, c.status);
        }
        EXPECT_EQ(exitCalls, c.hookSet ? std::vector<bool> {false} : std::vector<bool> {});
        EXPECT_TRUE(platform.allExpectationsMet());
        EXPECT_TRUE(layer.MLConn.isNothing());
    }
}

TEST_F(MLUtilTest, MissingLanguageFileShowsTheBoxAndEndsAtOnce)
{
    WriteProfile(folder.path("VORNA.set"), "English");
    bool exitCalled = false;
    ml.exitApplication = [&](bool) { exitCalled = true; };
    // The language file is named for the title, the profile for the executable.
    platform.expectBox(MsgBox::Critical, "ML System Error! \nFile [Title.ml] not found.", "ML System Error");
    try {
        ml.InitML("VORNA", "Title");
        ADD_FAILURE() << "the process did not end";
    } catch (const ProcessEnded& ended) {
        EXPECT_EQ(ended.status, 1);
    }
    EXPECT_FALSE(exitCalled);
    EXPECT_EQ(ml.CurAppliedLang, "English");
}

TEST_F(MLUtilTest, LanguageFileThatIsNoDatabaseFailsAtTheFirstLoad)
{
    WriteProfile(folder.path("VORNA.set"), "English");
    WriteAll(folder.path("VORNA.ml"), QByteArray(4096, 'x'));
    platform.expectBox(MsgBox::Critical,
        "OpenMDBConn Failed!\nConnect String:" + ConnectString("VORNA.ml", QString(), QString()),
        "OpenMDBConn Failed");
    platform.expectBoxWithAnyText(MsgBox::OKOnly, "VORNA");
    EXPECT_THROW(ml.InitML(), UnhandledError);
    EXPECT_TRUE(ml.MLConn.isNothing());
}

TEST_F(MLUtilTest, LoadersFailOnEmptyTablesAndUnknownLanguages)
{
    enum class Forms { Sample, None, FullCellsOnly };
    struct Case
    {
        const char* name;
        const char* applied;
        const char* alternate;
        bool emptyText;
        Forms forms;
        bool textLoads;
        bool formLoads;
    };
    constexpr std::array cases {
        Case {"all known", "English", "ChineseGB", false, Forms::Sample, true, true},
        Case {"no enabled text row", "English", "ChineseGB", true, Forms::Sample, false, true},
        Case {"no text rows needed in the source language", "ChineseBig5", "ChineseGB", true, Forms::Sample,
            true, true},
        Case {"no form row", "English", "ChineseGB", false, Forms::None, true, false},
        Case {"unknown applied language", "Klingon", "ChineseGB", false, Forms::Sample, false, false},
        // The alternate is read only for a form row whose applied cell is empty.
        Case {"unknown alternate, needed", "English", "Klingon", false, Forms::Sample, true, false},
        Case {"unknown alternate, not needed", "English", "Klingon", false, Forms::FullCellsOnly, true, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Rows texts = SampleTexts;
        if (c.emptyText)
            for (QVariantList& row : texts)
                row[3] = 1;
        Rows forms = c.forms == Forms::None ? Rows {} : SampleForms;
        if (c.forms == Forms::FullCellsOnly)
            std::erase_if(forms, [](const QVariantList& row) {
                return std::any_of(
                    row.begin(), row.end(), [](const QVariant& cell) { return cell.isNull(); });
            });
        WriteMlFile(folder.path("VORNA.ml"), texts, forms);

        MLUtil layer(platform);
        layer.CurOriginalLang = "ChineseBig5";
        layer.CurAppliedLang = c.applied;
        layer.CurAlternateLang = c.alternate;
        layer.OpenMLConn("VORNA.ml");
        if (c.textLoads)
            EXPECT_NO_THROW(layer.LoadTextTable());
        else
            EXPECT_THROW(layer.LoadTextTable(), UnhandledError);
        if (c.formLoads)
            EXPECT_NO_THROW(layer.LoadFormTable());
        else
            EXPECT_THROW(layer.LoadFormTable(), UnhandledError);
        layer.CloseML();
        EXPECT_TRUE(layer.MLConn.isNothing());
    }
}

TEST_F(MLUtilTest, CloseMLIsHarmlessAndKeepsTheTables)
{
    ml.CloseML();
    SetUpLanguage("English");
    ml.InitML();
    ml.CloseML();
    ml.CloseML();
    EXPECT_TRUE(ml.MLConn.isNothing());
    // Lookups never touch the database.
    EXPECT_EQ(ml.GetText("x", 1, 84, "VORNAMain"), "New Project");
}

} // namespace
