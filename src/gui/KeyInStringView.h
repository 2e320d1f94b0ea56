#pragma once

#include "FormView.h"

class frmKeyInString;

// The one-line input box.
class KeyInStringView : public DialogView
{
public:
    explicit KeyInStringView(frmKeyInString& model, QWidget* parent = nullptr);
};
