#include "ConnectDownload.h"
#include "ProjectFiles.h"
#include "VORNAGlobal.h"
#include "frmComPort.h"
#include "frmCommSetting.h"
#include "frmMain.h"

namespace {

const ModuleText T {"VORNAMain"};

} // namespace

// The entries follow the link as the last exchange left it: download and settings only
// while connected, download only with a project open. The tick on connect shows the link.
void frmMain::mnuDevice_Click()
{
    Menu& connect = menu(QStringLiteral("mnuDeviceConnect"));
    Menu& setting = menu(QStringLiteral("mnuDeviceSetting"));
    Menu& download = menu(QStringLiteral("mnuDeviceDownLoad"));
    const bool connected = m_g.link.IsDeviceConnected;
    connect.Caption = connected ? T(m_g, "連線簡訊報警機", 1, 771) : T(m_g, "連線簡訊報警機", 1, 779);
    connect.Checked = connected;
    setting.Enabled = connected;
    download.Enabled = connected && !m_g.project.ProjectName.isEmpty();
}

// A connect runs whenever the port dialog opened its port, linked or not before.
void frmMain::mnuDeviceConnect_Click()
{
    if (ShowDialog<frmComPort>(m_g).IsConnected)
        ConnectDevice(m_g);
}

// A download sends what is on disk: the working copy is committed first, without a question.
void frmMain::mnuDeviceDownLoad_Click()
{
    CommitWorkingCopy(m_g);
    DownloadProject(m_g);
}

void frmMain::mnuDeviceSetting_Click()
{
    frmCommSetting& form = m_g.form<frmCommSetting>();
    bool ok = false;
    form.LoadFormObj(ok);
    if (ok)
        m_g.platform.showModal(form);
}
