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
#include "MLUtil.h"
#include "QtSerialLine.h"
#include "VORNAGlobal.h"

namespace {

// A box's word: the English one, always understood when typed, and the one in the source
// language under its key, shown once a language is known.
struct Word
{
    int key; // the answer, or the icon
    const char* english;
    TextKey shown;
};

const ModuleText T {"VORNACli"};

const std::array<Word, 7> ButtonWords {{
    {MsgBox::OK, "OK", T.key("確定(O)", 1, 21)},
    {MsgBox::Cancel, "Cancel", T.key("取消(C)", 2, 21)},
    {MsgBox::Abort, "Abort", T.key("中止(A)", 3, 21)},
    {MsgBox::Retry, "Retry", T.key("重試(R)", 4, 21)},
    {MsgBox::Ignore, "Ignore", T.key("略過(I)", 5, 21)},
    {MsgBox::Yes, "Yes", T.key("是(Y)", 6, 21)},
    {MsgBox::No, "No", T.key("否(N)", 7, 21)},
}};

const std::array<Word, 4> IconWords {{
    {MsgBox::Critical, "error: ", T.key("錯誤: ", 1, 20)},
    {MsgBox::Exclamation, "warning: ", T.key("警告: ", 2, 20)},
    {MsgBox::Question, "question: ", T.key("問題: ", 3, 20)},
    {MsgBox::Information, "info: ", T.key("訊息: ", 4, 20)},
}};

// Said after the answer that a closed input stands for.
const TextKey NoInput = T.key(" (無輸入)", 1, 22);

struct Button
{
    QString english;
    QString shown;
    int answer;
};

QString Shown(const MLUtil* language, const Word& word)
{
    return language ? language->GetText(word.shown) : QString::fromLatin1(word.english);
}

// The box's buttons, in the order it shows them.
std::vector<Button> ButtonsOf(const MLUtil* language, int flags)
{
    std::vector<Button> buttons;
    for (int answer : MsgBox::Buttons(flags)) {
        // A button without a word of its own is a Cancel, as a box closed without a choice.
        const Word* word = &ButtonWords[1];
        for (const Word& w : ButtonWords)
            if (w.key == answer)
                word = &w;
        buttons.push_back({QString::fromLatin1(word->english), Shown(language, *word), answer});
    }
    return buttons;
}

QString IconWord(const MLUtil* language, int flags)
{
    for (const Word& word : IconWords)
        if (word.key == (flags & MsgBox::IconMask))
            return Shown(language, word);
    return QString();
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

// A typed answer: the button's English word or its first letter, or the word shown, with or
// without its letter in brackets, in any case.
const Button* ParseAnswer(const std::vector<Button>& buttons, const QString& typed)
{
    const QString word = typed.trimmed();
    if (word.isEmpty())
        return nullptr;
    for (const Button& button : buttons) {
        const QString shown = button.shown.section(u'(', 0, 0);
        for (const QString& known : {button.english, button.shown, shown})
            if (known.compare(word, Qt::CaseInsensitive) == 0)
                return &button;
        if (word.size() == 1 && button.english.at(0).toLower() == word.at(0).toLower())
            return &button;
    }
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
    PrintError(IconWord(language, flags) + QLatin1Char('[') + title + QStringLiteral("] ") + text);

    const std::vector<Button> buttons = ButtonsOf(language, flags);
    if (buttons.size() == 1)
        return buttons.front().answer;

    QStringList words;
    for (const Button& button : buttons)
        words << button.shown;
    const QString question = words.join(QLatin1Char('/')) + QStringLiteral("? ");

    if (m_preset != Preset::Ask) {
        const Button& button = PresetButton(buttons, m_preset == Preset::Yes);
        PrintError(question + button.shown);
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
            PrintError(
                button.shown + (language ? language->GetText(NoInput) : QStringLiteral(" (no input)")));
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
