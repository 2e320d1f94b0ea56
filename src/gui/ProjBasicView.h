#pragma once

#include "FormView.h"

class frmProjBasic;

// The project summary: the dates, the author, the description and the Unicode switch on one tab.
class ProjBasicView : public DialogView
{
public:
    explicit ProjBasicView(frmProjBasic& model, QWidget* parent = nullptr);
};
