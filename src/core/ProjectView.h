#pragma once

#include <optional>

#include <QString>

// What the project operations need of the main window. The window's model implements
// it; tests use a recording fake. Declared here so that the operations never reach up
// into the window's library.
class ProjectView
{
public:
    virtual ~ProjectView() = default;

    // Brings the window into line with the open project (caption, tree, list, panels).
    virtual void RefreshFormObj() = 0;
    // Sets the four recent-file entries from the shared list.
    virtual void mkRecentFilePathMenu() = 0;
    // Text of a status bar panel, by key ("Status", "ProjName", "ConnectStatus").
    virtual void setStatusText(const QString& panelKey, const QString& text) = 0;
    // The main window's mouse pointer (Pointer::Default, Pointer::Hourglass).
    virtual void setMousePointer(int pointer) = 0;

    // Where the window stands, in twips, for the settings store at exit.
    struct WindowPlacement
    {
        double Left = 0;
        double Top = 0;
        double Width = 0;
        double Height = 0;
        int WindowState = 0; // 0 normal, 1 minimised, 2 maximised
        int View = 0;        // the content list's view mode
    };
    // Nothing when there is no window whose place is worth keeping.
    virtual std::optional<WindowPlacement> windowPlacement() const = 0;

    // The pause between two attempts of a device command: startSleep sets the window's
    // delay flag and starts its sleep timer, whose event clears the flag. A view without
    // the timer has no pause.
    virtual void startSleep() { }
    virtual bool isInDelay() const { return false; }
};

// The view of a program without a window (vorna-cli) and of a program whose window is not
// made yet: every call does nothing.
class NullProjectView final : public ProjectView
{
public:
    static NullProjectView& instance()
    {
        static NullProjectView view;
        return view;
    }
    void RefreshFormObj() override { }
    void mkRecentFilePathMenu() override { }
    void setStatusText(const QString&, const QString&) override { }
    void setMousePointer(int) override { }
    std::optional<WindowPlacement> windowPlacement() const override { return std::nullopt; }
};
