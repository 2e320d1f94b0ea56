#pragma once

#include "FormView.h"

class frmAddUserGroup;

// A group more for a contact: the groups it lacks, and a new one made on the spot.
class AddUserGroupView : public DialogView
{
public:
    explicit AddUserGroupView(frmAddUserGroup& model, QWidget* parent = nullptr);
};
