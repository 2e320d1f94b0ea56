#include "frmMoveUsers.h"

#include "VORNAGlobal.h"

frmMoveUsers::frmMoveUsers(VORNAGlobal& g)
    : m_g(g)
{ }

void frmMoveUsers::LoadFormObj(const QString& GroupName)
{
    (void)GroupName;
}
void frmMoveUsers::mkcmbMoveGroups() { }
void frmMoveUsers::SaveFormObj() { }
void frmMoveUsers::cmdOK_Click() { }
void frmMoveUsers::cmdCancel_Click() { }
