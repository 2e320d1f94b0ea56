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

// Every caption that the main window, the splash and the about box ask for at load; the
// status bar's panels take Text, the rest Caption.
std::vector<FormPath> FormPaths()
{
    const std::array<std::pair<const char*, std::vector<const char*>>, 3> forms = {{
        {"frmMain",
            {"", "lbllvNodeContentCaption", "lbltvProjectContentCaption", "sbStatusBar.Panels(1)",
                "sbStatusBar.Panels(2)", "sbStatusBar.Panels(3)", "mnuFile", "mnuFileNew", "mnuFileOpen",
                "mnuFileSave", "mnuFileSaveAs", "mnuFileBar0", "mnuFileBasic", "mnuFileBar1", "mnuFileMRU(1)",
                "mnuFileMRU(2)", "mnuFileMRU(3)", "mnuFileMRU(4)", "mnuFileBar2", "mnuFileExit", "mnuProj",
                "mnuProjAddGroupList", "mnuProjAddTelList", "mnuProjBar0", "mnuProjEditGroupList",
                "mnuProjEditTelList", "mnuProjEditZoneList", "mnuProjBar1", "mnuProjDeleteGroupList",
                "mnuProjDeleteTelList", "mnuView", "mnuViewToolbar", "mnuViewStatusBar", "mnuViewBar0",
                "mnuListViewMode(0)", "mnuListViewMode(1)", "mnuListViewMode(2)", "mnuListViewMode(3)",
                "mnuViewBar1", "mnuViewArrangeIcons", "mnuViewBar2", "mnuViewRefresh", "mnuTools",
                "mnuToolsOptions", "mnuViewWebBrowser", "mnuDevice", "mnuDeviceConnect", "mnuDeviceBar0",
                "mnuDeviceDownLoad", "mnuDeviceSetting", "mnuDeviceBar1", "mnuHelp", "mnuHelpContents",
                "mnuHelpSearchForHelpOn", "mnuHelpBar0", "mnuHelpAbout", "mnuProjConent",
                "mnuProjConentAddGroupList", "mnuProjConentAddTelList", "mnuProjConentEditGroupList",
                "mnuProjConentEditTelList", "mnuProjConentEditZoneList", "mnuProjConentDeleteGroupList",
                "mnuProjConentDeleteTelList", "mnuProjConentBar1"}},
        {"frmSplash", {"Label2", "Label1", "lblProductName", "lblCompanyProduct", "lblVersion"}},
        {"frmAbout", {"", "cmdOK", "Label1", "lblTitle", "lblVersion"}},
    }};
    std::vector<FormPath> paths;
    for (const auto& [form, objects] : forms)
        for (const char* object : objects) {
            const QString path = QString::fromLatin1(object);
            paths.push_back({QString::fromLatin1(form), path,
                path.startsWith(QLatin1String("sbStatusBar")) ? QStringLiteral("Text")
                                                              : QStringLiteral("Caption")});
        }
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
        ml.OpenMLConn(QStringLiteral("VORNA.ml"));
        ml.LoadFormTable();
    }
};

TEST_F(ShippedLanguageTest, EveryWindowCaptionHasTextInEveryLanguage)
{
    for (const char* language : {"ChineseBig5", "ChineseGB", "English"}) {
        MLUtil ml(platform);
        LoadOnly(ml, QString::fromUtf8(language));
        for (const FormPath& p : FormPaths())
            EXPECT_FALSE(FormText(ml, p).isEmpty())
                << language << " " << p.form.toStdString() << " [" << p.path.toStdString() << "]";
    }
}

TEST_F(ShippedLanguageTest, OriginalColumnHoldsTheDesignCaptions)
{
    MLUtil ml(platform);
    LoadOnly(ml, QStringLiteral("ChineseBig5"));
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

TEST_F(ShippedLanguageTest, TranslationsKeepAcceleratorsSeparatorsAndFilterPatterns)
{
    MLUtil big5(platform);
    LoadOnly(big5, QStringLiteral("ChineseBig5"));
    for (const char* language : {"ChineseGB", "English"}) {
        MLUtil ml(platform);
        LoadOnly(ml, QString::fromUtf8(language));
        for (const FormPath& p : FormPaths()) {
            const QString original = FormText(big5, p);
            const QString translated = FormText(ml, p);
            EXPECT_EQ(original.contains(QLatin1Char('&')), translated.contains(QLatin1Char('&')))
                << language << " " << p.path.toStdString();
            EXPECT_EQ(original == QLatin1String("-"), translated == QLatin1String("-"))
                << language << " " << p.path.toStdString();
        }
    }

    // The patterns between the bars of a file filter are not text to translate.
    const auto patterns = [](const QString& filter) {
        QStringList parts = filter.split(QLatin1Char('|'));
        QStringList kept;
        for (qsizetype i = 1; i < parts.size(); i += 2)
            kept << parts.at(i);
        return kept;
    };
    ScriptedPlatform english;
    english.localeName = QStringLiteral("en_US");
    MLUtil ml(english);
    ml.InitML();
    ASSERT_EQ(ml.CurAppliedLang, QStringLiteral("English"));
    for (int id : {89, 142, 408}) {
        const QString translated
            = ml.GetText(QStringLiteral("untranslated"), 1, id, QStringLiteral("VORNAMain"));
        EXPECT_NE(translated, QStringLiteral("untranslated")) << id;
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
        Case {"zh_CN.UTF-8", "欢迎使用 短信报警机", "适用机型: "},
        Case {"en_GB.UTF-8", "Welcome to the SMS Alarm Dialler", "Model: "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.locale);
        platform.localeName = QString::fromUtf8(c.locale);
        MLUtil ml(platform);
        EXPECT_EQ(ml.InitML(), 6);
        EXPECT_EQ(ml.AppliedLangName, QStringLiteral("AUTO"));
        EXPECT_EQ(ml.GetText(QStringLiteral("default"), 2, 976, QStringLiteral("VORNAMain")).toStdString(),
            c.welcome);
        EXPECT_EQ(FormText(ml, {"frmSplash", "Label1", "Caption"}).toStdString(), c.splashLabel);
        ml.CloseML();
    }
}

} // namespace
