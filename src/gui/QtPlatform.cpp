#include "QtPlatform.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QSettings>
#include <QSocketNotifier>
#include <QTimer>
#include <QWidget>

#include "FileUtil.h"
#include "FormModel.h"
#include "FormView.h"
#include "QtSerialLine.h"
#include "UnhandledError.h"

namespace {

// The toolkit's button for each answer of a box.
constexpr std::pair<int, QMessageBox::StandardButton> kButtons[] = {{MsgBox::OK, QMessageBox::Ok},
    {MsgBox::Cancel, QMessageBox::Cancel}, {MsgBox::Abort, QMessageBox::Abort},
    {MsgBox::Retry, QMessageBox::Retry}, {MsgBox::Ignore, QMessageBox::Ignore},
    {MsgBox::Yes, QMessageBox::Yes}, {MsgBox::No, QMessageBox::No}};

QMessageBox::StandardButton buttonOf(int answer)
{
    for (const auto& [a, button] : kButtons)
        if (a == answer)
            return button;
    return QMessageBox::NoButton;
}

int answerOf(QMessageBox::StandardButton button)
{
    for (const auto& [answer, b] : kButtons)
        if (b == button)
            return answer;
    return MsgBox::Cancel;
}

QMessageBox::Icon iconFor(int flags)
{
    switch (flags & MsgBox::IconMask) {
    case MsgBox::Critical:
        return QMessageBox::Critical;
    case MsgBox::Question:
        return QMessageBox::Question;
    case MsgBox::Exclamation:
        return QMessageBox::Warning;
    case MsgBox::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

} // namespace

QtPlatform::QtPlatform(const QString& settingsFile)
    : m_settingsFile(settingsFile)
{ }

QtPlatform::~QtPlatform()
{
    dropViews();
}

void QtPlatform::addForm(const QString& formName, ViewFactory makeView)
{
    m_forms[formName].make = std::move(makeView);
}

void QtPlatform::dropViews()
{
    // A view with a parent window goes with it; the top-level ones are this platform's.
    std::vector<QWidget*> topLevel;
    for (auto& [name, form] : m_forms)
        if (form.window && !form.window->parentWidget())
            topLevel.push_back(form.window);
    for (auto& [name, form] : m_forms)
        form.view = nullptr;
    for (QWidget* window : topLevel)
        delete window;
}

QWidget* QtPlatform::dialogParent() const
{
    // A box that follows a file dialog finds no active window for a moment: it still
    // belongs to the main window, so that it is centred on it and not on the screen.
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget* active = QApplication::activeWindow())
        return active;
    return mainWindow();
}

QWidget* QtPlatform::mainWindow() const
{
    const auto main = m_forms.find(QStringLiteral("frmMain"));
    return main == m_forms.end() ? nullptr : main->second.window.data();
}

FormView* QtPlatform::existingView(const QString& formName) const
{
    const auto it = m_forms.find(formName);
    return it == m_forms.end() || !it->second.window ? nullptr : it->second.view;
}

FormView& QtPlatform::viewOf(FormModel& form)
{
    const auto it = m_forms.find(form.formName());
    if (it == m_forms.end() || !it->second.make)
        throw UnhandledError(QStringLiteral("Form not available: ") + form.formName());
    Form& entry = it->second;
    if (!entry.window) {
        // Every window but the main one belongs to it, so that it stays in front and centred.
        QWidget* parent = form.formName() == QLatin1String("frmMain") ? nullptr : mainWindow();
        entry.view = entry.make(form, parent);
        entry.window = entry.view->widget();
    }
    return *entry.view;
}

QString QtPlatform::QtFilter(const QString& filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    // A caption without its pattern at the end is dropped, as the common dialog ignores it.
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString pattern = parts[i + 1].trimmed();
        pattern.replace(u';', u' ');
        filters << parts[i] + QStringLiteral(" (") + pattern + u')';
    }
    return filters.join(QStringLiteral(";;"));
}

int QtPlatform::msgBox(const QString& text, int flags, const QString& title)
{
    const std::span<const int> answers = MsgBox::Buttons(flags);
    const bool hasCancel = MsgBox::HasButton(flags, MsgBox::Cancel);
    QMessageBox box(iconFor(flags), title, text, QMessageBox::NoButton, dialogParent());
    for (int answer : answers)
        box.addButton(buttonOf(answer));
    box.setDefaultButton(buttonOf(answers.front()));
    if (hasCancel)
        box.setEscapeButton(QMessageBox::Cancel);
    else if (answers.size() == 1)
        box.setEscapeButton(buttonOf(answers.front()));
    box.exec();
    QAbstractButton* clicked = box.clickedButton();
    if (!clicked)
        return hasCancel ? MsgBox::Cancel : answers.front();
    return answerOf(box.standardButton(clicked));
}

