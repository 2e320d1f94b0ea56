#include "frmComPort.h"

#include "CommControl.h"
#include "CommUtil.h"
#include "PortList.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

namespace {

const ModuleText T {"ComPort"};
const ModuleText Own {"VORNADevice"};

const FormTextPath kFormTexts[] = {{""}, {"Label8"}, {"cmdExit"}, {"CmdOK"}};

// The list's columns: default text and width in twips; their texts are seq 1 to 5 of id 50.
struct PortColumn
{
    TextKey text;
    double width;
};
const PortColumn kPortColumns[] = {
    {Own.key("通訊埠", 1, 50), 1000},
    {Own.key("裝置", 2, 50), 2200},
    {Own.key("轉接器", 3, 50), 2600},
    {Own.key("序號", 4, 50), 1600},
    {Own.key("by-id 名稱", 5, 50), 3600},
};

// The port number in a combo text, "COM" and a number, for the list to follow; 0 for none.
int PortInText(const QString& text)
{
    bool ok = false;
    const int port = text.mid(3).trimmed().toInt(&ok);
    return ok ? port : 0;
}

} // namespace

frmComPort::frmComPort(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{ }

void frmComPort::LoadFormObj()
{
    Load();
    cmbCommPort.Clear();
    IsConnected = false;
    for (int i = 1; i <= 16; ++i)
        cmbCommPort.AddItem(T(m_g, "COM", 1, 67) + QString::number(i), i);
    IsOK = false;
    cmbCommPort.SetText(T(m_g, "COM", 1, 70) + QString::number(m_g.link.CommPort));

    lvPorts.ColumnHeaders.clear();
    for (const PortColumn& column : kPortColumns)
        lvPorts.ColumnHeaders.push_back({m_g.GetText(column.text), column.width});
    lvPorts.ListItems.clear();
    for (const PortRow& port : ListCommPorts(m_g)) {
        ListItem row;
        if (port.CommPort > 0) {
            row.Text = T(m_g, "COM", 1, 67) + QString::number(port.CommPort);
            row.Key = row.Text;
        } else {
            row.Text = Own(m_g, "無通訊埠編號: 請在 [Ports] 中指定", 1, 52);
            row.Key = port.Path;
        }
        row.Tag = QString::number(port.CommPort);
        row.SubItems = {port.Path, port.Present ? port.Device.Description : Own(m_g, "不存在", 1, 51),
            port.Device.SerialNumber, port.Device.ById};
        if (!port.Present)
            row.ForeColor = SystemColor::GrayText;
        lvPorts.ListItems.push_back(row);
        // The advice on a port without a number stands in the first column, whole.
        if (port.CommPort == 0)
            lvPorts.ColumnHeaders[0].Width = 3400;
    }
    cmbCommPort_Click();
}

void frmComPort::CmdOK_Click()
{
    IsOK = true;
    // A hand-typed text that is no number ends the program here, as a failed conversion does.
    m_g.link.CommPort = CInt(cmbCommPort.Text.mid(3));
    m_g.link.CommDevice.clear();
    CommControl& comm = LinkComm(m_g);
    CloseCommIfOpen(comm);
    ConfigureComm(m_g, comm);
    IsConnected = EnsureCommOpen(m_g, comm);
    IsOK = IsConnected;
    m_g.platform.hideForm(*this);
}

void frmComPort::cmdExit_Click()
{
    IsOK = false;
    m_g.platform.hideForm(*this);
}

void frmComPort::cmbCommPort_Click()
{
    const int port = PortInText(cmbCommPort.Text);
    lvPorts.SelectedItem = -1;
    for (int i = 0; port > 0 && i < int(lvPorts.ListItems.size()); ++i) {
        if (lvPorts.ListItems[i].Tag.toInt() == port) {
            lvPorts.SelectedItem = i;
            break;
        }
    }
}

void frmComPort::lvPorts_Click()
{
    if (lvPorts.SelectedItem < 0 || lvPorts.SelectedItem >= int(lvPorts.ListItems.size()))
        return;
    const int port = lvPorts.ListItems[lvPorts.SelectedItem].Tag.toInt();
    if (port >= 1 && port <= 16)
        cmbCommPort.SelectRow(port - 1);
}
