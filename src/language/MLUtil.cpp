#include "MLUtil.h"

#include <chrono>

#include <QStringList>

#include "FileUtil.h"
#include "Platform.h"
#include "SettingUtil.h"
#include "VBUtil.h"

QString LanguageForLocale(const QString& localeName)
{
    // "zh_TW.UTF-8", "zh-TW", "zh_Hant_TW@euro": the code set and modifier do not count.
    QString name = localeName;
    for (qsizetype i = 0; i < name.size(); ++i) {
        if (name.at(i) == QLatin1Char('.') || name.at(i) == QLatin1Char('@')) {
            name.truncate(i);
            break;
        }
    }
    const QStringList parts = name.replace(QLatin1Char('-'), QLatin1Char('_')).split(QLatin1Char('_'));
    if (parts.first().compare(QLatin1String("zh"), Qt::CaseInsensitive) != 0)
        return QStringLiteral("English");

    QString script;
    QString region;
    for (qsizetype i = 1; i < parts.size(); ++i) {
        if (parts.at(i).size() == 4)
            script = parts.at(i).toUpper();
        else if (region.isEmpty())
            region = parts.at(i).toUpper();
    }
    if (region == QLatin1String("TW") || region == QLatin1String("HK") || region == QLatin1String("MO"))
        return QStringLiteral("ChineseBig5");
    if (region == QLatin1String("CN") || region == QLatin1String("SG"))
        return QStringLiteral("ChineseGB");
    // Without a known region the script still tells the two written forms apart.
    if (region.isEmpty() && script == QLatin1String("HANT"))
        return QStringLiteral("ChineseBig5");
    if (region.isEmpty() && script == QLatin1String("HANS"))
        return QStringLiteral("ChineseGB");
    return QStringLiteral("English");
}

int MLUtil::InitML(const QString& exeName, const QString& title)
{
    ReadMLSettings(QString(), exeName);
    OpenMLConn(title + QStringLiteral(".ml"));
    LoadTextTable();
    return LoadFormTable();
}

void MLUtil::ReadMLSettings(const QString& FilePath, const QString& exeName)
{
    const QString path = FilePath.isEmpty() ? GetFname(exeName, 0) + QStringLiteral(".set") : FilePath;
    if (!FileExists(path)) {
        m_platform.msgBox(QStringLiteral("ML system failed!\nFile [") + path + QStringLiteral("] not exist."),
            MsgBox::Critical, QStringLiteral("ML system failed"));
        if (exitApplication)
            exitApplication(false);
        // The exit step never returns; this stands in for it when no core is wired.
        m_platform.endProcess(1);
    }

    const QString text = ReadTextFile(path);
    const QString section = QStringLiteral("ML");
    OriginalLangName = GetProfileString(section, QStringLiteral("OriginalLangName"), QString(), text);
    AppliedLangName = GetProfileString(section, QStringLiteral("AppliedLangName"), QString(), text);
    AlternateLangName = GetProfileString(section, QStringLiteral("AlternateLangName"), QString(), text);
    IsFormDisable
        = ValToInt16(GetProfileString(section, QStringLiteral("IsFormDisable"), QStringLiteral("0"), text));
    IsTextDisable
        = ValToInt16(GetProfileString(section, QStringLiteral("IsTextDisable"), QStringLiteral("0"), text));

    CurOriginalLang = OriginalLangName;
    CurAppliedLang = AppliedLangName;
    CurAlternateLang = AlternateLangName;

    if (CurAppliedLang.isEmpty() || CurAppliedLang.toUpper() == QLatin1String("AUTO"))
        CurAppliedLang = LanguageForLocale(m_platform.systemLocaleName());
}

void MLUtil::OpenMLConn(const QString& FilePath)
{
    if (!FileExists(FilePath)) {
        m_platform.msgBox(
            QStringLiteral("ML System Error! \nFile [") + FilePath + QStringLiteral("] not found."),
            MsgBox::Critical, QStringLiteral("ML System Error"));
        m_platform.endProcess(1);
    }
    MLConn = OpenMDBConn(m_platform, FilePath, QString(), QString());
}

void MLUtil::CloseML()
{
    CloseMLConn();
}

void MLUtil::CloseMLConn()
{
    if (!MLConn.isNothing() && MLConn.State() == 1)
        MLConn.Close();
    MLConn = Connection();
}

