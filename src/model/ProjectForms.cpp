#include "ProjectForms.h"

#include "VORNAGlobal.h"

ProjectForms::ProjectForms(VORNAGlobal& g)
    : keyInString(g)
    , editGroupList(g)
    , editZoneList(g)
    , editTelList(g, allUserGroups)
    , allUserGroups(g, editTelList)
    , addUser(g)
    , m_g(g)
{ }

QString ProjectForms::showKeyInString(
    const QString& Caption, const QString& Prompt, const QString& Default, const QString& PasswordChar)
{
    keyInString.LoadFormObj(Caption, Prompt, Default, PasswordChar);
    m_g.platform.showModal(keyInString);
    return keyInString.result;
}

ProjectDialogs::NewUser ProjectForms::showAddUser(const QString& ProposedName)
{
    addUser.LoadFormObj(ProposedName);
    m_g.platform.showModal(addUser);
    return {addUser.NewUserName, addUser.NewUserGroup};
}

void ProjectForms::showEditGroupList(bool IsNewGroup)
{
    editGroupList.LoadFormObj(IsNewGroup);
    m_g.platform.showModal(editGroupList);
}

void ProjectForms::showEditTelList()
{
    editTelList.LoadFormObj();
    m_g.platform.showModal(editTelList);
}

void ProjectForms::showEditZoneList()
{
    editZoneList.LoadFormObj();
    m_g.platform.showModal(editZoneList);
}

std::vector<FormModel*> ProjectForms::forms()
{
    return {&keyInString, &editGroupList, &editZoneList, &editTelList, &allUserGroups, &addUser};
}
