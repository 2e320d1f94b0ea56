#include <array>
#include <map>
#include <set>
#include <tuple>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlQuery>

#include <gtest/gtest.h>

#include "ScriptedPlatform.h"
#include "TestFolder.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"
#include "frmAbout.h"
#include "frmAddOtherUser.h"
#include "frmAddUser.h"
#include "frmAddUserGroup.h"
#include "frmAllUserGroups.h"
#include "frmComPort.h"
#include "frmCommSetting.h"
#include "frmEditGroupList.h"
#include "frmEditTelList.h"
#include "frmEditZoneList.h"
#include "frmKeyInString.h"
#include "frmMain.h"
#include "frmMessage.h"
#include "frmMoveUsers.h"
#include "frmProjBasic.h"
#include "frmSplash.h"
#include "frmToolsOptions.h"

namespace {

using Rows = std::map<QStringList, QStringList>; // key columns as text, then the three languages
const QStringList Languages {"ChineseBig5", "ChineseGB", "English"};

// A table of the shipped language file.
Rows ShippedTable(const QString& table, const QString& keyColumns)
{
    Rows rows;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "catalogue");
        db.setDatabaseName(QStringLiteral(VORNA_SHIPPED_DIR "/VORNA.ml"));
        EXPECT_TRUE(db.open());
        QSqlQuery q(QString("SELECT %1, %2 FROM \"%3\"").arg(keyColumns, Languages.join(','), table), db);
        const int keys = keyColumns.count(',') + 1;
        while (q.next()) {
            QStringList key, cells;
            for (int i = 0; i < keys + 3; ++i)
                (i < keys ? key : cells) << q.value(i).toString();
            rows[key] = cells;
        }
    }
    QSqlDatabase::removeDatabase("catalogue");
    return rows;
}