int MLUtil::LoadTextTable()
{
    if (CurOriginalLang == CurAppliedLang)
        return 0;

    Recordset modules = OpenRecordset(MLConn,
        QStringLiteral(
            "SELECT DISTINCT [ModuleName] FROM [Text] WHERE NOT [IsDisable] ORDER BY [ModuleName];"),
        false);
    // An empty result, or no result at all, is an unhandled error here.
    modules.MoveFirst();
    TextTable.clear();

    int count = 0;
    while (!modules.IsEOF()) {
        const QString name = Trim(FieldText(modules, QStringLiteral("ModuleName")));
        if (!name.isEmpty()) {
            Recordset rows = OpenRecordset(MLConn,
                QStringLiteral("SELECT * FROM [Text] WHERE [ModuleName]='") + name
                    + QStringLiteral("' And NOT [IsDisable] ORDER BY ID, Seq ;"),
                false);
            if (!rows.isNothing() && rows.State() != 0 && rows.RecordCount() > 0) {
                TextModule module;
                module.ModuleName = name;
                rows.MoveFirst();
                while (!rows.IsEOF()) {
                    if (!rows.Fields(QStringLiteral("IsDisable")).toBool()) {
                        const QString original = FieldText(rows, CurOriginalLang);
                        const QString applied = FieldText(rows, CurAppliedLang);
                        // A piece missing in either language is left out, so that the call
                        // site's own text shows instead.
                        if (!original.isEmpty() && !applied.isEmpty())
                            module.Items.push_back({CInt(rows.Fields(QStringLiteral("ID"))),
                                CInt(rows.Fields(QStringLiteral("Seq"))), original, applied});
                    }
                    rows.MoveNext();
                }
                TextTable.push_back(std::move(module));
                ++count;
            }
            if (!rows.isNothing() && rows.State() != 0)
                rows.Close();
        }
        modules.MoveNext();
    }
    modules.Close();
    return count;
}

int MLUtil::LoadFormTable()
{
    Recordset forms = OpenRecordset(
        MLConn, QStringLiteral("SELECT DISTINCT [FormName] FROM [Form]  ORDER BY [FormName];"), false);
    forms.MoveFirst();
    FormTable.clear();

    int count = 0;
    while (!forms.IsEOF()) {
        const QString name = Trim(FieldText(forms, QStringLiteral("FormName")));
        if (!name.isEmpty()) {
            Recordset rows = OpenRecordset(MLConn,
                QStringLiteral("SELECT * FROM [Form] WHERE [FormName]='") + name + QStringLiteral("'  ;"),
                false);
            if (!rows.isNothing() && rows.State() != 0 && rows.RecordCount() > 0) {
                FormEntry entry;
                entry.FormName = name;
                rows.MoveFirst();
                while (!rows.IsEOF()) {
                    const QString original = FieldText(rows, CurOriginalLang);
                    QString applied = FieldText(rows, CurAppliedLang);
                    if (applied.isEmpty())
                        applied = FieldText(rows, CurAlternateLang);
                    if (applied.isEmpty())
                        applied = original;
                    if (!applied.isEmpty() && !original.isEmpty())
                        entry.Items.push_back({FieldText(rows, QStringLiteral("Objectpath")),
                            FieldText(rows, QStringLiteral("PropertyName")), original, applied});
                    rows.MoveNext();
                }
                FormTable.push_back(std::move(entry));
                ++count;
            }
            if (!rows.isNothing() && rows.State() != 0)
                rows.Close();
        }
        forms.MoveNext();
    }
    forms.Close();
    return count;
}

QString MLUtil::GetText(const QString& DefaultText, int Seq, int ID, const QString& ModuleName) const
{
    if (CurOriginalLang == CurAppliedLang)
        return DefaultText;

    const auto started = std::chrono::steady_clock::now();
    QString result = FindText(ModuleName, ID, Seq);
    if (result.isEmpty())
        result = DefaultText;

    ++lookupCount;
    if (result != DefaultText)
        ++translatedCount;
    lookupSeconds += double(
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - started).count());
    return result;
}

QString MLUtil::GetFormText(
    const QString& FormName, const QString& Objectpath, const QString& PropertyName) const
{
    return FindFormText(FormName, Objectpath, PropertyName);
}

QString MLUtil::FindText(const QString& ModuleName, int ID, int Seq) const
{
    for (const TextModule& module : TextTable) {
        if (module.ModuleName != ModuleName)
            continue;
        for (const TextItem& item : module.Items)
            if (item.Seq == Seq && item.ID == ID)
                return item.AppliedText;
    }
    return QString();
}

QString MLUtil::FindFormText(
    const QString& FormName, const QString& Objectpath, const QString& PropertyName) const
{
    for (const FormEntry& entry : FormTable) {
        if (entry.FormName != FormName)
            continue;
        for (const FormItem& item : entry.Items)
            if (item.PropertyName == PropertyName && item.Objectpath == Objectpath)
                return item.AppliedText;
    }
    return QString();
}
