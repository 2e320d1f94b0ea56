#include "ConnectDownload.h"

#include "CommBuffer.h"
#include "CommProtocol.h"
#include "CommUtil.h"
#include "DeviceRegisters.h"
#include "DownloadSteps.h"
#include "ProjectFiles.h"
#include "ProjectImage.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "ValidUtil.h"

namespace {

const ModuleText T {"VORNACommUtil"};
const QString ConnectStatus = QStringLiteral("ConnectStatus");

void SetLinkState(VORNAGlobal& g, bool online)
{
    g.view().setStatusText(ConnectStatus, online ? QStringLiteral(" Online") : QStringLiteral(" Offline"));
    g.view().setStatusPicture(
        ConnectStatus, online ? QStringLiteral("Connect") : QStringLiteral("DisConnect"));
    g.link.IsDeviceConnected = online;
}

// A read of the Address Of New Record register: its value is of no interest, only that the
// dialler answers at all.
bool SendConnectionProbe(VORNAGlobal& g)
{
    CommBuffer rsp(7);
    return SendReadRequest(g, 0x04, 0x0006, 1, rsp, 7);
}

// The box of a failed send, the same text for each step under its own keys: the text before
// and after the project's name, the check list and the title.
const std::array<TextKey, 7> PhoneBookFailure {T.key("下載專案 [", 1, 82), T.key("] 失敗!", 2, 82),
    T.key("請檢查下列項目:", 3, 82), T.key("1. RS232 通訊線是否已正確連接", 4, 82),
    T.key("2. PC通訊埠是否正確指定", 5, 82), T.key("3. 簡訊報警機的指撥開關SW2是否設為 ON (設定模式)", 6, 82),
    T.key("下載專案", 7, 82)};
const std::array<TextKey, 7> SendFailure {T.key("下載專案 [", 1, 96), T.key("] 失敗!", 2, 96),
    T.key("請檢查下列項目:", 3, 96), T.key("1. RS232 通訊線是否已正確連接", 4, 96),
    T.key("2. PC通訊埠是否正確指定", 5, 96), T.key("3. 簡訊報警機的指撥開關SW2是否設為 ON (設定模式)", 6, 96),
    T.key("下載專案", 7, 96)};

void ShowSendFailure(VORNAGlobal& g, const std::array<TextKey, 7>& keys)
{
    g.platform.msgBox(g.GetText(keys[0]) + g.project.ProjectName + g.GetText(keys[1]) + CRLF
            + CheckList(g, {keys[2], keys[3], keys[4], keys[5]}),
        MsgBox::Critical, g.GetText(keys[6]));
}

// Text and title of a diagnostic box.
void ShowDebugFailure(VORNAGlobal& g, const std::array<TextKey, 2>& keys)
{
    if (g.link.CommDebugLevel > 0)
        g.platform.msgBox(g.GetText(keys[0]), MsgBox::Critical, g.GetText(keys[1]));
}

bool ConfirmDownload(VORNAGlobal& g)
{
    const ProjectState& p = g.project;
    const QString text = T(g, "欲下載的專案佔 [", 1, 64) + QString::number(p.ProjectImageSize)
        + T(g, " Byte], 剩餘空間 [", 2, 64) + QString::number(p.MaxMemoryByte - p.ProjectImageSize)
        + QStringLiteral(" Byte].") + CRLF + T(g, "是否確定要下載專案至簡訊報警機?", 4, 64);
    return g.platform.msgBox(text, MsgBox::OKCancel + MsgBox::Question, T(g, "下載專案", 5, 64))
        == MsgBox::OK;
}

// Everything before the first erase: an open, saved project whose image passes the checks
// and fits, every frame of it built, and the user's yes.
bool PrepareDownload(VORNAGlobal& g, ProjectImage& image)
{
    ProjectState& p = g.project;
    if (p.ProjectName.isEmpty()) {
        g.platform.msgBox(T(g, "下載專案失敗!", 1, 39) + CRLF + T(g, "請確認目前有專案是被開啟!", 2, 39),
            MsgBox::Critical, T(g, "下載專案", 3, 39));
        return false;
    }
    if (p.IsProjectModified) {
        switch (SaveProject(g, false, true, true)) {
        case ProjectResult::Cancelled:
            return false;
        case ProjectResult::AnsweredNo:
            g.platform.msgBox(T(g, "下載專案取消", 1, 50), MsgBox::OKOnly, T(g, "下載專案取消！", 2, 50));
            return false;
        default:
            break;
        }
    }
    BuildProjectImage(g, image);
    if (!IsProjectReady(g) || !IsImageSizeAllowed(g))
        return false;
    // The dialler is erased first and nothing can bring its old content back, so a record
    // that cannot be built must fail here, before a byte goes out, and not halfway through.
    ForEachDownloadFrame(g, image, [](const QByteArray&, const QString&) {});
    return ConfirmDownload(g);
}

} // namespace

