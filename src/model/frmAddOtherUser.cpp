#include "frmAddOtherUser.h"

#include "VORNAGlobal.h"

frmAddOtherUser::frmAddOtherUser(VORNAGlobal& g)
    : m_g(g)
{ }

void frmAddOtherUser::LoadFormObj(const QString& GroupName)
{
    (void)GroupName;
}
void frmAddOtherUser::mkcmbAddUser() { }
void frmAddOtherUser::SaveFormObj() { }
void frmAddOtherUser::cmdOK_Click() { }
void frmAddOtherUser::cmdCancel_Click() { }
