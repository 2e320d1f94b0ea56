#include <array>
#include <vector>

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QVariant>

#include <gtest/gtest.h>

#include "MLUtil.h"
#include "ScriptedPlatform.h"
#include "TestFolder.h"
#include "UnhandledError.h"

namespace {

// Rows of a test language file, one cell per language; an empty text is stored as NULL,
// as the shipped file stores a blank cell.
struct TextRow
{
    QString ModuleName;
    int ID;
    int Seq;
    bool IsDisable;
    QStringList cells;
};

struct FormRow
{
    QString FormName;
    QString Objectpath;
    QString PropertyName;
    QStringList cells;
};

void Insert(QSqlQuery& query, const QString& table, const QVariantList& keys, const QStringList& cells)
{
    ASSERT_TRUE(query.prepare(
        QStringLiteral("INSERT INTO \"%1\" VALUES (%2)")
            .arg(
                table, QStringList(keys.size() + cells.size(), QStringLiteral("?")).join(QLatin1Char(',')))));
    for (const QVariant& key : keys)
        query.addBindValue(key);
    for (const QString& cell : cells)
        query.addBindValue(cell.isEmpty() ? QVariant(QMetaType::fromType<QString>()) : QVariant(cell));
    ASSERT_TRUE(query.exec()) << query.lastError().text().toStdString();
}

void WriteMlFile(const QString& path, const std::vector<TextRow>& texts, const std::vector<FormRow>& forms)
{
    const QString connection = QStringLiteral("ml-test-writer");
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        db.setDatabaseName(path);
        ASSERT_TRUE(db.open());
        QSqlQuery query(db);
        const QString columns = QStringLiteral("ChineseBig5 TEXT, ChineseGB TEXT, English TEXT)");
        ASSERT_TRUE(
            query.exec(QStringLiteral("CREATE TABLE \"Text\" (ModuleName TEXT, ID INTEGER, Seq INTEGER, "
                                      "IsDisable BOOLEAN, ")
                + columns));
        ASSERT_TRUE(query.exec(
            QStringLiteral("CREATE TABLE \"Form\" (FormName TEXT, Objectpath TEXT, PropertyName TEXT, ")
            + columns));
        for (const TextRow& row : texts)
            Insert(query, QStringLiteral("Text"), {row.ModuleName, row.ID, row.Seq, row.IsDisable ? 1 : 0},
                row.cells);
        for (const FormRow& row : forms)
            Insert(query, QStringLiteral("Form"), {},
                QStringList {row.FormName, row.Objectpath, row.PropertyName} + row.cells);
    }
    QSqlDatabase::removeDatabase(connection);
}

void WriteProfile(const QString& path, const QString& applied,
    const QString& original = QStringLiteral("ChineseBig5"),
    const QString& alternate = QStringLiteral("ChineseBig5"))
{
    const QString text = QStringLiteral("[Comm]\r\nTimeOut=2\r\nRetry=3\r\n\r\n[ML]\r\nAppliedLangName=")
        + applied + QStringLiteral("\r\nAlternateLangName=") + alternate
        + QStringLiteral("\r\nOriginalLangName =") + original
        + QStringLiteral("\r\nIsFormDisable= 0\r\nIsTextDisable= 1\r\n");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
}

// The rows every lookup test runs against: Big5 is the original, GB the alternate.
std::vector<TextRow> SampleTexts()
{
    return {
        {"VORNAMain", 84, 1, false, {"開新專案", "新建项目", "New Project"}},
        {"VORNAMain", 103, 1, false, {"檔案[", "文件[", "File ["}},
        {"VORNAMain", 103, 3, false, {"此檔案已經存在", "此文件已经存在", "File already exists"}},
        {"VORNAMain", 831, 1, true, {"(空)", "(空)", "(empty)"}},
        {"VORNAMain", 976, 2, false, {"歡迎使用", "欢迎使用", ""}},
        {"VORNAMain", 1019, 1, false, {"", "项目(", "Project ("}},
        {"VORNAUtil", 30, 1, false, {"新增連絡人群組", "新增联系人群组", "New Contact Group"}},
        {"Disabled", 1, 1, true, {"甲", "甲", "A"}},
    };
}

