#pragma once

#include <functional>

#include <QString>

// Base of every form model. A form model holds its controls' state as plain members;
// a view (or a test) reads that state. The view registers onChanged so that the model
// can ask for a repaint in the middle of a long operation.
class FormModel
{
public:
    virtual ~FormModel() = default;

    // The form's name as the form-text table knows it ("frmMain", "frmAbout").
    virtual QString formName() const = 0;

    QString Caption;
    bool Visible = false;

    std::function<void()> onChanged;
    void notifyChanged()
    {
        if (onChanged)
            onChanged();
    }
};
