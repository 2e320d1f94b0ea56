#pragma once

#include "FormView.h"

class frmAddUser;

// The name and first group of a new contact.
class AddUserView : public DialogView
{
public:
    explicit AddUserView(frmAddUser& model, QWidget* parent = nullptr);
};
