#include "DownloadSteps.h"

#include "CommBuffer.h"
#include "CommControl.h"
#include "CommProtocol.h"
#include "CommUtil.h"
#include "ProjectImage.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

namespace {

const ModuleText T {"VORNACommUtil"};

bool SendClearRequest(VORNAGlobal& g, quint8 subFunction)
{
    CommControl& comm = LinkComm(g);
    if (!EnsureCommOpen(g, comm))
        return false;
    CommBuffer cmd;
    CommBuffer rsp(6);
    const qint16 nCmd = SetClearRequest(g, cmd, subFunction);
    return SendCommand(g, comm, cmd, nCmd, rsp, 6, g.link.Timeout, g.link.Retry);
}

} // namespace

qint16 SetClearRequest(VORNAGlobal& g, CommBuffer& cmd, quint8 subFunction)
{
    cmd.resize(6);
    cmd(1) = CByte(g.link.StationID);
    cmd(2) = 0x50;
    cmd(3) = subFunction;
    cmd(4) = 0xFF;
    return 4;
}

bool ClearPhoneBook(VORNAGlobal& g)
{
    return SendClearRequest(g, ClearPhoneBookFunction);
}

bool ClearShortMessages(VORNAGlobal& g)
{
    return SendClearRequest(g, ClearShortMsgFunction);
}

bool IsImageSizeAllowed(VORNAGlobal& g)
{
    const ProjectState& p = g.project;
    if (p.ProjectImageSize <= p.MaxMemoryByte)
        return true;
    // The too-large line and the memory line run on without a break between them.
    g.platform.msgBox(T(g, "專案下載失敗!", 1, 60) + CRLF + T(g, "欲下載的專案 [", 2, 60)
            + QString::number(p.ProjectImageSize) + T(g, " Byte] 過大, 請更改專案內容。", 3, 60)
            + T(g, "記憶空間為 ", 4, 60) + QString::number(p.MaxMemoryByte) + QStringLiteral("Byte."),
        MsgBox::Critical, T(g, "下載專案", 6, 60));
    return false;
}

void ForEachDownloadFrame(VORNAGlobal& g, const ProjectImage& image,
    const std::function<void(const QByteArray& frame, const QString& dbgFile)>& take)
{
    CommBuffer cmd(256);
    auto send = [&](qint16 nCmd, const QString& dbgFile) {
        SetCommandCRC(cmd, nCmd);
        take(cmd.bytes(1, nCmd + 2), dbgFile);
    };
    send(SetClearRequest(g, cmd, ClearPhoneBookFunction), QString());
    send(SetClearRequest(g, cmd, ClearShortMsgFunction), QString());
    for (int i = 1; i <= g.project.ProjTelCount; ++i)
        send(SetPhoneBookRecord(g, cmd, i, image.PhoneBookList.at(size_t(i - 1))), PhoneBookDbgFile);
    for (const ShortMsgEntry& entry : image.ShortMsgList)
        send(SetShortMsgRecord(g, cmd, entry, image.IsUnicodeSMS), ShortMsgDbgFile);
}
