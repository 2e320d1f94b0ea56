#pragma once

#include "FormView.h"

class frmToolsOptions;

// The options: the link's retries and time-out in a frame on one tab, with a button for the defaults.
class ToolsOptionsView : public DialogView
{
public:
    explicit ToolsOptionsView(frmToolsOptions& model, QWidget* parent = nullptr);
};
