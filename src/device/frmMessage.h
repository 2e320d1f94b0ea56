#pragma once

#include <QString>

#include "FormModel.h"

class VORNAGlobal;

// The busy box of the long device operations: a window without buttons, with a caption and
// one label.
class frmMessage : public FormModel
{
public:
    explicit frmMessage(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmMessage"); }

    Label lblMessage {*this, "lblMessage"};

    void LoadFormObj(const QString& tmpCaption, const QString& tmpMessage);
};
