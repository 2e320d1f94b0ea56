#pragma once

#include "FormView.h"

class frmAbout;

// The about box.
class AboutView : public DialogView
{
public:
    explicit AboutView(frmAbout& model, QWidget* parent = nullptr);
};
