#include "frmEditZoneList.h"

#include "MultiByte.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAUtil.h"

namespace {

const ModuleText T {"EditZoneList"};
const QString All = QStringLiteral("ALL");
const QString None = QStringLiteral("NONE");

const FormTextPath kFormTexts[] = {{""}, {"txtAlarmSMS", "Text"}, {"txtZoneDsc", "Text"},
    {"txtResetSMS", "Text"}, {"chkIsDisable"}, {"txtZoneName", "Text"}, {"cmdCancel"}, {"cmdOK"},
    {"lblZoneNo"}, {"Label5"}, {"Label4"}, {"Label6"}, {"Label3"}, {"Label2"}, {"Label1"}};

} // namespace

frmEditZoneList::frmEditZoneList(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{
    txtZoneName.MaxLength = 40;
    txtZoneDsc.MultiLine = true;
    for (TextBox* message : {&txtAlarmSMS, &txtResetSMS}) {
        message->MultiLine = true;
        message->MaxLength = 140;
    }
}

bool frmEditZoneList::IsUnicode() const
{
    return FieldFlag(m_g.project.rsBasic, "IsUnicode");
}

frmEditZoneList::MessageSize frmEditZoneList::MessageSizeOf(const QString& message) const
{
    if (IsUnicode())
        return {static_cast<int>(message.size()), 70};
    return {static_cast<int>(ToMultiByte(m_g, message).size()), 160};
}

void frmEditZoneList::LoadFormObj()
{
    Load();
    FocusControl = nullptr;
    const Recordset& rs = m_g.project.rsZones;
    lblZoneNo.Caption = FieldText(rs, "ZoneNo");
    txtZoneName.Text = FieldText(rs, "ZoneName");
    txtZoneDsc.Text = FieldText(rs, "ZoneDsc");
    txtAlarmSMS.Text = FieldText(rs, "AlarmSMS");
    txtResetSMS.Text = FieldText(rs, "ResetSMS");
    chkIsDisable.Value = FieldFlag(rs, "IsDisable") ? CheckBox::Checked : CheckBox::Unchecked;
    mkcmbGroupName();
    OldGroupText = cmbGroupName.Text;
    OldZoneName = txtZoneName.Text;
}

// "NONE" is the only row of a project without groups. With groups there is no empty
// choice: a zone without a target shows the first group, which OK then stores.
void frmEditZoneList::mkcmbGroupName()
{
    cmbGroupName.Clear();
    cmbGroupName.AddItem(None);
    Recordset& groups = m_g.project.rsUserGroups;
    if (groups.RecordCount() > 0) {
        cmbGroupName.Clear();
        Recordset clone = groups.Clone();
        for (clone.MoveFirst(); !clone.IsEOF(); clone.MoveNext()) {
            const QString name = FieldText(clone, "GroupName");
            if (!name.isEmpty())
                cmbGroupName.AddItem(name);
        }
        clone.Close();
        cmbGroupName.AddItem(T(m_g, "所有連絡人群組", 1, 208));
    }

    const QString target = FieldText(m_g.project.rsZones, "GroupName");
    if (target.isEmpty())
        cmbGroupName.SelectRow(0);
    else
        cmbGroupName.SelectText(target == All ? T(m_g, "所有連絡人群組", 1, 315) : target);
}

// The alarm message is checked first; the reset message only once the alarm message fits.
void frmEditZoneList::CheckFormObj(bool& IsValid)
{
    const auto refused = [this](TextBox& message, const QString& text, const QString& title) {
        if (MessageSizeOf(message.Text).fits())
            return false;
        m_g.platform.msgBox(text, MsgBox::Critical, title);
        FocusControl = &message;
        return true;
    };
    const bool unicode = IsUnicode();
    IsValid = false;
    // The two messages' boxes share their titles between the two measures.
    if (refused(txtAlarmSMS,
            unicode ? T(m_g, "警報發起訊息長度不得超過70個字!", 1, 255)
                    : T(m_g, "警報發起訊息長度不得超過160個位元組!", 1, 268),
            T(m_g, "警報發起訊息長度超過限制", 2, 255)))
        return;
    if (refused(txtResetSMS,
            unicode ? T(m_g, "警報復歸訊息長度不得超過70個字!", 1, 261)
                    : T(m_g, "警報復歸訊息長度不得超過160個位元組!", 1, 274),
            T(m_g, "警報復歸訊息長度超過限制", 2, 274)))
        return;
    IsValid = true;
}

void frmEditZoneList::SaveFormObj()
{
    ProjectState& p = m_g.project;
    ProjectView& view = m_g.view();
    Recordset& rs = p.rsZones;
    const QString zoneNo = lblZoneNo.Caption;
    rs.setField(QStringLiteral("ZoneNo"), zoneNo.toInt());
    rs.setField(QStringLiteral("ZoneName"), txtZoneName.Text);
    rs.setField(QStringLiteral("ZoneDsc"), txtZoneDsc.Text);
    // By the text shown: a group named like the every-group row is stored as "ALL" too.
    if (cmbGroupName.Text == T(m_g, "所有連絡人群組", 1, 325))
        rs.setField(QStringLiteral("GroupName"), All);
    else if (cmbGroupName.Text != None)
        rs.setField(QStringLiteral("GroupName"), cmbGroupName.Text);
    rs.setField(QStringLiteral("AlarmSMS"), txtAlarmSMS.Text);
    rs.setField(QStringLiteral("ResetSMS"), txtResetSMS.Text);
    const bool disabled = chkIsDisable.Value == CheckBox::Checked;
    rs.setField(QStringLiteral("IsDisable"), disabled);
    rs.Update();

    const QString tag = QStringLiteral("Zones,") + zoneNo;
    const int node = FindNodeByTag(view, tag);
    if (txtZoneName.Text != OldZoneName) {
        view.setNodeText(node, QStringLiteral("#") + zoneNo + QStringLiteral("-") + txtZoneName.Text);
        view.setNodeTag(node, tag);
        view.selectNode(node);
    }
    view.setNodeForeColor(node, disabled ? SystemColor::GrayText : 0);

    view.mklvNodeContent();
    p.IsProjectModified = true;
}

void frmEditZoneList::cmdOK_Click()
{
    if (CheckThenSave([this](bool& IsValid) { CheckFormObj(IsValid); }, [this] { SaveFormObj(); }))
        m_g.platform.hideForm(*this);
}

void frmEditZoneList::cmdCancel_Click()
{
    m_g.platform.hideForm(*this);
}
