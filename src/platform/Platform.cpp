#include "Platform.h"

#include <algorithm>
#include <array>

#include "FormModel.h"

std::span<const int> MsgBox::Buttons(int flags)
{
    static constexpr std::array okOnly {OK};
    static constexpr std::array okCancel {OK, Cancel};
    static constexpr std::array abortRetryIgnore {Abort, Retry, Ignore};
    static constexpr std::array yesNoCancel {Yes, No, Cancel};
    static constexpr std::array yesNo {Yes, No};
    static constexpr std::array retryCancel {Retry, Cancel};
    switch (flags & ButtonMask) {
    case OKCancel:
        return okCancel;
    case AbortRetryIgnore:
        return abortRetryIgnore;
    case YesNoCancel:
        return yesNoCancel;
    case YesNo:
        return yesNo;
    case RetryCancel:
        return retryCancel;
    default:
        return okOnly;
    }
}

bool MsgBox::HasButton(int flags, int answer)
{
    const std::span<const int> buttons = Buttons(flags);
    return std::find(buttons.begin(), buttons.end(), answer) != buttons.end();
}

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
