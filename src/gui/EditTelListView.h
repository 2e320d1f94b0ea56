#pragma once

#include "FormView.h"

class frmEditTelList;

// The contact editor.
class EditTelListView : public DialogView
{
public:
    explicit EditTelListView(frmEditTelList& model, QWidget* parent = nullptr);
};
