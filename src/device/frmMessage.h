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
    // Beyond the design, shown during a download only: which record goes, of how many.
    Label lblProgress {*this, "lblProgress"};
    ProgressBar prgProgress {*this, "prgProgress"};

    // The caption and the text; the progress is hidden until a download reports one.
    void LoadFormObj(const QString& tmpCaption, const QString& tmpMessage);
};
