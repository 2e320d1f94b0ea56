#include <array>

#include <QStringList>

#include <gtest/gtest.h>

#include "MLUtil.h"
#include "ScriptedPlatform.h"
#include "TestFolder.h"

namespace {

struct FormPath
{
    const char* form;
    const char* path;
    const char* property;
};

// Every caption that the main window, the splash and the about box ask for at load.
constexpr std::array kFormPaths {
    FormPath {"frmMain", "", "Caption"},
    FormPath {"frmMain", "lbllvNodeContentCaption", "Caption"},
    FormPath {"frmMain", "lbltvProjectContentCaption", "Caption"},
    FormPath {"frmMain", "sbStatusBar.Panels(1)", "Text"},
    FormPath {"frmMain", "sbStatusBar.Panels(2)", "Text"},
    FormPath {"frmMain", "sbStatusBar.Panels(3)", "Text"},
    FormPath {"frmMain", "mnuFile", "Caption"},
    FormPath {"frmMain", "mnuFileNew", "Caption"},
    FormPath {"frmMain", "mnuFileOpen", "Caption"},
    FormPath {"frmMain", "mnuFileSave", "Caption"},
    FormPath {"frmMain", "mnuFileSaveAs", "Caption"},
    FormPath {"frmMain", "mnuFileBar0", "Caption"},
    FormPath {"frmMain", "mnuFileBasic", "Caption"},
    FormPath {"frmMain", "mnuFileBar1", "Caption"},
    FormPath {"frmMain", "mnuFileMRU(1)", "Caption"},
    FormPath {"frmMain", "mnuFileMRU(2)", "Caption"},
    FormPath {"frmMain", "mnuFileMRU(3)", "Caption"},
    FormPath {"frmMain", "mnuFileMRU(4)", "Caption"},
    FormPath {"frmMain", "mnuFileBar2", "Caption"},
    FormPath {"frmMain", "mnuFileExit", "Caption"},
    FormPath {"frmMain", "mnuProj", "Caption"},
    FormPath {"frmMain", "mnuProjAddGroupList", "Caption"},
    FormPath {"frmMain", "mnuProjAddTelList", "Caption"},
    FormPath {"frmMain", "mnuProjBar0", "Caption"},
    FormPath {"frmMain", "mnuProjEditGroupList", "Caption"},
    FormPath {"frmMain", "mnuProjEditTelList", "Caption"},
    FormPath {"frmMain", "mnuProjEditZoneList", "Caption"},
    FormPath {"frmMain", "mnuProjBar1", "Caption"},
    FormPath {"frmMain", "mnuProjDeleteGroupList", "Caption"},
    FormPath {"frmMain", "mnuProjDeleteTelList", "Caption"},
    FormPath {"frmMain", "mnuView", "Caption"},
    FormPath {"frmMain", "mnuViewToolbar", "Caption"},
    FormPath {"frmMain", "mnuViewStatusBar", "Caption"},
    FormPath {"frmMain", "mnuViewBar0", "Caption"},
    FormPath {"frmMain", "mnuListViewMode(0)", "Caption"},
    FormPath {"frmMain", "mnuListViewMode(1)", "Caption"},
    FormPath {"frmMain", "mnuListViewMode(2)", "Caption"},
    FormPath {"frmMain", "mnuListViewMode(3)", "Caption"},
    FormPath {"frmMain", "mnuViewBar1", "Caption"},
    FormPath {"frmMain", "mnuViewArrangeIcons", "Caption"},
    FormPath {"frmMain", "mnuViewBar2", "Caption"},
    FormPath {"frmMain", "mnuViewRefresh", "Caption"},
    FormPath {"frmMain", "mnuTools", "Caption"},
    FormPath {"frmMain", "mnuToolsOptions", "Caption"},
    FormPath {"frmMain", "mnuViewWebBrowser", "Caption"},
    FormPath {"frmMain", "mnuDevice", "Caption"},
    FormPath {"frmMain", "mnuDeviceConnect", "Caption"},
    FormPath {"frmMain", "mnuDeviceBar0", "Caption"},
    FormPath {"frmMain", "mnuDeviceDownLoad", "Caption"},
    FormPath {"frmMain", "mnuDeviceSetting", "Caption"},
    FormPath {"frmMain", "mnuDeviceBar1", "Caption"},
    FormPath {"frmMain", "mnuHelp", "Caption"},
    FormPath {"frmMain", "mnuHelpContents", "Caption"},
    FormPath {"frmMain", "mnuHelpSearchForHelpOn", "Caption"},
    FormPath {"frmMain", "mnuHelpBar0", "Caption"},
    FormPath {"frmMain", "mnuHelpAbout", "Caption"},
    FormPath {"frmMain", "mnuProjConent", "Caption"},
    FormPath {"frmMain", "mnuProjConentAddGroupList", "Caption"},
    FormPath {"frmMain", "mnuProjConentAddTelList", "Caption"},
    FormPath {"frmMain", "mnuProjConentEditGroupList", "Caption"},
    FormPath {"frmMain", "mnuProjConentEditTelList", "Caption"},
    FormPath {"frmMain", "mnuProjConentEditZoneList", "Caption"},
    FormPath {"frmMain", "mnuProjConentDeleteGroupList", "Caption"},
    FormPath {"frmMain", "mnuProjConentDeleteTelList", "Caption"},
    FormPath {"frmMain", "mnuProjConentBar1", "Caption"},
    FormPath {"frmSplash", "Label2", "Caption"},
    FormPath {"frmSplash", "Label1", "Caption"},
    FormPath {"frmSplash", "lblProductName", "Caption"},
    FormPath {"frmSplash", "lblCompanyProduct", "Caption"},
    FormPath {"frmSplash", "lblVersion", "Caption"},
    FormPath {"frmAbout", "", "Caption"},
    FormPath {"frmAbout", "cmdOK", "Caption"},
    FormPath {"frmAbout", "Label1", "Caption"},
    FormPath {"frmAbout", "lblTitle", "Caption"},
    FormPath {"frmAbout", "lblVersion", "Caption"},
};
static_assert(kFormPaths.size() == 75);

QString FormText(const MLUtil& ml, const FormPath& p)
{
    return ml.GetFormText(
        QString::fromUtf8(p.form), QString::fromUtf8(p.path), QString::fromUtf8(p.property));
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
        for (const FormPath& p : kFormPaths)
            EXPECT_FALSE(FormText(ml, p).isEmpty()) << language << " " << p.form << " [" << p.path << "]";
    }
}

