#include "DeviceCommands.h"

#include <cstdio>
#include <functional>
#include <vector>

#include "CliSession.h"
#include "CommControl.h"
#include "CommUtil.h"
#include "ConnectDownload.h"
#include "ConsolePlatform.h"
#include "ConsoleTable.h"
#include "PortList.h"
#include "ProjectFiles.h"
#include "VORNAGlobal.h"
#include "frmComPort.h"
#include "frmCommSetting.h"
#include "frmDebug.h"

namespace {

const ModuleText T {"VORNACli"};
const QString Unknown = QStringLiteral("UNKNOWN");
const TextKey PortColumns[] = {T.key("通訊埠", 1, 100), T.key("裝置", 2, 100), T.key("狀態", 3, 100),
    T.key("轉接器", 4, 100), T.key("序號", 5, 100), T.key("by-id 名稱", 6, 100)};

// The rows of a combo that a user may choose: all but "UnKnown".
QStringList Choices(const ComboBox& combo)
{
    QStringList choices;
    for (const QString& item : combo.List)
        if (item.toUpper() != Unknown)
            choices << item;
    return choices;
}

// The port dialog played with the port of --port: a device path that no port number reaches
// is mapped for this run only to the number the link has now, so that the dialog's OK opens it.
void PlayPortDialog(Session& s)
{
    LinkState& link = s.g.link;
    int port = link.CommPort;
    if (!link.CommDevice.isEmpty()) {
        const int mapped = CommPortOf(link, link.CommDevice);
        if (mapped > 0)
            port = mapped;
        else
            link.RunPortPaths[port] = link.CommDevice;
    }
    frmComPort& portForm = s.g.form<frmComPort>();
    s.platform.playModal = [&portForm, port](FormModel& form) {
        if (&form != &portForm)
            return;
        portForm.cmbCommPort.SetText(QStringLiteral("COM") + QString::number(port));
        portForm.CmdOK_Click();
    };
}

// The value of a label or box after its caption: "型號 : RM64MT".
void PrintField(const Label& caption, const QString& value)
{
    PrintOutput(caption.Caption.trimmed() + QLatin1Char(' ') + value);
}

} // namespace

int RunConnect(Session& s)
{
    return ConnectDevice(s.g) ? ExitSuccess : ExitFailed;
}

// The Device menu's download: the project opened as the window opens it, its working copy
// committed without a question, then downloaded, then closed.
int RunDownload(Session& s)
{
    VORNAGlobal& g = s.g;
    if (!OpenProject(g, s.paths.at(0)))
        return ExitFailed;
    CommitWorkingCopy(g);
    const bool done = DownloadProject(g);
    CloseProject(g);
    return done ? ExitSuccess : ExitFailed;
}

// The settings dialog: its load reads the dialler and fills it, and what it shows is printed.
// Settings given on the command line are chosen in it and written through its own OK, with
// its check, its question and its boxes.
int RunSettings(Session& s)
{
    VORNAGlobal& g = s.g;
    const DeviceOptions& d = s.device;
    // The window offers the dialog once a connect has opened the port; here it opens first.
    if (!EnsureCommOpen(g, LinkComm(g)))
        return ExitFailed;
    frmCommSetting& form = g.form<frmCommSetting>();
    form.Load();
    bool ok = false;
    form.LoadFormObj(ok);
    if (!ok)
        return ExitFailed;
    PrintField(form.Label7, form.lblModelName.Caption);
    PrintField(form.Label9, form.lblSN.Caption);
    PrintField(form.Label1, form.cmbPortBaud.Text);
    PrintField(form.Label2, form.lblDataBit.Caption);
    PrintField(form.Label4, form.lblStopBit.Caption);
    PrintField(form.Label3, form.cmbParityBit.Text);
    PrintField(form.Label6, form.txtSlaveID.Text);
    if (!d.slave && !d.baud && !d.parity)
        return ExitSuccess;

    // The baud rates are the model's, known once the dialler has told its model.
    const QStringList bauds = Choices(form.cmbPortBaud);
    if (d.baud && !bauds.contains(*d.baud))
        return UsageError(g,
            QStringLiteral("--baud ") + *d.baud + T(g, ": 報警機的機型只提供 ", 1, 42)
                + (bauds.isEmpty() ? T(g, "無", 2, 42) : bauds.join(QStringLiteral(", "))));
    if (d.slave)
        form.txtSlaveID.Text = QString::number(*d.slave);
    if (d.baud)
        form.cmbPortBaud.SelectText(*d.baud);
    if (d.parity)
        form.cmbParityBit.SelectText(*d.parity);

    const int failures = s.platform.criticalBoxes;
    bool closed = false;
    s.platform.playModal = [&form, &closed](FormModel& shown) {
        if (&shown != &form)
            return;
        form.CmdOK_Click();
        // Cancel at the question keeps the dialog open: here nobody is left to close it.
        closed = !form.Visible;
        if (!closed)
            form.cmdExit_Click();
    };
    g.platform.showModal(form);
    s.platform.playModal = nullptr;
    return closed && s.platform.criticalBoxes == failures ? ExitSuccess : ExitFailed;
}

// The service window's register list: loaded as the window loads it, then read by its Read
// button; the rows are printed before the button's box.
int RunRegisters(Session& s)
{
    VORNAGlobal& g = s.g;
    PlayPortDialog(s);
    frmDebug& form = g.form<frmDebug>();
    form.Load();
    form.LoadFormObj();
    bool printed = false;
    auto printRows = [&form, &printed] {
        if (printed)
            return;
        printed = true;
        QStringList header;
        for (const ColumnHeader& column : form.lvBasicInfo.ColumnHeaders)
            header << column.Text;
        std::vector<QStringList> rows;
        for (const ListItem& item : form.lvBasicInfo.ListItems)
            rows.push_back(QStringList {item.Text} + QStringList(item.SubItems.begin(), item.SubItems.end()));
        PrintTable(header, rows);
        std::fflush(stdout); // before the box, on whichever stream it goes
    };
    const bool portOpen = LinkComm(g).PortOpen();
    if (portOpen) {
        const std::function<void()> before = s.platform.beforeBox;
        s.platform.beforeBox = [&printRows, &before] {
            printRows();
            if (before)
                before();
        };
        form.cmdRead_Click();
        s.platform.beforeBox = before;
    }
    printRows();
    s.platform.playModal = nullptr;

    bool allRead = portOpen && !form.lvBasicInfo.ListItems.empty();
    for (const ListItem& item : form.lvBasicInfo.ListItems)
        allRead = allRead && !item.SubItems.empty() && !item.SubItems.front().isEmpty();
    return allRead ? ExitSuccess : ExitFailed;
}

int RunPorts(Session& s)
{
    VORNAGlobal& g = s.g;
    QStringList header;
    for (const TextKey& column : PortColumns)
        header << g.GetText(column);
    std::vector<QStringList> rows;
    for (const PortRow& port : ListCommPorts(g))
        rows.push_back(
            {port.CommPort > 0 ? QStringLiteral("COM") + QString::number(port.CommPort) : QStringLiteral("-"),
                port.Path, port.Present ? T(g, "存在", 1, 101) : T(g, "不存在", 2, 101),
                port.Device.Description, port.Device.SerialNumber, port.Device.ById});
    PrintTable(header, rows);
    return ExitSuccess;
}
