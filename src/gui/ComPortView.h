#pragma once

#include "FormView.h"

class frmComPort;

// The port dialog: the port number, and the list of ports with what is plugged in there.
class ComPortView : public DialogView
{
public:
    explicit ComPortView(frmComPort& model, QWidget* parent = nullptr);
};
