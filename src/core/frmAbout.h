#pragma once

#include <functional>

#include "FormModel.h"

class VORNAGlobal;

// The about box. A left press on the icon with Shift and Alt held opens the service window.
class frmAbout : public FormModel
{
public:
    explicit frmAbout(VORNAGlobal& g)
        : m_g(g)
    {
        Caption = QStringLiteral("關於 GSM Pellamatic");
    }
    QString formName() const override { return QStringLiteral("frmAbout"); }

    // Opens the register service window; handed over by the entry point.
    std::function<void()> openServiceWindow;

    void Form_Load();
    void ApplyFormText();
    void cmdOK_Click();
    // Button and Shift as the platform reports them: 1 left; Shift 1, Ctrl 2, Alt 4.
    void picIcon_MouseDown(int Button, int Shift);

    QString cmdOK = QStringLiteral("確定");
    QString Label1 = QStringLiteral("簡訊報警機 ");
    QString lblTitle = QStringLiteral("2G/3G Quillbeacon");
    QString lblVersion = QStringLiteral("版本:");

private:
    VORNAGlobal& m_g;
};
