#include "frmAddOtherUser.h"

#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAUtil.h"

namespace {

const ModuleText T {"AddOtherUser"};

const FormTextPath kFormTexts[]
    = {{""}, {"cmbAddUser", "Text"}, {"cmdCancel"}, {"cmdOK"}, {"Label1"}, {"lblGroupName"}};

} // namespace

frmAddOtherUser::frmAddOtherUser(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{ }

void frmAddOtherUser::LoadFormObj(const QString& GroupName)
{
    Load();
    CurrentGroupName = GroupName;
    lblGroupName.Caption = T(m_g, "目前群組名稱:", 1, 69) + GroupName;
    mkcmbAddUser();
}

// The contacts outside the group, whatever the case of their entries.
void frmAddOtherUser::mkcmbAddUser()
{
    ProjectState& p = m_g.project;
    const QString group = CurrentGroupName.toUpper();
    cmbAddUser.Clear();
    if (p.rsUsers.RecordCount() > 0) {
        Recordset clone = p.rsUsers.Clone();
        for (clone.MoveFirst(); !clone.IsEOF(); clone.MoveNext()) {
            const QString list = FieldText(clone, "GroupName").toUpper();
            if (list == group || list.split(CRLF).contains(group))
                continue;
            cmbAddUser.AddItem(ComboRowText(FieldText(clone, "UserName"), FieldText(clone, "UserDsc")));
        }
        clone.Close();
    }
    cmbAddUser.OfferRowsOr(T(m_g, "無其它連絡人", 1, 152));
}

void frmAddOtherUser::cmdOK_Click()
{
    if (cmbAddUser.Text != T(m_g, "無其它連絡人", 1, 160))
        SaveFormObj();
    m_g.platform.hideForm(*this);
}

void frmAddOtherUser::cmdCancel_Click()
{
    m_g.platform.hideForm(*this);
}

// The field is written without Update: the row reaches the file when rsUsers next moves, as
// the window's list does when it fills for the group. A typed name that fits no contact leaves
// rsUsers at end of file, and reading its row there is an unhandled error.
void frmAddOtherUser::SaveFormObj()
{
    ProjectState& p = m_g.project;
    const QString name = ComboRowName(cmbAddUser.Text);
    LocateRecord(m_g.view(), QStringLiteral("Users"), name);
    if (p.rsUsers.RecordCount() > 0 && FieldText(p.rsUsers, "UserName").toUpper() == name.toUpper()) {
        const QString old = FieldText(p.rsUsers, "GroupName");
        p.rsUsers.setField(
            QStringLiteral("GroupName"), old.isEmpty() ? CurrentGroupName : old + CRLF + CurrentGroupName);
    }
    LocateRecord(m_g.view(), QStringLiteral("UserGroups"), CurrentGroupName);
    m_g.view().mklvNodeContent();
    p.IsProjectModified = true;
}