std::vector<FormRow> SampleForms()
{
    return {
        {"frmAbout", "", "Caption", {"關於", "关于", "About"}},
        {"frmAbout", "cmdOK", "Caption", {"確定", "确定", "OK"}},
        {"frmAbout", "Label1", "Caption", {"簡訊報警機", "短信报警机", ""}},
        {"frmAbout", "lblTitle", "Caption", {"標題", "", ""}},
        {"frmAbout", "lblVersion", "Caption", {"", "版本", "Version"}},
        {"frmMain", "sbStatusBar.Panels(1)", "Text", {"狀態", "状态", "Status"}},
    };
}

class MLUtilTest : public ::testing::Test
{
protected:
    TestFolder folder {false};
    ScriptedPlatform platform;
    MLUtil ml {platform};

    void SetUpLanguage(const QString& applied, const QString& alternate = QStringLiteral("ChineseGB"))
    {
        WriteProfile(folder.path("VORNA.set"), applied, QStringLiteral("ChineseBig5"), alternate);
        WriteMlFile(folder.path("VORNA.ml"), SampleTexts(), SampleForms());
    }
};

TEST(LanguageForLocale, MapsLocalesToTheThreeLanguages)
{
    struct Case
    {
        const char* locale;
        const char* language;
    };
    constexpr std::array cases {
        Case {"zh_TW", "ChineseBig5"},
        Case {"zh_HK", "ChineseBig5"},
        Case {"zh_TW.UTF-8", "ChineseBig5"},
        Case {"zh-TW", "ChineseBig5"},
        Case {"ZH_tw", "ChineseBig5"},
        Case {"zh_Hant", "ChineseBig5"},
        Case {"zh_CN", "ChineseGB"},
        Case {"zh_SG", "ChineseGB"},
        Case {"zh-Hans-SG", "ChineseGB"},
        Case {"zh", "English"},
        Case {"zh_US", "English"},
        Case {"", "English"},
        Case {"en_US", "English"},
        Case {"zh.UTF-8", "English"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(LanguageForLocale(QString::fromUtf8(c.locale)).toStdString(), c.language) << c.locale;
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
        WriteProfile(folder.path("VORNA.set"), QString::fromUtf8(c.applied));
        platform.localeName = QString::fromUtf8(c.locale);
        ml.ReadMLSettings(QString());
        EXPECT_EQ(ml.CurAppliedLang.toStdString(), c.curApplied);
        // The profile's own values stay as read, so that they are written back unchanged.
        EXPECT_EQ(ml.AppliedLangName.toStdString(), c.applied);
        EXPECT_EQ(ml.CurOriginalLang, QStringLiteral("ChineseBig5"));
        EXPECT_EQ(ml.CurAlternateLang, QStringLiteral("ChineseBig5"));
        EXPECT_EQ(ml.IsTextDisable, 1);
    }
}

TEST_F(MLUtilTest, SourceLanguageTakesTheFastPathWithoutLoadingTexts)
{
    SetUpLanguage(QStringLiteral("AUTO"));
    platform.localeName = QStringLiteral("zh_TW");
    EXPECT_EQ(ml.InitML(), 2);

    EXPECT_TRUE(ml.TextTable.empty());
    // The table's Big5 piece differs from the default on purpose: the default wins.
    EXPECT_EQ(ml.GetText(QStringLiteral("預設"), 1, 84, QStringLiteral("VORNAMain")), QStringLiteral("預設"));
    EXPECT_EQ(ml.lookupCount, 0);
    // Form texts are loaded whatever the languages.
    EXPECT_EQ(ml.GetFormText(QStringLiteral("frmAbout"), QStringLiteral("cmdOK"), QStringLiteral("Caption")),
        QStringLiteral("確定"));
}

TEST_F(MLUtilTest, GetTextGivesTheAppliedLanguageElseTheDefault)
{
    SetUpLanguage(QStringLiteral("English"));
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
        EXPECT_EQ(
            ml.GetText(QStringLiteral("default"), c.seq, c.id, QString::fromUtf8(c.module)).toStdString(),
            c.expected)
            << c.name;
    EXPECT_EQ(ml.lookupCount, qint32(cases.size()));
    EXPECT_EQ(ml.translatedCount, 2);
}

TEST_F(MLUtilTest, FormTextFallsBackFromAppliedToAlternateToOriginal)
{
    SetUpLanguage(QStringLiteral("English"));
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
        EXPECT_EQ(ml.GetFormText(
                        QString::fromUtf8(c.form), QString::fromUtf8(c.path), QString::fromUtf8(c.property))
                      .toStdString(),
            c.expected)
            << c.name;
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
        const QString name = QString::fromUtf8(c.exeName) + QStringLiteral(".set");
        platform.expectBox(MsgBox::Critical,
            QStringLiteral("ML system failed!\nFile [") + name + QStringLiteral("] not exist."),
            QStringLiteral("ML system failed"));
        try {
            layer.InitML(QString::fromUtf8(c.exeName));
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
    WriteProfile(folder.path("VORNA.set"), QStringLiteral("English"));
    bool exitCalled = false;
    ml.exitApplication = [&](bool) { exitCalled = true; };
    // The language file is named for the title, the profile for the executable.
    platform.expectBox(MsgBox::Critical, QStringLiteral("ML System Error! \nFile [Title.ml] not found."),
        QStringLiteral("ML System Error"));
    try {
        ml.InitML(QStringLiteral("VORNA"), QStringLiteral("Title"));
        ADD_FAILURE() << "the process did not end";
    } catch (const ProcessEnded& ended) {
        EXPECT_EQ(ended.status, 1);
    }
    EXPECT_FALSE(exitCalled);
    EXPECT_EQ(ml.CurAppliedLang, QStringLiteral("English"));
}

TEST_F(MLUtilTest, LanguageFileThatIsNoDatabaseFailsAtTheFirstLoad)
{
    WriteProfile(folder.path("VORNA.set"), QStringLiteral("English"));
    {
        QFile file(folder.path("VORNA.ml"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(4096, 'x'));
    }
    platform.expectBox(MsgBox::Critical,
        QStringLiteral("OpenMDBConn Failed!\nConnect String:")
            + ConnectString(QStringLiteral("VORNA.ml"), QString(), QString()),
        QStringLiteral("OpenMDBConn Failed"));
    platform.expectBoxWithAnyText(MsgBox::OKOnly, QStringLiteral("VORNA"));
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
        std::vector<TextRow> texts = SampleTexts();
        if (c.emptyText)
            for (TextRow& row : texts)
                row.IsDisable = true;
        std::vector<FormRow> forms = SampleForms();
        if (c.forms == Forms::None)
            forms.clear();
        if (c.forms == Forms::FullCellsOnly)
            std::erase_if(forms, [](const FormRow& row) { return row.cells.contains(QString()); });
        QFile::remove(folder.path("VORNA.ml"));
        WriteMlFile(folder.path("VORNA.ml"), texts, forms);

        MLUtil layer(platform);
        layer.CurOriginalLang = QStringLiteral("ChineseBig5");
        layer.CurAppliedLang = QString::fromUtf8(c.applied);
        layer.CurAlternateLang = QString::fromUtf8(c.alternate);
        layer.OpenMLConn(QStringLiteral("VORNA.ml"));
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
    SetUpLanguage(QStringLiteral("English"));
    ml.InitML();
    ml.CloseML();
    ml.CloseML();
    EXPECT_TRUE(ml.MLConn.isNothing());
    // Lookups never touch the database.
    EXPECT_EQ(
        ml.GetText(QStringLiteral("x"), 1, 84, QStringLiteral("VORNAMain")), QStringLiteral("New Project"));
}

} // namespace
