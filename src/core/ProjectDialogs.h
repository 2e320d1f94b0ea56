#pragma once

#include <QString>

// The editor and input dialogs that the project operations and the main window open.
// Each call loads the form from the shared recordsets, shows it modally and returns
// when it is hidden. Declared here so that the operations and the window reach the
// dialogs without linking them; the entry point wires the real ones, tests script them.
class ProjectDialogs
{
public:
    virtual ~ProjectDialogs() = default;

    // frmKeyInString: the text as the user left it in the box, or "連絡人按下取消鍵" on
    // Cancel. The blanks around it are KeyInString's to remove.
    virtual QString showKeyInString(
        const QString& Caption, const QString& Prompt, const QString& Default, const QString& PasswordChar)
        = 0;

    // frmAddUser: the name and group list chosen; an empty name on Cancel.
    struct NewUser
    {
        QString NewUserName;
        QString NewUserGroup;
    };
    virtual NewUser showAddUser(const QString& ProposedName) = 0;

    // The editors of the current row of rsUserGroups, rsUsers and rsZones.
    virtual void showEditGroupList(bool IsNewGroup) = 0;
    virtual void showEditTelList() = 0;
    virtual void showEditZoneList() = 0;
};

// The dialogs of a program that has none (vorna-cli, or before they are wired): every
// question is cancelled and every editor closes at once.
class NullProjectDialogs final : public ProjectDialogs
{
public:
    static NullProjectDialogs& instance()
    {
        static NullProjectDialogs dialogs;
        return dialogs;
    }
    QString showKeyInString(const QString&, const QString&, const QString&, const QString&) override
    {
        return QStringLiteral("連絡人按下取消鍵");
    }
    NewUser showAddUser(const QString&) override { return {}; }
    void showEditGroupList(bool) override { }
    void showEditTelList() override { }
    void showEditZoneList() override { }
};
