#pragma once

#include <functional>
#include <map>

#include <QPointer>
#include <QString>
#include <QWidget>

#include "Platform.h"

class FormView;

// The platform port on Qt Widgets: message boxes, file dialogs, the form views, the
// override cursor, the event loop, the clock and QSettings.
class QtPlatform : public Platform
{
public:
    // settingsFile: an INI file for the per-user settings, instead of the user's own store
    // (tests use one in their temporary folder).
    explicit QtPlatform(const QString& settingsFile = {});
    ~QtPlatform() override;

    // Makes the view of a form, with the window it belongs to (null for a top-level one).
    using ViewFactory = std::function<FormView*(FormModel& form, QWidget* parent)>;
    // A form that can be shown: its view is made when the form is first shown.
    void addForm(const QString& formName, ViewFactory makeView);
    // Closes every view (before their models go).
    void dropViews();
    // The view of a form, or null while the form has not been shown.
    FormView* existingView(const QString& formName) const;
    // The view of a form, made now if it was not yet.
    FormView& viewOf(FormModel& form);

    // "caption|pattern|caption|pattern" to "caption (pattern);;caption (pattern)".
    static QString QtFilter(const QString& filter);

    int msgBox(const QString& text, int flags, const QString& title) override;
    std::optional<QString> showOpen(const FileDialogOptions& options) override;
    std::optional<QString> showSave(const FileDialogOptions& options) override;
    void refreshForm(FormModel& form) override;
    void setMousePointer(int pointer) override;
    void doEvents() override;
    void waitEvents(int msecs) override;
    bool waitForBytes(SerialLine& line, int msecs) override;
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

    // The window a box or dialog belongs to: the modal one on top, the active one, or the main window.
    QWidget* dialogParent() const;

protected:
    void runModal(FormModel& form) override;
    void showWindow(FormModel& form) override;
    void hideWindow(FormModel& form) override;

private:
    // A form's view: made on its first showing; a view with a parent window is owned by it,
    // a top-level one by this platform.
    struct Form
    {
        ViewFactory make;
        FormView* view = nullptr;
        QPointer<QWidget> window;
    };
    QWidget* mainWindow() const;
    std::optional<QString> fileDialog(const FileDialogOptions& options, bool save);

    std::map<QString, Form> m_forms;
    QString m_settingsFile;
    bool m_waitCursor = false;
};
