#pragma once

#include <QDialog>

#include "FormView.h"

class frmMessage;

// The busy box: a caption and one line of text, no buttons, shown while the device works.
class MessageView : public BoundView<QDialog>
{
public:
    explicit MessageView(frmMessage& model, QWidget* parent = nullptr);

protected:
    // The box has no way to be closed by the user: the operation that showed it hides it.
    void reject() override { }
};
