#include <QJsonObject>

#include "PtyLinkFixture.h"
#include "frmComPort.h"
#include "frmDebug.h"

// The service window against vorna-devsim, reached as COM1 through the [Ports] mapping: each
// operation opens the port dialog, answered with OK. The rows it reads are checked through
// vorna-cli's registers command, which prints them whole.
TEST_F(DevsimLinkTest, TheServiceWindowWritesWithoutChecksAndShowsWhatTheDiallerKept)
{
    startDevsim({});
    g.link.CommDevice.clear();
    g.link.PortPaths[1] = devsim->path();
    g.link.CommPort = 1;
    const auto expectPortChosen
        = [this] { platform.expectModal(g.form<frmComPort>(), [](frmComPort& f) { f.CmdOK_Click(); }); };
    frmDebug& form = g.form<frmDebug>();
    expectPortChosen();
    form.LoadFormObj();
    form.cmbPortBaud.SetText(QStringLiteral("19200"));
    form.cmbParityBit.SelectText(QStringLiteral("ODD"));
    form.txtSlaveID.Text = QStringLiteral("7");
    expectPortChosen();
    platform.expectBox(
        MsgBox::OKOnly, QStringLiteral("基本設定寫入Quillbeacon成功！"), QStringLiteral("RM64 偵錯工具"));
    form.cmdWrite_Click();
    EXPECT_EQ(form.lblCommSettings.Caption, QStringLiteral("19200, O, 8, 1"));
    EXPECT_EQ(form.cmbParityBit.Text, QStringLiteral("ODD"));
    const QJsonObject registers = dumpAfter(7)["registers"].toObject();
    EXPECT_EQ(registers["slaveId"].toInt(), 7);
    EXPECT_EQ(registers["settingByte"].toInt(), 128 + 4);
}
