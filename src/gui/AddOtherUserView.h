#pragma once

#include "GroupChoiceView.h"
#include "frmAddOtherUser.h"

// A contact outside the group, to add to it; a name may be typed.
class AddOtherUserView : public GroupChoiceView<frmAddOtherUser>
{
public:
    explicit AddOtherUserView(frmAddOtherUser& model, QWidget* parent = nullptr)
        : GroupChoiceView(model, model.cmbAddUser, parent)
    { }
};
