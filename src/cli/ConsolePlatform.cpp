#include "ConsolePlatform.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include <unistd.h>

#include <QFileInfo>
#include <QLocale>
#include <QSettings>
#include <QThread>

#include "FormModel.h"
#include "QtSerialLine.h"

namespace {

struct Button
{
    QString word;
    int answer;
};

// The word a box's button is answered with.
QString ButtonWord(int answer)
{
    switch (answer) {
    case MsgBox::OK:
        return QStringLiteral("OK");
    case MsgBox::Abort:
        return QStringLiteral("Abort");
    case MsgBox::Retry:
        return QStringLiteral("Retry");
    case MsgBox::Ignore:
        return QStringLiteral("Ignore");
    case MsgBox::Yes:
        return QStringLiteral("Yes");
    case MsgBox::No:
        return QStringLiteral("No");
    default:
        return QStringLiteral("Cancel");
    }
}

// The box's buttons, in the order it shows them.
std::vector<Button> ButtonsOf(int flags)
{
    std::vector<Button> buttons;
    for (int answer : MsgBox::Buttons(flags))
        buttons.push_back({ButtonWord(answer), answer});
    return buttons;
}

QString IconWord(int flags)
{
    switch (flags & MsgBox::IconMask) {
    case MsgBox::Critical:
        return QStringLiteral("error: ");
    case MsgBox::Exclamation:
        return QStringLiteral("warning: ");
    case MsgBox::Question:
        return QStringLiteral("question: ");
    case MsgBox::Information:
        return QStringLiteral("info: ");
    default:
        return QString();
    }
}

const Button* FindButton(const std::vector<Button>& buttons, int answer)
{
    for (const Button& button : buttons)
        if (button.answer == answer)
            return &button;
    return nullptr;
}

// The preset's button: Yes, else OK, else the first; or No, else Cancel, else the last.
const Button& PresetButton(const std::vector<Button>& buttons, bool yes)
{
    const std::array<int, 2> preferred = yes ? std::array<int, 2> {MsgBox::Yes, MsgBox::OK}
                                             : std::array<int, 2> {MsgBox::No, MsgBox::Cancel};
    for (int answer : preferred)
        if (const Button* button = FindButton(buttons, answer))
            return *button;
    return yes ? buttons.front() : buttons.back();
}

// With nobody to answer, a question counts as Cancel where the box has it, else as No.
const Button& UnansweredButton(const std::vector<Button>& buttons)
{
    for (int answer : {MsgBox::Cancel, MsgBox::No})
        if (const Button* button = FindButton(buttons, answer))
            return *button;
    return buttons.back();
}

// A typed answer: the button's word or its first letter, in any case.
const Button* ParseAnswer(const std::vector<Button>& buttons, const QString& typed)
{
    const QString word = typed.trimmed();
    if (word.isEmpty())
        return nullptr;
    for (const Button& button : buttons)
        if (button.word.compare(word, Qt::CaseInsensitive) == 0
            || (word.size() == 1 && button.word.at(0).toLower() == word.at(0).toLower()))
            return &button;
    return nullptr;
}

} // namespace

void PrintError(const QString& line)
{
    std::fputs((line + QLatin1Char('\n')).toUtf8().constData(), stderr);
    std::fflush(stderr);
}

void PrintOutput(const QString& line)
{
    std::fputs((line + QLatin1Char('\n')).toUtf8().constData(), stdout);
}

int ConsolePlatform::msgBox(const QString& text, int flags, const QString& title)
{
    if (beforeBox)
        beforeBox();
    if ((flags & MsgBox::IconMask) == MsgBox::Critical)
        ++criticalBoxes;
    const int given = answer(text, flags, title);
    if (given == MsgBox::No)
        ++noAnswers;
    return given;
}

int ConsolePlatform::answer(const QString& text, int flags, const QString& title)
{
    PrintError(IconWord(flags) + QLatin1Char('[') + title + QStringLiteral("] ") + text);

    const std::vector<Button> buttons = ButtonsOf(flags);
    if (buttons.size() == 1)
        return buttons.front().answer;

    QStringList words;
    for (const Button& button : buttons)
        words << button.word;
    const QString question = words.join(QLatin1Char('/')) + QStringLiteral("? ");

    if (m_preset != Preset::Ask) {
        const Button& button = PresetButton(buttons, m_preset == Preset::Yes);
        PrintError(question + button.word);
        return button.answer;
    }
    // A terminal echoes what is typed; from a pipe the answer is echoed here, so that the
    // output reads as the session went.
    const bool echo = !isatty(fileno(stdin));
    for (;;) {
        std::fputs(question.toUtf8().constData(), stderr);
        std::string line;
        if (!m_stdinClosed)
            m_stdinClosed = !std::getline(std::cin, line);
        if (m_stdinClosed) {
            const Button& button = UnansweredButton(buttons);
            PrintError(button.word + QStringLiteral(" (no input)"));
            return button.answer;
        }
        const QString typed = QString::fromStdString(line);
        if (echo)
            PrintError(typed);
        if (const Button* button = ParseAnswer(buttons, typed))
            return button->answer;
    }
}

std::optional<QString> ConsolePlatform::takeDialogPath()
{
    std::optional<QString> path = nextDialogPath;
    nextDialogPath.reset();
    return path;
}

std::optional<QString> ConsolePlatform::showOpen(const FileDialogOptions&)
{
    return takeDialogPath();
}

std::optional<QString> ConsolePlatform::showSave(const FileDialogOptions&)
{
    return takeDialogPath();
}

void ConsolePlatform::runModal(FormModel& form)
{
    if (playModal)
        playModal(form);
}

// The console has no windows; whoever watches a form is told that it shows or hides.
void ConsolePlatform::showWindow(FormModel& form)
{
    form.notifyChanged();
}

void ConsolePlatform::hideWindow(FormModel& form)
{
    form.notifyChanged();
}

void ConsolePlatform::refreshForm(FormModel&) { }

void ConsolePlatform::setMousePointer(int) { }

void ConsolePlatform::doEvents() { }

// Nothing but the clock can end such a wait here.
void ConsolePlatform::waitEvents(int msecs)
{
    QThread::msleep(msecs);
}

QDateTime ConsolePlatform::now()
{
    return QDateTime::currentDateTime();
}

QString ConsolePlatform::getSetting(
    const QString& appName, const QString& section, const QString& key, const QString& defaultValue)
{
    QSettings settings(QStringLiteral("VORNA"), appName);
    return settings.value(section + QLatin1Char('/') + key, defaultValue).toString();
}

void ConsolePlatform::saveSetting(
    const QString& appName, const QString& section, const QString& key, const QString& value)
{
    QSettings settings(QStringLiteral("VORNA"), appName);
    settings.setValue(section + QLatin1Char('/') + key, value);
}

QString ConsolePlatform::systemLocaleName()
{
    return QLocale::system().name();
}

void ConsolePlatform::endProcess(int status)
{
    std::fflush(stdout);
    std::fflush(stderr);
    std::exit(status);
}

std::unique_ptr<SerialLine> ConsolePlatform::createSerialLine()
{
    return std::make_unique<QtSerialLine>();
}

std::vector<SerialPortInfo> ConsolePlatform::availablePorts()
{
    return SystemSerialPorts();
}

bool ConsolePlatform::deviceExists(const QString& path)
{
    return QFileInfo::exists(path);
}
