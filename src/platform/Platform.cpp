#include "Platform.h"

#include "FormModel.h"

void Platform::showModal(FormModel& form)
{
    form.Load();
    form.Visible = true;
    runModal(form);
    form.Visible = false;
}

void Platform::showModeless(FormModel& form)
{
    form.Load();
    form.Visible = true;
    showWindow(form);
}

void Platform::hideForm(FormModel& form)
{
    form.Visible = false;
    hideWindow(form);
}

void Platform::unloadForm(FormModel& form)
{
    hideForm(form);
    form.Unload();
}
