#include "frmMoveUsers.h"

#include <algorithm>

#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAUtil.h"

namespace {

const ModuleText T {"MoveUsers"};

const FormTextPath kFormTexts[]
    = {{""}, {"cmdOK"}, {"cmdCancel"}, {"cmbMoveGroup", "Text"}, {"Label1"}, {"lblGroupName"}};

// The entries of a group list; an empty list has none.
QStringList Entries(const QString& list)
{
    return list.isEmpty() ? QStringList() : list.split(CRLF);
}

} // namespace

frmMoveUsers::frmMoveUsers(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{ }

void frmMoveUsers::LoadFormObj(const QString& GroupName)
{
    Load();
    CurrentGroupName = GroupName;
    lblGroupName.Caption = T(m_g, "目前群組名稱:", 1, 69) + GroupName;
    mkcmbMoveGroups();
}

void frmMoveUsers::mkcmbMoveGroups()
{
    Recordset& groups = m_g.project.rsUserGroups;
    cmbMoveGroup.Clear();
    if (groups.RecordCount() > 0) {
        Recordset clone = groups.Clone();
        for (clone.MoveFirst(); !clone.IsEOF(); clone.MoveNext()) {
            const QString name = FieldText(clone, "GroupName");
            if (name.toUpper() != CurrentGroupName.toUpper())
                cmbMoveGroup.AddItem(ComboRowText(name, FieldText(clone, "GroupDsc")));
        }
        clone.Close();
    }
    cmbMoveGroup.OfferRowsOr(T(m_g, "無其它群組", 1, 150));
}

void frmMoveUsers::cmdOK_Click()
{
    if (cmbMoveGroup.Text != T(m_g, "無其它群組", 1, 158))
        SaveFormObj();
    m_g.platform.hideForm(*this);
}

void frmMoveUsers::cmdCancel_Click()
{
    m_g.platform.hideForm(*this);
}

// Every member at once: each entry of the group becomes the target, or goes when the contact
// is in the target already. Zones keep the old group, which stays, empty. A typed target that
// no group bears is written all the same, and the missing node then fails unguarded.
void frmMoveUsers::SaveFormObj()
{
    ProjectState& p = m_g.project;
    ProjectView& view = m_g.view();
    const QString target = ComboRowName(cmbMoveGroup.Text);
    const QString from = CurrentGroupName.toUpper();
    const QString to = target.toUpper();
    if (p.rsUsers.RecordCount() > 0) {
        for (p.rsUsers.MoveFirst(); !p.rsUsers.IsEOF(); p.rsUsers.MoveNext()) {
            const QStringList entries = Entries(FieldText(p.rsUsers, "GroupName"));
            const bool hasTarget = std::any_of(
                entries.begin(), entries.end(), [&](const QString& e) { return e.toUpper() == to; });
            QString list;
            for (const QString& entry : entries) {
                if (entry.toUpper() != from)
                    list += entry + CRLF;
                else if (!hasTarget)
                    list += target + CRLF;
            }
            if (!list.isEmpty()) {
                list.chop(2);
                p.rsUsers.setField(QStringLiteral("GroupName"), list);
                p.rsUsers.Update();
            }
        }
    }
    LocateRecord(view, QStringLiteral("UserGroups"), target);
    view.selectNode(FindNodeByTag(view, QStringLiteral("UserGroups,") + target));
    view.refreshTree();
    view.mklvNodeContent();
    p.IsProjectModified = true;
}
