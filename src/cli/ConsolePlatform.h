#pragma once

#include <functional>
#include <optional>

#include "Platform.h"

class MLUtil;
// The platform port for a terminal: boxes are printed to stderr, questions are answered
// from the command line (--yes, --no) or read from stdin, and the file dialogs return the
// path that the command was given.
class ConsolePlatform : public Platform
{
public:
    // How questions are answered: asked on stdin, or answered Yes (or OK), or No.
    enum class Preset { Ask, Yes, No };

    explicit ConsolePlatform(Preset preset = Preset::Ask)
        : m_preset(preset)
    { }

    // What the next file dialog returns. It is taken by that dialog, so a dialog shown
    // again (after a No to the replace question) comes back cancelled.
    std::optional<QString> nextDialogPath;
    // Questions answered No so far: a command that met one has not done what it was asked.
    int noAnswers = 0;
    // Boxes with the critical icon so far: each tells of a failure.
    int criticalBoxes = 0;
    // The language of the box words and answers, once the program has loaded one; before,
    // they are English, as the boxes of the start are.
    const MLUtil* language = nullptr;
    // Run before a box is printed, when set.
    std::function<void()> beforeBox;
    // Nobody is there to press a modal form's buttons: this plays them, when set; otherwise
    // the form returns at once as it was loaded.
    std::function<void(FormModel&)> playModal;

    int msgBox(const QString& text, int flags, const QString& title) override;
    std::optional<QString> showOpen(const FileDialogOptions& options) override;
    std::optional<QString> showSave(const FileDialogOptions& options) override;
    void refreshForm(FormModel& form) override;
    void setMousePointer(int pointer) override;
    void doEvents() override;
    void waitEvents(int msecs) override;
    QDateTime now() override;
    QString getSetting(const QString& appName, const QString& section, const QString& key,
        const QString& defaultValue) override;
    void saveSetting(
        const QString& appName, const QString& section, const QString& key, const QString& value) override;
    QString systemLocaleName() override;
    std::unique_ptr<SerialLine> createSerialLine() override;
    std::vector<SerialPortInfo> availablePorts() override;
    bool deviceExists(const QString& path) override;
    [[noreturn]] void endProcess(int status) override;

protected:
    void runModal(FormModel& form) override;
    void showWindow(FormModel& form) override;
    void hideWindow(FormModel& form) override;

private:
    int answer(const QString& text, int flags, const QString& title);
    std::optional<QString> takeDialogPath();

    Preset m_preset;
    bool m_stdinClosed = false;
};

// Write a line as UTF-8, with its line end, at once.
void PrintError(const QString& line);
void PrintOutput(const QString& line);
