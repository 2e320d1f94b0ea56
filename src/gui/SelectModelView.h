#pragma once

#include "FormView.h"

class frmSelectModel;

// The choice of a device model from a drop-down list.
class SelectModelView : public DialogView
{
public:
    explicit SelectModelView(frmSelectModel& model, QWidget* parent = nullptr);
};
