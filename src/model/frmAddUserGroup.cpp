#include "frmAddUserGroup.h"

#include "VORNAGlobal.h"

frmAddUserGroup::frmAddUserGroup(VORNAGlobal& g)
    : m_g(g)
{ }

void frmAddUserGroup::LoadFormObj(const QString& ContactName)
{
    (void)ContactName;
}
void frmAddUserGroup::mkcmbUserGroups() { }
void frmAddUserGroup::SaveFormObj() { }
void frmAddUserGroup::cmdOK_Click() { }
void frmAddUserGroup::cmdCancel_Click() { }
void frmAddUserGroup::cmdAddGroup_Click() { }