TEST_F(ShippedLanguageTest, OriginalColumnHoldsTheDesignCaptions)
{
    MLUtil ml(platform);
    LoadOnly(ml, QStringLiteral("ChineseBig5"));
    struct Case
    {
        FormPath at;
        const char* caption;
    };
    constexpr std::array cases {
        Case {{"frmMain", "", "Caption"}, "VORNA 規劃程式"},
        Case {{"frmMain", "sbStatusBar.Panels(3)", "Text"}, "Offline"},
        Case {{"frmMain", "mnuFileNew", "Caption"}, "開新專案(&N)..."},
        Case {{"frmMain", "mnuFileMRU(4)", "Caption"}, "MRU4"},
        Case {{"frmMain", "mnuProjConentBar1", "Caption"}, "-"},
        Case {{"frmSplash", "Label1", "Caption"}, "適用機型: "},
        Case {{"frmSplash", "lblProductName", "Caption"}, "簡訊報警機   設定工具"},
        Case {{"frmAbout", "", "Caption"}, "關於 GSM Pellamatic"},
        Case {{"frmAbout", "Label1", "Caption"}, "簡訊報警機 "},
        Case {{"frmAbout", "lblVersion", "Caption"}, "版本:"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FormText(ml, c.at).toStdString(), c.caption) << c.at.path;
}

TEST_F(ShippedLanguageTest, TranslationsKeepAcceleratorsSeparatorsAndFilterPatterns)
{
    MLUtil big5(platform);
    LoadOnly(big5, QStringLiteral("ChineseBig5"));
    for (const char* language : {"ChineseGB", "English"}) {
        MLUtil ml(platform);
        LoadOnly(ml, QString::fromUtf8(language));
        for (const FormPath& p : kFormPaths) {
            const QString original = FormText(big5, p);
            const QString translated = FormText(ml, p);
            EXPECT_EQ(original.contains(QLatin1Char('&')), translated.contains(QLatin1Char('&')))
                << language << " " << p.path;
            EXPECT_EQ(original == QLatin1String("-"), translated == QLatin1String("-"))
                << language << " " << p.path;
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
        EXPECT_EQ(ml.InitML(), 3);
        EXPECT_EQ(ml.AppliedLangName, QStringLiteral("AUTO"));
        EXPECT_EQ(ml.GetText(QStringLiteral("default"), 2, 976, QStringLiteral("VORNAMain")).toStdString(),
            c.welcome);
        EXPECT_EQ(FormText(ml, {"frmSplash", "Label1", "Caption"}).toStdString(), c.splashLabel);
        ml.CloseML();
    }
}

} // namespace
