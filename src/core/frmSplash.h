#pragma once

#include "FormModel.h"

class VORNAGlobal;

// The splash window shown during start-up. Any click on it ends the wait.
class frmSplash : public FormModel
{
public:
    explicit frmSplash(VORNAGlobal& g)
        : m_g(g)
    { }
    QString formName() const override { return QStringLiteral("frmSplash"); }

    void Form_Load();
    void ApplyFormText();
    // A click on the frame, the image or any label: sets the click flag and hides the window.
    void Control_Click();
    bool clicked() const { return m_clicked; }

    QString Label1 = QStringLiteral("適用機型: ");
    QString Label2 = QStringLiteral("VORNA-RM64MT");
    QString Label3 = QStringLiteral("Contignration Utility");
    QString lblProductName = QStringLiteral("簡訊報警機   設定工具");
    QString lblCompanyProduct = QStringLiteral("2G/3G Quillbeacon");
    QString lblVersion = QStringLiteral("版本");

private:
    VORNAGlobal& m_g;
    bool m_clicked = false;
};