// The keys {module, id, seq} asked at the call sites under src/, with their defaults. A lookup
// reads T(g, "text", seq, id) or T.key("text", seq, id), with T declared in its file as
// `const ModuleText T {"Module"};`; the store's StoreText("text", seq, id) speaks for ADOUtil.
// A lookup in any other shape is unreadable, and so a fault.
std::map<QStringList, QString> ReadCallSites(QStringList& unreadable)
{
    std::map<QStringList, QString> keys;
    const QRegularExpression declared(R"re(ModuleText\s+(\w+)\s*\{\s*"(\w+)"\s*\})re");
    const QRegularExpression anyDeclaration(R"(\bModuleText\s+\w+\s*\{)");
    const QRegularExpression spelledOut(R"(GetText\((?![^,()]*\)))"); // more than a key
    for (QDirIterator it(VORNA_SOURCE_DIR, {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
         it.hasNext();) {
        QFile f(it.next());
        f.open(QIODevice::ReadOnly);
        const QString s = QString::fromUtf8(f.readAll());
        const QString file = f.fileName().mid(f.fileName().lastIndexOf("/src/") + 1);
        if (file.contains(QRegularExpression("^src/language/|/VORNAGlobal.h|/StoreText\\.")))
            continue; // where the lookups are defined
        std::map<QString, QString> modules {{"StoreText", "ADOUtil"}};
        for (const QRegularExpressionMatch& m : declared.globalMatch(s))
            modules[m.captured(1)] = m.captured(2);
        if (s.count(anyDeclaration) + 1 != qsizetype(modules.size()))
            unreadable << file + ": a ModuleText without a literal module";
        if (s.contains(spelledOut))
            unreadable << file + ": GetText with its arguments spelt out";
        for (const auto& [name, module] : modules) {
            const QRegularExpression literal("\\b" + name
                + R"re((?:\(\s*[\w.]+\s*,|\(|\.key\()\s*"((?:[^"\\]|\\.)*)"\s*,\s*(\d+)\s*,\s*(\d+)\s*\))re");
            for (const QRegularExpressionMatch& m : literal.globalMatch(s)) {
                const QStringList key {module, m.captured(3), m.captured(2)};
                const QString text = m.captured(1).replace("\\\"", "\"");
                if (keys.contains(key) && keys[key] != text)
                    unreadable << file + ": a second default for " + key.join(' ');
                keys[key] = text;
            }
            if (s.count(QRegularExpression("\\b" + name + "(\\(|\\.key\\()")) != s.count(literal))
                unreadable << file + ": a lookup of " + name + " without literal text, seq and id";
        }
    }
    return keys;
}

// A time unit and a table name that the program compares with: no language may change them.
const std::set<QStringList> Untranslatable {
    {"VORNACommUtil", "456", "1"}, {"VORNAMain", "1221", "1"}, {"VORNAMain", "1221", "3"}};

TEST(CatalogueTest, EveryCallSiteHasItsRowAndEveryRowItsCallSite)
{
    QStringList unreadable;
    const std::map<QStringList, QString> sites = ReadCallSites(unreadable);
    EXPECT_EQ(unreadable.join('\n').toStdString(), "");
    Rows rows = ShippedTable("Text", "ModuleName, ID, Seq");
    for (const auto& [key, text] : sites)
        EXPECT_EQ(rows.contains(key) ? rows[key][0].toStdString() : "no row", text.toStdString())
            << key.join(' ').toStdString();
    for (const auto& [key, cells] : rows) {
        const std::string where = key.join(' ').toStdString();
        // A contact's empty name ends the adding of a contact without a word, so the box of 201
        // is never asked for; the catalogue keeps its rows all the same.
        EXPECT_TRUE(sites.contains(key) || key.mid(0, 2).join(" ") == "VORNAUtil 201")
            << where << " is asked nowhere";
        for (const QString& cell : cells) {
            EXPECT_FALSE(cell.trimmed().isEmpty()) << where;
            EXPECT_TRUE(!Untranslatable.contains(key) || cell == cells[0]) << where;
            // The patterns between the bars of a file filter are not text to translate.
            for (qsizetype i = 1; cells[0].contains("|*.") && i <= cells[0].count('|'); i += 2)
                EXPECT_EQ(cell.section('|', i, i), cells[0].section('|', i, i)) << where;
        }
    }
}

// Every form that takes texts from the form table, made through its own class.
std::array<FormModel*, 17> Forms(VORNAGlobal& g)
{
    return {&g.form<frmMain>(), &g.form<frmSplash>(), &g.form<frmAbout>(), &g.form<frmEditGroupList>(),
        &g.form<frmEditTelList>(), &g.form<frmEditZoneList>(), &g.form<frmKeyInString>(),
        &g.form<frmProjBasic>(), &g.form<frmCommSetting>(), &g.form<frmComPort>(), &g.form<frmMessage>(),
        &g.form<frmAllUserGroups>(), &g.form<frmAddUser>(), &g.form<frmAddUserGroup>(),
        &g.form<frmMoveUsers>(), &g.form<frmAddOtherUser>(), &g.form<frmToolsOptions>()};
}

// The shipped program started in each choice of language, the profile's name or AUTO under
// the system's locale, speaks it: its messages, and every caption of every form. A form's
// caption has its row with text in every language, a translation keeps the original's
// accelerator and separators, and no row is left that no form asks for.
TEST(CatalogueTest, ProgramRunsWholeInTheChosenLanguage)
{
    const std::array<std::tuple<const char*, const char*, int>, 6> cases {
        {{"ChineseBig5", "en_US", 0}, {"ChineseGB", "zh_TW", 1}, {"English", "zh_CN", 2},
            {"AUTO", "zh_TW", 0}, {"AUTO", "zh_CN", 1}, {"auto", "en_US", 2}}};
    const QStringList welcome = ShippedTable("Text", "ModuleName, ID, Seq").at({"VORNAMain", "976", "2"});
    const Rows captions = ShippedTable("Form", "FormName, Objectpath, PropertyName");
    Rows unasked = captions;
    for (const auto& [applied, locale, language] : cases) {
        SCOPED_TRACE(std::string(applied) + " " + locale);
        TestFolder folder;
        WriteAll(folder.path("VORNA.set"),
            ReadAll(folder.path("VORNA.set"))
                .replace("AppliedLangName=AUTO", QByteArray("AppliedLangName=") + applied));
        ScriptedPlatform platform;
        platform.localeName = locale;
        VORNAGlobal g {platform};
        InitApplication(g, folder.appPath());
        frmMain& main = g.form<frmMain>();
        main.Load();
        main.LoadFormObj();
        EXPECT_EQ(g.ml.CurAppliedLang, Languages[language]);
        EXPECT_EQ(main.panel("Status").Text, welcome[language]);
        EXPECT_EQ(language == 0, welcome[language] == welcome[0]);
        // In the language of the source the call site's default is the text, the table unread.
        EXPECT_EQ(g.GetText("預設", 2, 976, "VORNAMain") == "預設", language == 0);
        EXPECT_EQ(g.ml.TextTable.empty(), language == 0);
        for (FormModel* form : Forms(g)) {
            form->ApplyFormText();
            for (const FormTextPath& p : form->formTexts()) {
                const QStringList key {form->formName(), p.path, p.property};
                const QString* text = form->textProperty(p.path, p.property);
                ASSERT_TRUE(text && captions.contains(key)) << key.join(' ').toStdString();
                const QString& original = captions.at(key)[0];
                EXPECT_EQ(text->toStdString(), captions.at(key)[language].toStdString())
                    << key.join(' ').toStdString();
                EXPECT_FALSE(text->isEmpty() || text->contains('&') != original.contains('&')
                    || (*text == "-") != (original == "-"))
                    << key.join(' ').toStdString();
                unasked.erase(key);
            }
        }
        CloseApplication(g);
    }
    for (const auto& [key, cells] : unasked)
        ADD_FAILURE() << key.join(' ').toStdString() << " is asked by no form";
}

} // namespace
