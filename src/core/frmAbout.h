#pragma once

#include <functional>

#include "FormModel.h"

class VORNAGlobal;

// The about box. A left press on the icon with Shift and Alt held opens the service window.
class frmAbout : public FormModel
{
public:
    explicit frmAbout(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmAbout"); }

    // Opens the register service window; handed over by the entry point.
    std::function<void()> openServiceWindow;

    void Form_Load() override;
    void cmdOK_Click();
    // Button and Shift as the platform reports them: 1 left; Shift 1, Ctrl 2, Alt 4.
    void picIcon_MouseDown(int Button, int Shift);

    Control picIcon {*this, "picIcon"};
    CommandButton cmdOK {*this, "cmdOK"};
    Label Label1 {*this, "Label1"};
    Label lblTitle {*this, "lblTitle"};
    Label lblVersion {*this, "lblVersion"};

private:
    VORNAGlobal& m_g;
};
