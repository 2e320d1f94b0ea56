#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include <QDateTime>
#include <QString>
#include <QVariant>

#include "SerialLine.h"

class FormModel;

// Message box flags: one button set plus one icon.
namespace MsgBox {
inline constexpr int OKOnly = 0;
inline constexpr int OKCancel = 1;
inline constexpr int AbortRetryIgnore = 2;
inline constexpr int YesNoCancel = 3;
inline constexpr int YesNo = 4;
inline constexpr int RetryCancel = 5;
inline constexpr int Critical = 16;
inline constexpr int Question = 32;
inline constexpr int Exclamation = 48;
inline constexpr int Information = 64;

inline constexpr int ButtonMask = 0x0f;
inline constexpr int IconMask = 0xf0;

// The answers: the value of the button pressed.
inline constexpr int OK = 1;
inline constexpr int Cancel = 2;
inline constexpr int Abort = 3;
inline constexpr int Retry = 4;
inline constexpr int Ignore = 5;
inline constexpr int Yes = 6;
inline constexpr int No = 7;

// The answers of the box's buttons, in the order the box shows them; an unknown set is OK alone.
std::span<const int> Buttons(int flags);
// Whether the box has a button that gives this answer.
bool HasButton(int flags, int answer);
} // namespace MsgBox

// Mouse pointer values of the main window.
namespace Pointer {
inline constexpr int Default = 0;
inline constexpr int Hourglass = 11;
} // namespace Pointer

// What is set on the shared common dialog before it is shown.
struct FileDialogOptions
{
    QString DialogTitle;
    QString InitDir;
    QString FileName;
    QString Filter; // "caption|pattern|caption|pattern"
    int FilterIndex = 1;
    int Flags = 4;
    bool operator==(const FileDialogOptions&) const = default;
};

// The one interface from the logic to the outside world: boxes, dialogs,
// windows, pointer, event loop, clock, per-user settings, the system locale and the serial line.
// The Qt shell, the console shell and the tests each implement it.
class Platform
{
public:
    virtual ~Platform() = default;

    // Shows a modal message box; returns the button pressed (MsgBox::OK, Yes, ...).
    virtual int msgBox(const QString& text, int flags, const QString& title) = 0;

    // The common dialog: the chosen path, or nothing when the user cancelled.
    virtual std::optional<QString> showOpen(const FileDialogOptions& options) = 0;
    virtual std::optional<QString> showSave(const FileDialogOptions& options) = 0;

    // Windows. Every shell shows and hides a form by these same steps: a form is loaded
    // (Form_Load) at its first showing and again after an unload; showModal returns when the
    // form has hidden itself.
    void showModal(FormModel& form);
    void showModeless(FormModel& form);
    void hideForm(FormModel& form);
    // Hides the form and unloads it, so that its next showing loads it again.
    void unloadForm(FormModel& form);
    // Paints the form at once, without waiting for the event loop.
    virtual void refreshForm(FormModel& form) = 0;

    virtual void setMousePointer(int pointer) = 0;

    // Lets pending window events run and returns at once (DoEvents).
    virtual void doEvents() = 0;
    // Lets window events run, waiting at most msecs for one when none is pending: the yield
    // of a loop that waits on a flag or the clock, which would otherwise keep a core busy.
    virtual void waitEvents(int msecs);
    // Waits at most msecs for bytes on the line, window events running meanwhile, and returns
    // as soon as some wait or the line is gone; true if bytes wait.
    virtual bool waitForBytes(SerialLine& line, int msecs);

    virtual QDateTime now() = 0;

    // The per-user settings store, keyed by application, section and key.
    virtual QString getSetting(
        const QString& appName, const QString& section, const QString& key, const QString& defaultValue)
        = 0;
    virtual void saveSetting(
        const QString& appName, const QString& section, const QString& key, const QString& value)
        = 0;

    // The system's locale name, such as "zh_TW" or "en_US".
    virtual QString systemLocaleName() = 0;

    // A new serial line, closed.
    virtual std::unique_ptr<SerialLine> createSerialLine() = 0;
    // The serial ports that the system has now, in its order.
    virtual std::vector<SerialPortInfo> availablePorts() = 0;
    // Whether a device (or a link to one) is there at path, as a pseudo-terminal is, which
    // the system does not count among its serial ports.
    virtual bool deviceExists(const QString& path) = 0;

    // Ends the process with the given status. Open windows are simply dropped.
    [[noreturn]] virtual void endProcess(int status) = 0;

protected:
    // The shell's part of showing and hiding: runModal returns when the form is hidden.
    virtual void runModal(FormModel& form) = 0;
    virtual void showWindow(FormModel& form) = 0;
    virtual void hideWindow(FormModel& form) = 0;
};
