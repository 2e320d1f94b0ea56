#pragma once

#include <vector>

#include "ProjectDialogs.h"
#include "frmAddUser.h"
#include "frmAllUserGroups.h"
#include "frmEditGroupList.h"
#include "frmEditTelList.h"
#include "frmEditZoneList.h"
#include "frmKeyInString.h"

class VORNAGlobal;

// The editor, input and membership dialogs of a project, one instance of each form: each is
// loaded from the shared recordsets, shown modally through the platform, and read once it is hidden.
class ProjectForms : public ProjectDialogs
{
public:
    explicit ProjectForms(VORNAGlobal& g);

    QString showKeyInString(const QString& Caption, const QString& Prompt, const QString& Default,
        const QString& PasswordChar) override;
    NewUser showAddUser(const QString& ProposedName) override;
    void showEditGroupList(bool IsNewGroup) override;
    void showEditTelList() override;
    void showEditZoneList() override;

    // Every form of these dialogs.
    std::vector<FormModel*> forms();

    frmKeyInString keyInString;
    frmEditGroupList editGroupList;
    frmEditZoneList editZoneList;
    frmEditTelList editTelList;
    frmAllUserGroups allUserGroups;
    frmAddUser addUser;

private:
    VORNAGlobal& m_g;
};
