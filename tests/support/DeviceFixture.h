#pragma once

#include <functional>
#include <map>

#include <QByteArray>
#include <QStringList>

#include "CommBuffer.h"
#include "CommControl.h"
#include "CommProtocol.h"
#include "CoreFixture.h"
#include "TestFolder.h"
#include "frmMessage.h"

// A window stand-in with the command pause: startSleep sets the delay flag, and the sleep
// timer clears it 30 ms later on the fake clock, unless timerRuns is false. It also keeps the
// status pictures, and adds each panel text and pointer to the journal when there is one.
class PauseView : public RecordingView
{
public:
    std::map<QString, QString> pictures;
    QStringList* journal = nullptr;
    void setStatusText(const QString& key, const QString& text) override
    {
        RecordingView::setStatusText(key, text);
        mark(key + QLatin1Char('=') + text);
    }
    void setStatusPicture(const QString& key, const QString& image) override { pictures[key] = image; }
    void setMousePointer(int pointer) override
    {
        RecordingView::setMousePointer(pointer);
        mark(QStringLiteral("pointer %1").arg(pointer));
    }
    void mark(const QString& what)
    {
        if (journal)
            *journal << what;
    }

    bool inDelay = false;
    bool timerRuns = true;
    int sleeps = 0;
    QDateTime sleepStarted;
    void startSleep() override
    {
        inDelay = true;
        ++sleeps;
        sleepStarted = clockNow ? clockNow() : QDateTime();
    }
    bool isInDelay() const override { return inDelay; }
    std::function<QDateTime()> clockNow;
};

// A frame from hex, with its CRC appended low byte first.
inline QByteArray WithCrc(const char* hex)
{
    QByteArray frame = QByteArray::fromHex(hex);
    const qint32 crc = CRC16(65535, reinterpret_cast<const quint8*>(frame.constData()), frame.size());
    frame.append(char(crc & 0xFF));
    frame.append(char(crc >> 8));
    return frame;
}

inline CommBuffer Buffer(const QByteArray& bytes, int upper)
{
    CommBuffer b(upper);
    for (int k = 0; k < bytes.size(); ++k)
        b(k + 1) = quint8(bytes[k]);
    return b;
}

inline std::string Hex(const QByteArray& bytes)
{
    return bytes.toHex(' ').toUpper().toStdString();
}

// The installation of CoreTest, started, with the serial control and the busy box wired and
// each doEvents worth doEventsStepMs of fake time.
class DeviceTest : public CoreTest
{
protected:
    DeviceTest()
    {
        g.setView(&pause);
        g.link.CommCtl = &comm;
        g.link.BusyForm = &message;
        pause.clockNow = [this] { return platform.clock; };
        pause.journal = &journalLines;
        platform.onEvent = [this](const ScriptedPlatform::Event& e) {
            if (e.kind == ScriptedPlatform::Event::Box)
                journalLines << QStringLiteral("box ") + e.title;
            else if (e.kind == ScriptedPlatform::Event::Modeless)
                journalLines << QStringLiteral("show ") + e.text;
            else if (e.kind == ScriptedPlatform::Event::Hide)
                journalLines << QStringLiteral("hide ") + e.text;
        };
        platform.onDoEvents = [this] {
            platform.clock = platform.clock.addMSecs(doEventsStepMs);
            if (pause.timerRuns && pause.inDelay && pause.sleepStarted.msecsTo(platform.clock) >= 30)
                pause.inDelay = false;
        };
        start();
    }

    ProjectState& p() { return g.project; }

    // A new project with neither groups nor zones, for the tests to fill.
    void newEmptyProject()
    {
        newProject();
        DeleteRows(p().rsUserGroups);
        DeleteRows(p().rsZones);
    }

    void startJournal()
    {
        platform.events.clear();
        journalLines.clear();
        pause.pointerHistory.clear();
    }
    // Since startJournal: the boxes (by title), the shown and hidden windows and the window's
    // panel texts and pointers, in order.
    const QStringList& journal() const { return journalLines; }

    QStringList journalLines;
    int doEventsStepMs = 1;
    PauseView pause;
    CommControl comm {platform};
    frmMessage message {g};
};