std::optional<QString> QtPlatform::fileDialog(const FileDialogOptions& options, bool save)
{
    const QString folder = QDir::current().absoluteFilePath(NativePath(options.InitDir));
    const QString filter = QtFilter(options.Filter);
    const QStringList filters = filter.split(QStringLiteral(";;"), Qt::SkipEmptyParts);

    QFileDialog dialog(dialogParent(), options.DialogTitle, folder, filter);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // Any name is taken, in the open dialog too: File New names its new project there, and
    // File Open words a missing file itself. The program asks about an existing target itself.
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, true);
    // The toolkit's own dialog everywhere, so that it looks and behaves the same on every desktop.
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    // Each filter shows its caption as the program words it; the pattern only matches.
    dialog.setOption(QFileDialog::HideNameFilterDetails, true);
    if (!filters.isEmpty()) {
        const int index
            = options.FilterIndex >= 1 && options.FilterIndex <= filters.size() ? options.FilterIndex : 1;
        dialog.selectNameFilter(filters.at(index - 1));
    }
    if (!options.FileName.isEmpty())
        dialog.selectFile(options.FileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return QDir::toNativeSeparators(QFileInfo(dialog.selectedFiles().first()).absoluteFilePath());
}

std::optional<QString> QtPlatform::showOpen(const FileDialogOptions& options)
{
    return fileDialog(options, false);
}

std::optional<QString> QtPlatform::showSave(const FileDialogOptions& options)
{
    return fileDialog(options, true);
}

void QtPlatform::runModal(FormModel& form)
{
    FormView& view = viewOf(form);
    auto* dialog = qobject_cast<QDialog*>(view.widget());
    if (!dialog)
        throw UnhandledError(QStringLiteral("Form not available: ") + form.formName());
    view.refresh();
    // exec returns when the form hides itself.
    dialog->exec();
}

void QtPlatform::showWindow(FormModel& form)
{
    FormView& view = viewOf(form);
    view.refresh();
    view.widget()->show();
}

void QtPlatform::hideWindow(FormModel& form)
{
    if (FormView* view = existingView(form.formName()))
        view->widget()->hide();
}

void QtPlatform::refreshForm(FormModel& form)
{
    if (FormView* view = existingView(form.formName())) {
        view->refresh();
        // A window shown a moment ago has to be mapped before it can paint.
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        view->widget()->repaint();
    }
}

void QtPlatform::setMousePointer(int pointer)
{
    const bool wait = pointer == Pointer::Hourglass;
    if (wait && !m_waitCursor)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else if (!wait && m_waitCursor)
        QApplication::restoreOverrideCursor();
    m_waitCursor = wait;
}

void QtPlatform::doEvents()
{
    QCoreApplication::processEvents();
}

// The waits own their timer and notifier: a command run from inside a wait may wait in turn.
void QtPlatform::waitEvents(int msecs)
{
    // The timer wakes the wait when nothing else comes.
    QTimer wake;
    wake.setSingleShot(true);
    wake.start(msecs);
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

bool QtPlatform::waitForBytes(SerialLine& line, int msecs)
{
    const qintptr handle = line.nativeHandle();
    if (handle < 0)
        return Platform::waitForBytes(line, msecs);
    // A notifier of the line's own wakes the loop at the first byte (or the hang-up), whatever
    // QSerialPort's reading stands at; the timer at the end of the time given.
    QSocketNotifier arrival(handle, QSocketNotifier::Read);
    QTimer wake;
    wake.setSingleShot(true);
    wake.start(msecs);
    const QDeadlineTimer deadline(msecs);
    qint64 waiting = 0;
    // A line that is gone has nothing waiting and is closed.
    while ((waiting = line.bytesAvailable()) == 0 && line.nativeHandle() >= 0 && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return waiting > 0;
}

QDateTime QtPlatform::now()
{
    return QDateTime::currentDateTime();
}

QString QtPlatform::getSetting(
    const QString& appName, const QString& section, const QString& key, const QString& defaultValue)
{
    QSettings settings = m_settingsFile.isEmpty() ? QSettings(QStringLiteral("VORNA"), appName)
                                                  : QSettings(m_settingsFile, QSettings::IniFormat);
    settings.beginGroup(section);
    return settings.value(key, defaultValue).toString();
}

void QtPlatform::saveSetting(
    const QString& appName, const QString& section, const QString& key, const QString& value)
{
    QSettings settings = m_settingsFile.isEmpty() ? QSettings(QStringLiteral("VORNA"), appName)
                                                  : QSettings(m_settingsFile, QSettings::IniFormat);
    settings.beginGroup(section);
    settings.setValue(key, value);
}

QString QtPlatform::systemLocaleName()
{
    return QLocale::system().name();
}

void QtPlatform::endProcess(int status)
{
    std::cout.flush();
    std::cerr.flush();
    std::fflush(nullptr);
    std::exit(status);
}

std::unique_ptr<SerialLine> QtPlatform::createSerialLine()
{
    return std::make_unique<QtSerialLine>();
}

std::vector<SerialPortInfo> QtPlatform::availablePorts()
{
    return SystemSerialPorts();
}

bool QtPlatform::deviceExists(const QString& path)
{
    return QFileInfo::exists(path);
}
