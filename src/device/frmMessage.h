#pragma once

#include <QString>

#include "FormModel.h"

class VORNAGlobal;

// The busy box of the long device operations: a window without buttons, with a caption and
// one label.
class frmMessage : public FormModel
{
public:
    explicit frmMessage(VORNAGlobal& g)
        : m_g(g)
    { }
    QString formName() const override { return QStringLiteral("frmMessage"); }
    std::span<const FormTextPath> formTexts() const override;

    Label lblMessage {*this, "lblMessage"};

    void Form_Load() override;
    void LoadFormObj(const QString& tmpCaption, const QString& tmpMessage);

private:
    VORNAGlobal& m_g;
};
