#include <QComboBox>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QThread>

#include "DevsimProcess.h"
#include "GuiApp.h"
#include "ProjectRows.h"
#include "frmComPort.h"

namespace {

void pressEnter(QWidget* window)
{
    QTest::keyClick(window, Qt::Key_Return);
}

using DeviceSessionTest = VornaWindowTest;

// Connect on COM1, taken from the port dialog by Enter in its combo box, then a download of a
// small project that the dialler keeps, every box answered from the keyboard.
TEST_F(DeviceSessionTest, ConnectsAndDownloadsAProject)
{
    const QString dump = folder.path("dialler.json");
    DevsimProcess devsim({"--baud", "0", "--dump", dump});
    ASSERT_FALSE(devsim.path().isEmpty());
    vorna.g.link.RunPortPaths[1] = devsim.path();
    const auto connectStatus = [this] { return child<QLabel>(vorna.mainView(), "ConnectStatus")->text(); };
    openTemplateProject();
    AddUserRow(vorna.g.project, "Ann", "UserGroup1", "0912345678");

    atModals({[](QWidget* portDialog) {
                  // The keys reach the combo box, which hands them to its line.
                  auto* combo = portDialog->findChild<QComboBox*>("cmbCommPort");
                  ASSERT_NE(combo, nullptr);
                  pressEnter(combo);
              },
        pressEnter});
    chooseMenu("mnuDevice", "mnuDeviceConnect");
    EXPECT_EQ(connectStatus(), " Online");
    // The dialler's pseudo-terminal is no serial port of the system's, yet it is there.
    const ListItem& com1 = vorna.g.form<frmComPort>().lvPorts.ListItems.at(0);
    EXPECT_EQ(com1.SubItems.at(0), devsim.path());
    EXPECT_EQ(com1.ForeColor, SystemColor::WindowText);

    atModals({pressEnter, pressEnter});
    chooseMenu("mnuDevice", "mnuDeviceDownLoad");
    EXPECT_EQ(connectStatus(), " Online");

    QElapsedTimer clock;
    clock.start();
    QJsonObject kept = ReadDump(dump);
    while (kept["phoneBook"].toArray().isEmpty() && clock.elapsed() < 5000) {
        QThread::msleep(5);
        kept = ReadDump(dump);
    }
    ASSERT_EQ(kept["phoneBook"].toArray().size(), 1);
    EXPECT_EQ(kept["phoneBook"].toArray().at(0)["phoneNumber"].toString(), "0912345678");
}

} // namespace
