#pragma once

#include <functional>

#include <QDialog>
#include <QLabel>

class QBoxLayout;
class QFrame;
class QPushButton;

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
        if (Control* focus = m_form.takeFocusRequest())
            if (QWidget* w = this->template findChild<QWidget*>(focus->Name))
                w->setFocus();
    }

protected:
    FormModel& m_form;
    FormBinder m_binder;
};

// A modal form's view. Escape and the window's close box run the form's cancel handler
// (the click of its Cancel button), as a dialog's Cancel does. Enter presses its default
// button from every box, a multi-line one included, where Ctrl+Enter starts a new line.
// The dialog never grows past the screen.
class DialogView : public BoundView<QDialog>
{
public:
    explicit DialogView(FormModel& form, QWidget* parent = nullptr);

protected:
    void setCancel(FormBinder::Handler cancel) { m_cancel = std::move(cancel); }
    // The row of a dialog's OK and Cancel buttons, at its right: OK is the default button that
    // Enter presses, and Escape and the close box click Cancel.
    QBoxLayout* okCancelRow(
        Label& cmdOK, FormBinder::Handler okClick, Label& cmdCancel, FormBinder::Handler cancelClick);
    // A horizontal rule between groups of controls.
    QFrame* rule(Control& line);
    // A caption; its mnemonic gives the focus to buddy, when it has one.
    QLabel* label(Label& control, QWidget* buddy = nullptr);
    // A label that shows a name of any length: what does not fit ends in an ellipsis, the whole
    // name is its tooltip, and a long name never widens the dialog.
    QLabel* nameLabel(Label& control);
    // The widget that has the focus each time the dialog is shown, so that the keys always
    // start from the same place; without one the dialog keeps the focus where it was.
    void setFirstFocus(QWidget* widget) { m_firstFocus = widget; }
    void showEvent(QShowEvent* event) override;
    void reject() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPushButton* defaultButton() const;
    void fitToScreen();

    FormBinder::Handler m_cancel;
    QWidget* m_firstFocus = nullptr;
};
