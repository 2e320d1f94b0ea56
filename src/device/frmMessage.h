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

    QString lblMessage;
    int MousePointer = 0;
    bool IsLoaded = false;

    void Form_Load();
    void ApplyFormText();
    void LoadFormObj(const QString& tmpCaption, const QString& tmpMessage);

private:
    VORNAGlobal& m_g;
};
