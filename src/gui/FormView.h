#pragma once

#include <functional>

#include <QDialog>

#include "FormBinder.h"
#include "FormModel.h"
#include "Platform.h"

// A thin Qt view over one form model: it paints the model's state and forwards its widgets'
// events to the model's handlers. QtPlatform makes a form's view when the form is first shown.
class FormView
{
public:
    virtual ~FormView() = default;

    virtual QWidget* widget() = 0;
    // Model to widgets.
    virtual void refresh() = 0;
};

// A view whose widgets are bound to the form's controls: the window takes the form's name
// and caption, and any change the model reports repaints it.
template<class Window> class BoundView : public Window, public FormView
{
public:
    explicit BoundView(FormModel& form, QWidget* parent = nullptr, Qt::WindowFlags flags = {})
        : Window(parent, flags)
        , m_form(form)
        , m_binder([this] { refresh(); })
    {
        this->setObjectName(form.formName());
        m_form.onChanged = [this] { refresh(); };
    }
    ~BoundView() override { m_form.onChanged = nullptr; }

    QWidget* widget() override { return this; }
    void refresh() override
    {
        this->setWindowTitle(m_form.Caption);
        if (m_form.MousePointer == Pointer::Hourglass)
            this->setCursor(Qt::WaitCursor);
        else
            this->unsetCursor();
        m_binder.paint();
    }

protected:
    FormModel& m_form;
    FormBinder m_binder;
};

// A modal form's view. Escape and the window's close box run the form's cancel handler
// (the click of its Cancel button), as a dialog's Cancel does; Enter presses its default button.
class DialogView : public BoundView<QDialog>
{
public:
    explicit DialogView(FormModel& form, QWidget* parent = nullptr);

protected:
    void setCancel(FormBinder::Handler cancel) { m_cancel = std::move(cancel); }
    void reject() override;

private:
    FormBinder::Handler m_cancel;
};
