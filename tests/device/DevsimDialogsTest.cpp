#include <QJsonObject>

#include "PtyLinkFixture.h"
#include "frmComPort.h"
#include "frmCommSetting.h"
#include "frmDebug.h"

namespace {

const QString DebugTitle = QStringLiteral("RM64 偵錯工具");

// The dialogs against vorna-devsim, reached as COM1 through the [Ports] mapping.
class DevsimDialogsTest : public DevsimLinkTest
{
protected:
    void startDialler(const QStringList& options)
    {
        startDevsim(options);
        g.link.CommDevice.clear();
        g.link.PortPaths[1] = devsim->path();
        g.link.CommPort = 1;
    }

    // The port dialog, answered with OK on COM1. The rows the service window reads are checked
    // through vorna-cli's registers command, which prints them whole.
    void expectPortChosen()
    {
        platform.expectModal(g.form<frmComPort>(), [](frmComPort& f) { f.CmdOK_Click(); });
    }

    QJsonObject registersAfter(int requests) { return dumpAfter(requests)["registers"].toObject(); }
};

} // namespace

TEST_F(DevsimDialogsTest, TheSettingsDialogWritesTheChangedSettingsToTheDialler)
{
    startDialler({"--model-id", "4106", "--slave-id", "1", "--setting-byte", "3"});
    ASSERT_TRUE(EnsureCommOpen(g, comm));
    g.link.IsDeviceConnected = false;
    frmCommSetting& form = g.form<frmCommSetting>();
    bool ok = false;
    form.LoadFormObj(ok);
    ASSERT_TRUE(ok);
    platform.expectModal(form, [this](frmCommSetting& f) {
        f.cmbPortBaud.SelectText(QStringLiteral("19200"));
        f.cmbParityBit.SelectText(QStringLiteral("EVEN"));
        f.txtSlaveID.Text = QStringLiteral("12");
        f.txtSlaveID_Change();
        platform.expectBox(MsgBox::OKCancel + MsgBox::Question,
            QStringLiteral("您已變更通訊參數! \r\n是否要將新的通訊參數, 存入簡訊報警機中?"),
            QStringLiteral("設定報警機通訊參數"), MsgBox::OK);
        platform.expectBox(
            MsgBox::OKOnly, QStringLiteral("設定報警機通訊參數成功!"), QStringLiteral("設定報警機通訊參數"));
        f.CmdOK_Click();
    });
    platform.showModal(form);
    const QJsonObject registers = registersAfter(5);
    EXPECT_EQ(registers["slaveId"].toInt(), 12);
    EXPECT_EQ(registers["settingByte"].toInt(), 192 + 4);
    EXPECT_TRUE(g.link.IsDeviceConnected);
}

TEST_F(DevsimDialogsTest, TheServiceWindowWritesWithoutChecksAndShowsWhatTheDiallerKept)
{
    startDialler({});
    frmDebug& form = g.form<frmDebug>();
    expectPortChosen();
    form.LoadFormObj();
    form.cmbPortBaud.SetText(QStringLiteral("19200"));
    form.cmbParityBit.SelectText(QStringLiteral("ODD"));
    form.txtSlaveID.Text = QStringLiteral("7");
    expectPortChosen();
    platform.expectBox(MsgBox::OKOnly, QStringLiteral("基本設定寫入Quillbeacon成功！"), DebugTitle);
    form.cmdWrite_Click();
    EXPECT_EQ(form.lblCommSettings.Caption, QStringLiteral("19200, O, 8, 1"));
    EXPECT_EQ(form.cmbParityBit.Text, QStringLiteral("ODD"));
    const QJsonObject registers = registersAfter(7);
    EXPECT_EQ(registers["slaveId"].toInt(), 7);
    EXPECT_EQ(registers["settingByte"].toInt(), 128 + 4);
}
