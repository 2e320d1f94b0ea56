#pragma once

#include <functional>
#include <vector>

#include "ADOUtil.h"
#include "FormModel.h"

class Platform;

struct TextItem
{
    qint16 ID = 0;
    qint16 Seq = 0;
    QString OriginalText;
    QString AppliedText;
    bool operator==(const TextItem&) const = default;
};

struct TextModule
{
    QString ModuleName;
    std::vector<TextItem> Items;
    bool operator==(const TextModule&) const = default;
};

struct FormItem
{
    QString Objectpath;
    QString PropertyName;
    QString OriginalText;
    QString AppliedText;
    bool operator==(const FormItem&) const = default;
};

struct FormEntry
{
    QString FormName;
    std::vector<FormItem> Items;
    bool operator==(const FormEntry&) const = default;
};

// A key of the message table with its default text, for a text kept in a table or handed
// to a helper that serves several keys; GetText(key) looks it up.
struct TextKey
{
    const char* module;
    int id;
    int seq;
    const char* text;
};

// The language a system locale maps to under the AUTO rule: Traditional Chinese locales
// (zh_TW, zh_HK) give "ChineseBig5", Simplified Chinese ones (zh_CN, zh_SG) "ChineseGB",
// anything else "English".
QString LanguageForLocale(const QString& localeName);

// The language layer: which language is shown, the language database, and the two
// lookups through which every text of the program passes. One instance, owned by the
// program's shared state.
class MLUtil : public FormTextTable
{
public:
    explicit MLUtil(Platform& platform)
        : m_platform(platform)
    { }

    // Called when the profile is missing; the application core wires its exit step here
    // (ExitApplication(False)), which ends the process.
    std::function<void(bool saveWindowState)> exitApplication;

    // The [ML] keys as the profile holds them; written back unchanged by the options dialog.
    QString OriginalLangName;
    QString AppliedLangName;
    QString AlternateLangName;
    qint16 IsFormDisable = 0;
    qint16 IsTextDisable = 0;

    // The layer's working copies; only CurAppliedLang differs, by the AUTO rule.
    QString CurOriginalLang;
    QString CurAppliedLang;
    QString CurAlternateLang;

    Connection MLConn;
    std::vector<TextModule> TextTable;
    std::vector<FormEntry> FormTable;

    // Figures kept for inspection in a debugger; nothing reads them, so a lookup on a
    // const layer may still count itself.
    mutable qint32 lookupCount = 0;
    mutable qint32 translatedCount = 0;
    mutable double lookupSeconds = 0;

    // ReadMLSettings(""), OpenMLConn("VORNA.ml"), LoadTextTable, LoadFormTable.
    // exeName and title are the program's names ("VORNA" in a regular build).
    int InitML(
        const QString& exeName = QStringLiteral("VORNA"), const QString& title = QStringLiteral("VORNA"));
    void ReadMLSettings(const QString& FilePath, const QString& exeName = QStringLiteral("VORNA"));
    void OpenMLConn(const QString& FilePath);
    void CloseML();
    void CloseMLConn();

    int LoadTextTable();
    int LoadFormTable();

    QString GetText(const QString& DefaultText, int Seq, int ID, const QString& ModuleName) const;
    QString GetText(const TextKey& key) const
    {
        return GetText(QString::fromUtf8(key.text), key.seq, key.id, QString::fromLatin1(key.module));
    }
    QString GetFormText(
        const QString& FormName, const QString& Objectpath, const QString& PropertyName) const override;
    QString FindText(const QString& ModuleName, int ID, int Seq) const;
    QString FindFormText(
        const QString& FormName, const QString& Objectpath, const QString& PropertyName) const;

private:
    Platform& m_platform;
};
