#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <type_traits>
#include <vector>

#include "FormModel.h"
#include "Platform.h"
#include "ScriptedSerialLine.h"

// Thrown by endProcess, so that a test can watch the program end without ending itself.
struct ProcessEnded
{
    int status;
};

// A fake of the platform port that answers boxes and dialogs from a script and records
// everything it was asked to show, in order. It is strict: a box or dialog that the
// script did not expect, an expected one that never came, or an answer that is not one
// of the box's buttons, each fails the running test.
class ScriptedPlatform : public Platform
{
public:
    struct Event
    {
        enum Kind { Box, OpenDialog, SaveDialog, Modal, Modeless, Hide, Pointer, EndProcess } kind;
        QString text;  // box text, form name
        QString title; // box title, dialog title
        int value = 0; // box flags, pointer, exit status
        FileDialogOptions dialog;
    };

    ScriptedPlatform();
    ~ScriptedPlatform() override;

    // Script. Boxes and dialogs must come in the order they were expected.
    void expectBox(int flags, const QString& text, const QString& title, int answer = MsgBox::OK)
    {
        expectBoxOf(flags, text, title, answer, false);
    }
    // For a box whose text is not the program's own (a driver's error description).
    void expectBoxWithAnyText(int flags, const QString& title, int answer = MsgBox::OK)
    {
        expectBoxOf(flags, {}, title, answer, true);
    }
    // answer: the chosen path, or nothing for Cancel. check, if given, looks at the options.
    void expectOpenDialog(
        std::optional<QString> answer, std::function<void(const FileDialogOptions&)> check = {})
    {
        m_expected.push_back(
            {Event::OpenDialog, 0, {}, {}, 0, false, std::move(answer), std::move(check), {}});
    }
    void expectSaveDialog(
        std::optional<QString> answer, std::function<void(const FileDialogOptions&)> check = {})
    {
        m_expected.push_back(
            {Event::SaveDialog, 0, {}, {}, 0, false, std::move(answer), std::move(check), {}});
    }
    // action runs while the form is shown modally, after its load; it plays the user and must
    // hide the form, as the window's modal loop waits for that. Without one the form returns at once.
    void expectModal(const QString& formName, std::function<void(FormModel&)> action = {});
    // The same for the program's own instance of a form: the action plays the user on it.
    template<class Form> void expectModal(Form& form, std::type_identity_t<std::function<void(Form&)>> action)
    {
        expectModal(form.formName(), [&form, action = std::move(action)](FormModel&) { action(form); });
    }

    bool allExpectationsMet() const { return m_expected.empty(); }
    // Forgets what is still expected (for tests that end the process on purpose midway).
    void clearExpectations() { m_expected.clear(); }

    std::vector<Event> events;
    // Runs on each event as it is recorded (a journal that interleaves the window's own).
    std::function<void(const Event&)> onEvent;
    std::vector<QString> boxTexts() const;

    // Clock: starts at a fixed moment; each now() advances it by autoAdvanceMs.
    QDateTime clock;
    qint64 autoAdvanceMs = 0;

    // Runs on each doEvents (a test can click the splash here).
    std::function<void()> onDoEvents;
    int doEventsCount = 0;

    std::map<QString, QString> settings; // "section/key" -> value
    QString localeName = QStringLiteral("en_US");

    // The line that createSerialLine hands out (each line made is a handle on this one),
    // unless makeSerialLine is set, as for a real port.
    ScriptedSerialLine serial {*this};
    std::function<std::unique_ptr<SerialLine>()> makeSerialLine;
    // The ports that the system is said to have, and other devices said to be there.
    std::vector<SerialPortInfo> ports;
    std::set<QString> devices;

    int msgBox(const QString& text, int flags, const QString& title) override;
    std::optional<QString> showOpen(const FileDialogOptions& o) override
    {
        return fileDialog(Event::OpenDialog, o);
    }
    std::optional<QString> showSave(const FileDialogOptions& o) override
    {
        return fileDialog(Event::SaveDialog, o);
    }
    void refreshForm(FormModel&) override { }
    void setMousePointer(int pointer) override { record({Event::Pointer, {}, {}, pointer, {}}); }
    void doEvents() override
    {
        ++doEventsCount;
        if (onDoEvents)
            onDoEvents();
    }
    QDateTime now() override;
    QString getSetting(const QString& appName, const QString& section, const QString& key,
        const QString& defaultValue) override;
    void saveSetting(
        const QString& appName, const QString& section, const QString& key, const QString& value) override;
    QString systemLocaleName() override { return localeName; }
    std::unique_ptr<SerialLine> createSerialLine() override;
    std::vector<SerialPortInfo> availablePorts() override { return ports; }
    bool deviceExists(const QString& path) override { return devices.contains(path); }
    [[noreturn]] void endProcess(int status) override;

protected:
    void runModal(FormModel& form) override;
    void showWindow(FormModel& form) override { record({Event::Modeless, form.formName(), {}, 0, {}}); }
    void hideWindow(FormModel& form) override { record({Event::Hide, form.formName(), {}, 0, {}}); }

private:
    struct Expectation
    {
        Event::Kind kind;
        int flags = 0;
        QString text;
        QString title;
        int answer = 0;
        bool anyText = false;
        std::optional<QString> path;
        std::function<void(const FileDialogOptions&)> check;
        std::function<void(FormModel&)> action;
    };
    void record(Event event);
    std::optional<Expectation> take(Event::Kind kind, const QString& shown);
    void expectBoxOf(int flags, const QString& text, const QString& title, int answer, bool anyText);
    std::optional<QString> fileDialog(Event::Kind kind, const FileDialogOptions& options);
    static QString describe(const Expectation& e);
    std::deque<Expectation> m_expected;
};
