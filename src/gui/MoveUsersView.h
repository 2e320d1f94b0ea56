#pragma once

#include "FormView.h"

class frmMoveUsers;

// The group to move every member of a group to; a name may be typed.
class MoveUsersView : public DialogView
{
public:
    explicit MoveUsersView(frmMoveUsers& model, QWidget* parent = nullptr);
};
