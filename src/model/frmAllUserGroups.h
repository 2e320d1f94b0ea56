#pragma once

#include <array>

#include "FormModel.h"

struct TextKey;
class VORNAGlobal;
class frmEditTelList;

// Picks a group for the contact open in the contact editor, whose unsaved list it reads:
// the groups the contact has already are grey and refused with a box.
class frmAllUserGroups : public FormModel
{
public:
    explicit frmAllUserGroups(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmAllUserGroups"); }

    void LoadFormObj();
    void mklvUserGroupsContent();
    void CheckFromObj(bool& IsValid);
    void SaveFormObj();

    void cmbOK_Click();
    void cmbCancel_Click();
    void cmdAddGroup_Click();
    void lvUserGroups_Click();
    void lvUserGroups_DblClick();

    Label lblCaption {*this, "lblCaption"};
    ListView lvUserGroups {*this, "lvUserGroups"};
    CommandButton cmdAddGroup {*this, "cmdAddGroup"};
    CommandButton cmbOK {*this, "cmbOK"};
    CommandButton cmbCancel {*this, "cmbCancel"};

    // The answer: empty after Cancel.
    QString SelectedGroupName;
    QString SelectedGroupDsc;

private:
    // The contact editor that opened the picker.
    const frmEditTelList& contact() const;
    // Whether the group is in the contact's list as the editor shows it (case-insensitive).
    bool contactHas(const QString& GroupName) const;
    void showDuplicateBox(const std::array<TextKey, 3>& keys);

    VORNAGlobal& m_g;
};
