#pragma once

#include <QByteArray>
#include <QFile>

#include "CommBuffer.h"
#include "CommControl.h"
#include "CommProtocol.h"
#include "CoreFixture.h"
#include "frmMessage.h"

// A window stand-in with the command pause: startSleep sets the delay flag, and the sleep
// timer clears it 30 ms later on the fake clock, unless timerRuns is false.
class PauseView : public RecordingView
{
public:
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
        platform.onDoEvents = [this] {
            platform.clock = platform.clock.addMSecs(doEventsStepMs);
            if (pause.timerRuns && pause.inDelay && pause.sleepStarted.msecsTo(platform.clock) >= 30)
                pause.inDelay = false;
        };
        start();
    }

    ProjectState& p() { return g.project; }

    int doEventsStepMs = 1;
    PauseView pause;
    CommControl comm {platform};
    frmMessage message {g};
};

// A file's whole content.
inline QByteArray FileBytes(const QString& name)
{
    QFile f(name);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << name.toStdString();
    return f.readAll();
}
