#pragma once

#include "FormView.h"

class frmAllUserGroups;

// The group picker of the contact editor.
class AllUserGroupsView : public DialogView
{
public:
    explicit AllUserGroupsView(frmAllUserGroups& model, QWidget* parent = nullptr);
};
