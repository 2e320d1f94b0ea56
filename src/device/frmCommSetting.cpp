#include "frmCommSetting.h"

#include "ConnectDownload.h"
#include "DeviceRegisters.h"
#include "SlaveIDEntry.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

namespace {

const ModuleText T {"CommSetting"};

const FormTextPath kFormTexts[] = {{""}, {"cmdExit"}, {"sstCommunication.txtSlaveID", "Text"},
    {"sstCommunication.lblModelName"}, {"sstCommunication.Label7"}, {"sstCommunication.Label3"},
    {"sstCommunication.Label6"}, {"sstCommunication.Label5"}, {"sstCommunication.lblStopBit"},
    {"sstCommunication.lblDataBit"}, {"sstCommunication.Label4"}, {"sstCommunication.Label2"},
    {"sstCommunication.Label1"}, {"CmdOK"}, {"sstCommunication", "TabCaption(0)"},
    {"sstCommunication", "TabCaption(1)"}, {"sstCommunication.Label9"}};

const QString Unknown = QStringLiteral("UnKnown");

} // namespace

frmCommSetting::frmCommSetting(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{
    sstCommunication.TabCaptions = {QStringLiteral("通訊 "), QStringLiteral("其它 ")};
}

void frmCommSetting::LoadFormObj(bool& ok)
{
    ok = false;
    Load();
    cmbParityBit.Clear();
    cmbPortBaud.Clear();
    lblModelName.Caption = Unknown;
    lblSN.Caption = Unknown;

    DeviceInfo info;
    if (!ReadDeviceComm(m_g, info, true)) {
        m_g.platform.msgBox(T(m_g, "通訊錯誤, 無法連接簡訊報警機!", 1, 219) + CRLF
                + CheckList(m_g,
                    {T.key("請檢查下列項目:", 2, 219), T.key("1. RS232 通訊線是否已正確連接", 3, 219),
                        T.key("2. PC通訊埠是否正確指定", 4, 219),
                        T.key("3. 簡訊報警機的指撥開關SW2是否設為 ON (設定模式)", 5, 219)}),
            MsgBox::Critical, T(m_g, "裝置通訊設定", 6, 219));
        SetOfflineState(m_g);
        return;
    }
    QString firmware;
    ReadFirmwareVersion(m_g, firmware);
    if (info.Model.toUpper() != QLatin1String("UNKNOWN")) {
        lblModelName.Caption = ModelPrefix(firmware) + info.Model;
        lblSN.Caption = info.SerialNo;
    }

    if (AddModelBaudRates(m_g, info.Model, cmbPortBaud))
        cmbPortBaud.AddItem(Unknown);
    for (const char* parity : {"EVEN", "ODD", "NONE", "UnKnown"})
        cmbParityBit.AddItem(QString::fromLatin1(parity));
    cmbParityBit.SelectText(ParityRow(info.Parity));

    cmbPortBaud.SelectText(info.BaudRate);
    txtSlaveID.Text = info.SlaveID;

    myOldPortBaud = cmbPortBaud.Text;
    myOldParityBit = cmbParityBit.Text;
    myOldSlaveID = txtSlaveID.Text;
    ok = true;
}

void frmCommSetting::CheckFormObj(bool& changed)
{
    changed = false;
    if (cmbPortBaud.Text.toUpper() == QLatin1String("UNKNOWN")) {
        m_g.platform.msgBox(T(m_g, "通訊速率錯誤!", 1, 295) + CRLF
                + T(m_g, "通訊速率不得為 Unknown。", 2, 295) + CRLF + T(m_g, "請重新指定通訊速率!", 3, 295),
            MsgBox::Critical, T(m_g, "設定報警機通訊參數", 4, 295));
        return;
    }
    if (cmbParityBit.Text.toUpper() == QLatin1String("UNKNOWN")) {
        m_g.platform.msgBox(T(m_g, "同位元檢查錯誤!", 1, 299) + CRLF
                + T(m_g, "同位元檢查不得為 Unknown。", 2, 299) + CRLF
                + T(m_g, "請重新指定同位元檢查!", 3, 299),
            MsgBox::Critical, T(m_g, "設定報警機通訊參數", 4, 299));
        return;
    }
    changed = cmbPortBaud.Text != myOldPortBaud || cmbParityBit.Text.toUpper() != myOldParityBit
        || txtSlaveID.Text != myOldSlaveID;
}

void frmCommSetting::SaveFormObj()
{
    if (WriteDeviceComm(
            m_g, lblModelName.Caption, txtSlaveID.Text, cmbPortBaud.Text, cmbParityBit.Text, true)) {
        m_g.platform.msgBox(
            T(m_g, "設定報警機通訊參數成功!", 1, 287), MsgBox::OKOnly, T(m_g, "設定報警機通訊參數", 2, 287));
        SetOnlineState(m_g);
    } else {
        m_g.platform.msgBox(T(m_g, "設定報警機通訊參數失敗!", 1, 292) + CRLF
                + CheckList(m_g,
                    {T.key("請檢查下列項目:", 2, 292), T.key("1. RS232 通訊線是否已正確連接", 3, 292),
                        T.key("2. PC通訊埠是否正確指定", 4, 292),
                        T.key("3. 簡訊報警機的指撥開關SW2是否設為 ON (設定模式)", 5, 292)}),
            MsgBox::Critical, T(m_g, "設定報警機通訊參數", 6, 292));
        SetOfflineState(m_g);
    }
}

// The error boxes of the check close the dialog too, with nothing written.
void frmCommSetting::CmdOK_Click()
{
    bool changed = false;
    CheckFormObj(changed);
    if (!changed) {
        m_g.platform.hideForm(*this);
        return;
    }
    const int answer = m_g.platform.msgBox(T(m_g, "您已變更通訊參數! ", 1, 305) + CRLF
            + T(m_g, "是否要將新的通訊參數, 存入簡訊報警機中?", 2, 305),
        MsgBox::OKCancel + MsgBox::Question, T(m_g, "設定報警機通訊參數", 3, 305));
    if (answer != MsgBox::OK)
        return;
    m_g.platform.hideForm(*this);
    SaveFormObj();
}

void frmCommSetting::cmdExit_Click()
{
    m_g.platform.hideForm(*this);
}

void frmCommSetting::txtSlaveID_KeyPress(int& KeyAscii)
{
    SlaveIDKeyPress(KeyAscii);
}

void frmCommSetting::txtSlaveID_Change()
{
    SlaveIDChange(txtSlaveID);
}
