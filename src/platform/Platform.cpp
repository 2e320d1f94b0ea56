#include "Platform.h"

#include "FormModel.h"

void Platform::showModal(FormModel& form)
{
    form.Load();
    form.Visible = true;
    form.Form_Activate();
    runModal(form);
    form.Visible = false;
}

void Platform::showModeless(FormModel& form)
{
    form.Load();
    form.Visible = true;
    form.Form_Activate();
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

void Platform::waitEvents(int)
{
    doEvents();
}

bool Platform::waitForBytes(SerialLine& line, int msecs)
{
    const bool waiting = line.waitForBytes(msecs);
    doEvents();
    return waiting;
}