void SetOnlineState(VORNAGlobal& g)
{
    SetLinkState(g, true);
}

void SetOfflineState(VORNAGlobal& g)
{
    SetLinkState(g, false);
}

QString CheckList(const VORNAGlobal& g, const std::array<TextKey, 4>& keys)
{
    return g.GetText(keys[0]) + CRLF + g.GetText(keys[1]) + CRLF + g.GetText(keys[2]) + CRLF
        + g.GetText(keys[3]);
}

bool ConnectDevice(VORNAGlobal& g)
{
    if (!EnsureCommOpen(g, LinkComm(g)))
        return false;
    ShowBusyMessage(g, T(g, "連線簡訊報警機", 1, 250), T(g, "正在連線中...", 2, 250));
    g.platform.doEvents();
    const bool answered = SendConnectionProbe(g);
    HideBusyMessage(g);

    DeviceInfo info;
    QString firmware;
    if (answered && ReadDeviceComm(g, info, false) && ReadFirmwareVersion(g, firmware)) {
        g.platform.msgBox(T(g, "連線至簡訊報警機成功!", 1, 261) + CRLF + CRLF + QStringLiteral("Model No.: ")
                + ModelPrefix(firmware) + info.Model + CRLF + QStringLiteral("S/N : ") + info.SerialNo + CRLF
                + QStringLiteral("Commnunication Settings : ") + info.BaudRate + QStringLiteral(", ")
                + info.Parity + QStringLiteral(", 8, 1"),
            MsgBox::Information, T(g, "連線簡訊報警機", 2, 261));
        SetOnlineState(g);
        return true;
    }
    g.platform.msgBox(T(g, "連線至簡訊報警機失敗! ", 1, 266) + CRLF
            + CheckList(g,
                {T.key("請檢查下列項目:", 2, 266), T.key("1. RS232 通訊線是否已正確連接", 3, 266),
                    T.key("2. PC通訊埠是否正確指定", 4, 266),
                    T.key("3. 簡訊報警機的指撥開關SW2是否設為 ON (設定模式)", 5, 266)}),
        MsgBox::Critical, T(g, "連線簡訊報警機", 6, 266));
    SetOfflineState(g);
    return false;
}

bool DownloadProject(VORNAGlobal& g)
{
    ProjectImage image;
    if (!PrepareDownload(g, image))
        return false;

    g.view().setMousePointer(Pointer::Hourglass);
    ShowBusyMessage(g, T(g, "下載專案", 1, 75), T(g, "下載專案至簡訊警報機中, 請稍侯...", 2, 75));
    g.platform.doEvents();

    if (!ClearPhoneBook(g)) {
        g.view().setMousePointer(Pointer::Default);
        HideBusyMessage(g);
        ShowSendFailure(g, PhoneBookFailure);
        SetOfflineState(g);
        ShowDebugFailure(g, {T.key("清除電話本失敗!", 1, 87), T.key("下載專案", 2, 87)});
        return false;
    }
    if (!ClearShortMessages(g)) {
        // This failure leaves the hourglass: the next operation that sets the pointer mends it.
        g.link.IsDeviceConnected = false;
        HideBusyMessage(g);
        ShowSendFailure(g, SendFailure);
        SetOfflineState(g);
        return false;
    }
    if (!DownloadImages(g, image)) {
        g.link.IsDeviceConnected = false;
        g.view().setMousePointer(Pointer::Default);
        HideBusyMessage(g);
        ShowSendFailure(g, SendFailure);
        SetOfflineState(g);
        ShowDebugFailure(g, {T.key("下載專案失敗!", 1, 101), T.key("下載專案", 2, 101)});
        return false;
    }

    g.view().setMousePointer(Pointer::Default);
    HideBusyMessage(g);
    const ProjectState& p = g.project;
    g.platform.msgBox(T(g, "下載專案 [", 0, 106) + p.ProjectName + QStringLiteral(":")
            + QString::number(p.ProjectImageSize) + T(g, " Byte ] 成功!", 2, 106) + CRLF
            + T(g, "請使用者將簡訊報警機的指撥開關SW2設為 OFF (執行模式)", 3, 106),
        MsgBox::OKOnly, T(g, "下載專案", 4, 106));
    SetOnlineState(g);
    return true;
}
