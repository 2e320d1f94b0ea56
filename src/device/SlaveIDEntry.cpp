#include "SlaveIDEntry.h"

#include "Controls.h"
#include "VBUtil.h"

void SlaveIDKeyPress(int& KeyAscii)
{
    // Backspace is dropped with the rest: a digit too many is corrected by typing over it.
    if (KeyAscii < '0' || KeyAscii > '9')
        KeyAscii = 0;
}

void SlaveIDChange(TextBox& txtSlaveID)
{
    const double value = Val(txtSlaveID.Text);
    if (value < 1)
        txtSlaveID.Text = QStringLiteral("1");
    else if (value > 255)
        txtSlaveID.Text = QStringLiteral("255");
}
