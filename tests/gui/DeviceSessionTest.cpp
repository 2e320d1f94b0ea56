#include <memory>
#include <vector>

#include <QComboBox>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QStatusBar>
#include <QTest>
#include <QThread>

#include "DevsimProcess.h"
#include "GuiApp.h"
#include "MainWindowView.h"
#include "ProjectRows.h"
#include "frmComPort.h"

namespace {

// Plays the user at each modal window in turn, in the order given: a window is handed over
// once, when it comes up, and the action must close it.
void atModals(std::vector<std::function<void(QWidget*)>> actions)
{
    struct Play
    {
        std::vector<std::function<void(QWidget*)>> actions;
        size_t next = 0;
        QPointer<QWidget> handled {};
    };
    auto play = std::make_shared<Play>(Play {std::move(actions)});
    auto* poll = new QTimer;
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, [poll, play] {
        QWidget* modal = QApplication::activeModalWidget();
        if (play->handled && !play->handled->isVisible())
            play->handled = nullptr;
        if (!modal || !modal->isVisible() || modal == play->handled)
            return;
        play->handled = modal;
        play->actions[play->next++](modal);
        if (play->next == play->actions.size()) {
            poll->stop();
            poll->deleteLater();
        }
    });
    poll->start();
}

void pressEnter(QWidget* window)
{
    QTest::keyClick(window, Qt::Key_Return);
}

// The window at the virtual dialler, as a user has it: the Device menu opened, an entry chosen.
class DeviceSessionTest : public VornaWindowTest
{
protected:
    void choose(const char* entry)
    {
        MainWindowView* view = vorna.mainView();
        ASSERT_NE(view, nullptr);
        auto* menu = view->findChild<QMenu*>(QStringLiteral("mnuDevice"));
        ASSERT_NE(menu, nullptr);
        emit menu->aboutToShow();
        auto* action = view->findChild<QAction*>(QString::fromLatin1(entry));
        ASSERT_TRUE(action && action->isEnabled()) << entry;
        action->trigger();
    }

    QString connectStatus() const
    {
        auto* label = vorna.mainView()->findChild<QLabel*>(QStringLiteral("ConnectStatus"));
        return label ? label->text() : QString();
    }
};

// Connect on COM1, taken from the port dialog by Enter in its combo box, then a download of a
// small project that the dialler keeps, every box answered from the keyboard.
TEST_F(DeviceSessionTest, ConnectsAndDownloadsAProject)
{
    const QString dump = folder.path(QStringLiteral("dialler.json"));
    DevsimProcess devsim({"--baud", "0", "--dump", dump});
    ASSERT_FALSE(devsim.path().isEmpty());
    vorna.g.link.RunPortPaths[1] = devsim.path();
    openTemplateProject();
    AddUserRow(vorna.g.project, "Ann", "UserGroup1", "0912345678");

    atModals({[](QWidget* portDialog) {
                  // The keys reach the combo box, which hands them to its line.
                  auto* combo = portDialog->findChild<QComboBox*>(QStringLiteral("cmbCommPort"));
                  ASSERT_NE(combo, nullptr);
                  pressEnter(combo);
              },
        pressEnter});
    choose("mnuDeviceConnect");
    EXPECT_EQ(connectStatus(), QStringLiteral(" Online"));
    // The dialler's pseudo-terminal is no serial port of the system's, yet it is there.
    const ListItem& com1 = vorna.g.form<frmComPort>().lvPorts.ListItems.at(0);
    EXPECT_EQ(com1.SubItems.at(0), devsim.path());
    EXPECT_EQ(com1.ForeColor, SystemColor::WindowText);

    atModals({pressEnter, pressEnter});
    choose("mnuDeviceDownLoad");
    EXPECT_EQ(connectStatus(), QStringLiteral(" Online"));

    QElapsedTimer clock;
    clock.start();
    QJsonObject kept = ReadDump(dump);
    while (kept["phoneBook"].toArray().isEmpty() && clock.elapsed() < 5000) {
        QThread::msleep(5);
        kept = ReadDump(dump);
    }
    ASSERT_EQ(kept["phoneBook"].toArray().size(), 1);
    EXPECT_EQ(kept["phoneBook"].toArray().at(0)["phoneNumber"].toString(), QStringLiteral("0912345678"));
}

} // namespace
