#pragma once

#include <map>

#include <QString>

#include "Platform.h"

class FormView;
class QWidget;

// The platform port on Qt Widgets: message boxes, file dialogs, the form views, the
// override cursor, the event loop, the clock and QSettings.
class QtPlatform : public Platform
{
public:
    // settingsFile: an INI file for the per-user settings, instead of the user's own store
    // (tests use one in their temporary folder).
    explicit QtPlatform(const QString& settingsFile = {});

    // Views are found by the form name of the model they show.
    void registerView(const QString& formName, FormView& view);
    void unregisterView(const QString& formName);

    // "caption|pattern|caption|pattern" to "caption (pattern);;caption (pattern)".
    static QString QtFilter(const QString& filter);

    int msgBox(const QString& text, int flags, const QString& title) override;
    std::optional<QString> showOpen(const FileDialogOptions& options) override;
    std::optional<QString> showSave(const FileDialogOptions& options) override;
    void showModal(FormModel& form) override;
    void showModeless(FormModel& form) override;
    void hideForm(FormModel& form) override;
    void refreshForm(FormModel& form) override;
    void setMousePointer(int pointer) override;
    void doEvents() override;
    QDateTime now() override;
    QString getSetting(const QString& appName, const QString& section, const QString& key,
        const QString& defaultValue) override;
    void saveSetting(
        const QString& appName, const QString& section, const QString& key, const QString& value) override;
    QString systemLocaleName() override;
    std::unique_ptr<SerialLine> createSerialLine() override;
    [[noreturn]] void endProcess(int status) override;

    // The window a box or dialog belongs to: the modal one on top, the active one, or the main window.
    QWidget* dialogParent() const;

private:
    FormView* viewOf(const FormModel& form) const;
    std::optional<QString> fileDialog(const FileDialogOptions& options, bool save);

    std::map<QString, FormView*> m_views;
    QString m_settingsFile;
    bool m_waitCursor = false;
};
