#pragma once

#include <cstdio>
#include <cstdlib>
#include <map>

#include "FormModel.h"
#include "Platform.h"

// A platform without a display for the benchmarks: an unexpected box means the measured
// path went wrong, so it is printed and the benchmark stops.
class HeadlessPlatform : public Platform
{
public:
    // The answer to every question when set (a benchmark that confirms a delete); otherwise
    // any box stops the benchmark.
    int boxAnswer = 0;

    int msgBox(const QString& text, int flags, const QString& title) override
    {
        if (boxAnswer != 0 && (flags & MsgBox::ButtonMask) != MsgBox::OKOnly)
            return boxAnswer;
        std::fprintf(stderr, "unexpected box [%s] %d: %s\n", qPrintable(title), flags, qPrintable(text));
        std::exit(1);
    }
    std::optional<QString> showOpen(const FileDialogOptions&) override { return std::nullopt; }
    std::optional<QString> showSave(const FileDialogOptions&) override { return std::nullopt; }
    void refreshForm(FormModel&) override { }
    void setMousePointer(int) override { }
    void doEvents() override { }
    QDateTime now() override { return QDateTime::currentDateTime(); }
    QString getSetting(
        const QString&, const QString& section, const QString& key, const QString& def) override
    {
        auto it = m_settings.find(section + key);
        return it == m_settings.end() ? def : it->second;
    }
    void saveSetting(
        const QString&, const QString& section, const QString& key, const QString& value) override
    {
        m_settings[section + key] = value;
    }
    QString systemLocaleName() override { return QStringLiteral("zh_TW"); }
    // The benchmarks measure no port.
    std::unique_ptr<SerialLine> createSerialLine() override { return nullptr; }
    std::vector<SerialPortInfo> availablePorts() override { return {}; }
    bool deviceExists(const QString&) override { return false; }
    [[noreturn]] void endProcess(int status) override { std::exit(status); }

protected:
    void runModal(FormModel&) override { }
    void showWindow(FormModel&) override { }
    void hideWindow(FormModel&) override { }

private:
    std::map<QString, QString> m_settings;
};
