#pragma once

#include <exception>

#include <QApplication>

class Platform;
class UnhandledError;

// The one place where an unhandled error is caught: one box, then the process ends
// with status 3.
[[noreturn]] void ReportUnhandledError(Platform& platform, const UnhandledError& error);
// A failure of the runtime rather than of the program (bad_alloc and the like), shown
// the same way with a critical box that names it.
[[noreturn]] void ReportRuntimeError(Platform& platform, const std::exception& error);

// Loads the toolkit's translation for the program's applied language ("ChineseBig5",
// "ChineseGB"); English needs none. Missing translation files leave the toolkit in English.
void InstallToolkitTranslation(const QString& language);

// The application object of VORNA: every event runs under the unhandled-error report.
class VornaApplication : public QApplication
{
public:
    VornaApplication(int& argc, char** argv);

    // Where the report goes; until set (or after a reset to null) errors pass through.
    void setPlatform(Platform* platform) { m_platform = platform; }
    bool notify(QObject* receiver, QEvent* event) override;

private:
    Platform* m_platform = nullptr;
};
