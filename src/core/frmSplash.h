#pragma once

#include "FormModel.h"

class VORNAGlobal;

// The splash window shown during start-up. A click on the frame, the image or a label other
// than Label3 ends the wait; nothing else in the window reacts.
class frmSplash : public FormModel
{
public:
    explicit frmSplash(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmSplash"); }

    void Form_Load() override;
    void fraMainFrame_Click() { Control_Click(); }
    void Image1_Click() { Control_Click(); }
    void Label1_Click() { Control_Click(); }
    void Label2_Click() { Control_Click(); }
    void lblCompanyProduct_Click() { Control_Click(); }
    void lblProductName_Click() { Control_Click(); }
    void lblVersion_Click() { Control_Click(); }
    bool clicked() const { return m_clicked; }

    Control fraMainFrame {*this, "fraMainFrame"};
    Control Image1 {*this, "Image1"};
    Label Label1 {*this, "Label1"};
    Label Label2 {*this, "Label2"};
    Label Label3 {*this, "Label3"};
    Label lblProductName {*this, "lblProductName"};
    Label lblCompanyProduct {*this, "lblCompanyProduct"};
    Label lblVersion {*this, "lblVersion"};

private:
    // Sets the click flag and hides the window.
    void Control_Click();

    VORNAGlobal& m_g;
    bool m_clicked = false;
};
