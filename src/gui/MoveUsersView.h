#pragma once

#include "GroupChoiceView.h"
#include "frmMoveUsers.h"

// The group to move every member of a group to; a name may be typed.
class MoveUsersView : public GroupChoiceView<frmMoveUsers>
{
public:
    explicit MoveUsersView(frmMoveUsers& model, QWidget* parent = nullptr)
        : GroupChoiceView(model, model.cmbMoveGroup, parent)
    { }
};
