#pragma once

#include "FormView.h"

class frmAddOtherUser;

// A contact outside the group, to add to it; a name may be typed.
class AddOtherUserView : public DialogView
{
public:
    explicit AddOtherUserView(frmAddOtherUser& model, QWidget* parent = nullptr);
};
