#include <algorithm>
#include <array>
#include <tuple>
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

// AUTO in either case and a language's name are tried on the shipped program's start.
TEST_F(MLUtilTest, ReadMLSettingsAppliesTheAutoRuleToTheAppliedLanguageOnly)
{
    constexpr std::array<std::tuple<const char*, const char*, const char*, const char*>, 2> cases {{
        {"empty means auto", "", "zh_HK", "ChineseBig5"},
        {"unknown name is kept as it is", "Klingon", "zh_TW", "Klingon"},
    }};
    for (const auto& [name, applied, locale, curApplied] : cases) {
        SCOPED_TRACE(name);
        WriteProfile(folder.path("VORNA.set"), applied);
        platform.localeName = locale;
        ml.ReadMLSettings(QString());
        EXPECT_EQ(ml.CurAppliedLang.toStdString(), curApplied);
        // The profile's own values stay as read, so that they are written back unchanged.
        EXPECT_EQ(ml.AppliedLangName.toStdString(), applied);
        EXPECT_EQ(ml.CurOriginalLang, "ChineseBig5");
        EXPECT_EQ(ml.CurAlternateLang, "ChineseBig5");
        EXPECT_EQ(ml.IsTextDisable, 1);
    }
}

TEST_F(MLUtilTest, GetTextGivesTheAppliedLanguageElseTheDefaultFromMemory)
{
    ml.CloseML(); // harmless before anything is open
    SetUpLanguage("English");
    ASSERT_EQ(ml.InitML(), 2);
    EXPECT_EQ(ml.TextTable.size(), 2u);

    constexpr std::array<std::tuple<const char*, const char*, int, int, const char*>, 9> cases {{
        {"translated piece", "VORNAMain", 84, 1, "New Project"},
        {"second module", "VORNAUtil", 30, 1, "New Contact Group"},
        {"disabled row", "VORNAMain", 831, 1, "default"},
        {"module with only disabled rows", "Disabled", 1, 1, "default"},
        {"empty applied cell, alternate has text", "VORNAMain", 976, 2, "default"},
        {"empty original cell", "VORNAMain", 1019, 1, "default"},
        {"missing piece", "VORNAMain", 103, 2, "default"},
        {"seq and id are not swapped", "VORNAMain", 1, 84, "default"},
        {"module name compares exactly", "vornamain", 84, 1, "default"},
    }};
    for (const auto& [name, module, id, seq, expected] : cases)
        EXPECT_EQ(ml.GetText("default", seq, id, module).toStdString(), expected) << name;
    // Lookups never touch the database.
    ml.CloseML();
    EXPECT_TRUE(ml.MLConn.isNothing());
    EXPECT_EQ(ml.GetText("x", 1, 84, "VORNAMain"), "New Project");
}

TEST_F(MLUtilTest, FormTextFallsBackFromAppliedToAlternateToOriginal)
{
    SetUpLanguage("English");
    ml.InitML();

    constexpr std::array<std::tuple<const char*, const char*, const char*, const char*, const char*>, 9>
        cases {{
            {"applied text", "frmAbout", "cmdOK", "Caption", "OK"},
            {"the form itself", "frmAbout", "", "Caption", "About"},
            {"alternate when applied is empty", "frmAbout", "Label1", "Caption", "短信报警机"},
            {"original when both are empty", "frmAbout", "lblTitle", "Caption", "標題"},
            {"row without original is dropped", "frmAbout", "lblVersion", "Caption", ""},
            {"property Text", "frmMain", "sbStatusBar.Panels(1)", "Text", "Status"},
            {"object path compares exactly", "frmAbout", "cmdok", "Caption", ""},
            {"property compares exactly", "frmAbout", "cmdOK", "caption", ""},
            {"form name compares exactly", "FRMABOUT", "cmdOK", "Caption", ""},
        }};
    for (const auto& [name, form, path, property, expected] : cases)
        EXPECT_EQ(ml.GetFormText(form, path, property).toStdString(), expected) << name;
}

TEST_F(MLUtilTest, MissingProfileShowsTheBoxAndExits)
{
    constexpr std::array<std::tuple<const char*, const char*, bool, bool, int>, 4> cases {{
        {"exit step ends the process", "VORNA", true, false, 0},
        {"exit step that returns", "VORNA", true, true, 1},
        {"no exit step wired", "VORNA", false, false, 1},
        {"profile named for the executable", "Other", false, false, 1},
    }};
    for (const auto& [name, exeName, hookSet, hookReturns, status] : cases) {
        SCOPED_TRACE(name);
        MLUtil layer(platform);
        std::vector<bool> exitCalls;
        if (hookSet) {
            layer.exitApplication = [&, returns = hookReturns](bool saveWindowState) {
                exitCalls.push_back(saveWindowState);
                if (!returns)
                    platform.endProcess(0);
            };
        }
        platform.expectBox(MsgBox::Critical,
            "ML system failed!\nFile [" + QString(exeName) + ".set] not exist.", "ML system failed");
        try {
            layer.InitML(exeName);
            ADD_FAILURE() << "the process did not end";
        } catch (const ProcessEnded& ended) {
            EXPECT_EQ(ended.status, status);
        }
        EXPECT_EQ(exitCalls, hookSet ? std::vector<bool> {false} : std::vector<bool> {});
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
    constexpr std::array<std::tuple<const char*, const char*, const char*, bool, Forms, bool, bool>, 7>
        cases {{
            {"all known", "English", "ChineseGB", false, Forms::Sample, true, true},
            {"no enabled text row", "English", "ChineseGB", true, Forms::Sample, false, true},
            {"no text rows needed in the source language", "ChineseBig5", "ChineseGB", true, Forms::Sample,
                true, true},
            {"no form row", "English", "ChineseGB", false, Forms::None, true, false},
            {"unknown applied language", "Klingon", "ChineseGB", false, Forms::Sample, false, false},
            // The alternate is read only for a form row whose applied cell is empty.
            {"unknown alternate, needed", "English", "Klingon", false, Forms::Sample, true, false},
            {"unknown alternate, not needed", "English", "Klingon", false, Forms::FullCellsOnly, true, true},
        }};
    for (const auto& [name, applied, alternate, emptyText, formRows, textLoads, formLoads] : cases) {
        SCOPED_TRACE(name);
        Rows texts = SampleTexts;
        if (emptyText)
            for (QVariantList& row : texts)
                row[3] = 1;
        Rows forms = formRows == Forms::None ? Rows {} : SampleForms;
        if (formRows == Forms::FullCellsOnly)
            std::erase_if(forms, [](const QVariantList& row) {
                return std::any_of(
                    row.begin(), row.end(), [](const QVariant& cell) { return cell.isNull(); });
            });
        WriteMlFile(folder.path("VORNA.ml"), texts, forms);

        MLUtil layer(platform);
        layer.CurOriginalLang = "ChineseBig5";
        layer.CurAppliedLang = applied;
        layer.CurAlternateLang = alternate;
        layer.OpenMLConn("VORNA.ml");
        if (textLoads)
            EXPECT_NO_THROW(layer.LoadTextTable());
        else
            EXPECT_THROW(layer.LoadTextTable(), UnhandledError);
        if (formLoads)
            EXPECT_NO_THROW(layer.LoadFormTable());
        else
            EXPECT_THROW(layer.LoadFormTable(), UnhandledError);
        layer.CloseML();
        EXPECT_TRUE(layer.MLConn.isNothing());
    }
}

} // namespace
