#include <array>
#include <utility>
#include <vector>

#include <QStringList>

#include <gtest/gtest.h>

#include "MLUtil.h"
#include "ScriptedPlatform.h"
#include "TestFolder.h"

namespace {

struct FormPath
{
    QString form;
    QString path;
    QString property;
};

// Every row of the shipped form table, as the original language holds it. That each form's
// paths have their row is checked with the forms themselves.
std::vector<FormPath> FormPaths(const MLUtil& ml)
{
    std::vector<FormPath> paths;
    for (const FormEntry& form : ml.FormTable)
        for (const FormItem& item : form.Items)
            paths.push_back({form.FormName, item.Objectpath, item.PropertyName});
    return paths;
}

QString FormText(const MLUtil& ml, const FormPath& p)
{
    return ml.GetFormText(p.form, p.path, p.property);
}

class ShippedLanguageTest : public ::testing::Test
{
protected:
    TestFolder folder {true};
    ScriptedPlatform platform;

    // Loads the forms with one language in all three roles, so that no fallback can
    // hide an empty cell.
    void LoadOnly(MLUtil& ml, const QString& language)
    {
        ml.CurOriginalLang = language;
        ml.CurAppliedLang = language;
        ml.CurAlternateLang = language;
        ml.OpenMLConn("VORNA.ml");
        ml.LoadFormTable();
    }
};

// Every caption has text in every language, and a translation keeps the original's
// accelerator and separators.
TEST_F(ShippedLanguageTest, EveryWindowCaptionHasTextInEveryLanguageAndKeepsItsForm)
{
    MLUtil big5(platform);
    LoadOnly(big5, "ChineseBig5");
    for (const char* language : {"ChineseBig5", "ChineseGB", "English"}) {
        MLUtil ml(platform);
        LoadOnly(ml, language);
        for (const FormPath& p : FormPaths(big5)) {
            const QString original = FormText(big5, p);
            const QString translated = FormText(ml, p);
            const std::string where
                = std::string(language) + " " + p.form.toStdString() + " [" + p.path.toStdString() + "]";
            EXPECT_FALSE(translated.isEmpty()) << where;
            EXPECT_EQ(original.contains('&'), translated.contains('&')) << where;
            EXPECT_EQ(original == "-", translated == "-") << where;
        }
    }
}

TEST_F(ShippedLanguageTest, OriginalColumnHoldsTheDesignCaptions)
{
    MLUtil ml(platform);
    LoadOnly(ml, "ChineseBig5");
    const std::array<std::pair<FormPath, const char*>, 6> cases = {{
        {{"frmMain", "sbStatusBar.Panels(3)", "Text"}, "Offline"},
        {{"frmMain", "mnuFileMRU(4)", "Caption"}, "MRU4"},
        {{"frmMain", "mnuProjConentBar1", "Caption"}, "-"},
        {{"frmSplash", "lblProductName", "Caption"}, "簡訊報警機   設定工具"},
        {{"frmAbout", "", "Caption"}, "關於 GSM Pellamatic"},
        {{"frmAbout", "Label1", "Caption"}, "簡訊報警機 "},
    }};
    for (const auto& [at, caption] : cases)
        EXPECT_EQ(FormText(ml, at).toStdString(), caption) << at.path.toStdString();
}

// The patterns between the bars of a file filter are not text to translate.
TEST_F(ShippedLanguageTest, TranslatedFileFiltersKeepTheirPatterns)
{
    const auto patterns = [](const QString& filter) {
        QStringList parts = filter.split('|');
        QStringList kept;
        for (qsizetype i = 1; i < parts.size(); i += 2)
            kept << parts.at(i);
        return kept;
    };
    platform.localeName = "en_US";
    MLUtil ml(platform);
    ml.InitML();
    ASSERT_EQ(ml.CurAppliedLang, "English");
    for (int id : {89, 142, 408}) {
        const QString translated = ml.GetText("untranslated", 1, id, "VORNAMain");
        EXPECT_NE(translated, "untranslated") << id;
        EXPECT_EQ(patterns(translated), id == 142 ? QStringList {"*.cmb"} : QStringList({"*.cmb", "*.*"}))
            << id;
    }
}

TEST_F(ShippedLanguageTest, DeliveredProfileFollowsTheSystemLocale)
{
    struct Case
    {
        const char* locale;
        const char* welcome;
        const char* splashLabel;
    };
    constexpr std::array cases {
        Case {"zh_TW.UTF-8", "default", "適用機型: "},
        Case {"zh_CN.UTF-8", "欢迎使用 短信报警器", "适用机型: "},
        Case {"en_GB.UTF-8", "Welcome to the SMS Alarm Dialler", "Model: "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.locale);
        platform.localeName = c.locale;
        MLUtil ml(platform);
        EXPECT_EQ(ml.InitML(), 17);
        EXPECT_EQ(ml.AppliedLangName, "AUTO");
        EXPECT_EQ(ml.GetText("default", 2, 976, "VORNAMain").toStdString(), c.welcome);
        EXPECT_EQ(FormText(ml, {"frmSplash", "Label1", "Caption"}).toStdString(), c.splashLabel);
        ml.CloseML();
    }
}

} // namespace
