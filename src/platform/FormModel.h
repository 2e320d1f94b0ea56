#pragma once

#include <functional>
#include <span>
#include <utility>
#include <vector>

#include <QString>

#include "Controls.h"

// One entry of a form's form-text table: the control's path ("" for the form itself,
// "cmdOK", "mnuFileMRU(1)", "sbStatusBar.Panels(1)", "SSTab1.txtPorjName") and the property.
struct FormTextPath
{
    const char* path;
    const char* property = "Caption";
};

// The form table in the applied language: a form's captions and preset texts, by the
// control's path and property; "" where the table has no row.
class FormTextTable
{
public:
    virtual ~FormTextTable() = default;
    virtual QString GetFormText(
        const QString& FormName, const QString& Objectpath, const QString& PropertyName) const = 0;
};

// Base of every form model. A form model holds its controls' state as registered members
// and implements its handlers under their own names; a view (or a test) reads that state.
// Forms are shown and hidden through the platform port, which loads a form on its first
// showing and keeps it loaded until it is unloaded. A form given the form table takes its
// captions from it at each load, before its Form_Load; it types a caption only for a
// control that has no row.
class FormModel
{
public:
    FormModel() = default;
    // A form with its entries of the form-text table, in the order they are applied.
    FormModel(const FormTextTable& texts, std::span<const FormTextPath> formTexts)
        : m_texts(&texts)
        , m_formTexts(formTexts)
    { }
    // Its controls point back into it.
    FormModel(const FormModel&) = delete;
    FormModel& operator=(const FormModel&) = delete;
    virtual ~FormModel() = default;

    // The form's name as the form-text table knows it ("frmMain", "frmAbout").
    virtual QString formName() const = 0;
    // The form's entries of the form-text table, in the order they are applied.
    virtual std::span<const FormTextPath> formTexts() const { return m_formTexts; }
    // Runs when the form is loaded (at its first showing, and again after an unload), once
    // its form texts are applied.
    virtual void Form_Load() { }
    // Runs each time the form is shown, once it is visible.
    virtual void Form_Activate() { }

    QString Caption;
    bool Visible = false;
    int MousePointer = 0;

    bool isLoaded() const { return m_loaded; }
    // Loads the form unless it is loaded already.
    void Load();
    void Unload() { m_loaded = false; }
    // Sets each entry of formTexts(), in its order, to the form table's text. The result is
    // not tested: a path without a row leaves its control blank. A path that reaches no
    // control of the form is a fault of the form and an unhandled error.
    void ApplyFormText();

    // The controls in the order they were declared.
    const std::vector<Control*>& controls() const { return m_controls; }
    Control* findControl(const QString& name) const;
    // The text property that a form-text path names, or null when the path reaches no control.
    // A dotted path names a part of a control, or a control placed on a container.
    QString* textProperty(const QString& path, const QString& property);

    // Moves the keyboard focus to a control; the view does so at its next painting.
    void SetFocus(Control& control) { m_focusRequest = &control; }

    // The control that a refusing CheckFormObj names, for OK to send the focus back to.
    Control* FocusControl = nullptr;
    // What OK does in a dialog: the form's check, then its save; when the check refuses, the
    // focus goes back to FocusControl instead. True when the dialog may close.
    bool CheckThenSave(const std::function<void(bool&)>& check, const std::function<void()>& save)
    {
        bool IsValid = false;
        check(IsValid);
        if (!IsValid) {
            if (FocusControl)
                SetFocus(*FocusControl);
            return false;
        }
        save();
        return true;
    }
    // The control that the focus was last sent to, once; null when it was not sent since.
    Control* takeFocusRequest() { return std::exchange(m_focusRequest, nullptr); }

    // The view registers onChanged so that the model can ask for a repaint in the middle of
    // a long operation.
    std::function<void()> onChanged;
    void notifyChanged()
    {
        if (onChanged)
            onChanged();
    }

protected:
    friend struct Control;
    // Controls that are not members of their own (the entries of a menu table) register here;
    // the control must stay where it is for the life of the form.
    void registerControl(Control& control) { m_controls.push_back(&control); }

private:
    const FormTextTable* m_texts = nullptr;
    std::span<const FormTextPath> m_formTexts;
    std::vector<Control*> m_controls;
    bool m_loaded = false;
    Control* m_focusRequest = nullptr;
};
