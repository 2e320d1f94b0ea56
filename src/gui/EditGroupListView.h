#pragma once

#include "FormView.h"

class frmEditGroupList;

// The editor of a contact group.
class EditGroupListView : public DialogView
{
public:
    explicit EditGroupListView(frmEditGroupList& model, QWidget* parent = nullptr);
};
