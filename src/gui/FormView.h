#pragma once

class QWidget;

// A thin Qt view over one form model: it paints the model's state and forwards its
// widgets' events to the model's handlers. QtPlatform finds views by form name.
class FormView
{
public:
    virtual ~FormView() = default;

    virtual QWidget* widget() = 0;
    // Model to widgets.
    virtual void refresh() = 0;
    // The form's load, run each time it is shown modally (the form is unloaded on close).
    virtual void load() { }
};
