#include "ProjectImage.h"

#include <QFile>

#include "CommBuffer.h"
#include "CommControl.h"
#include "CommProtocol.h"
#include "CommUtil.h"
#include "DeviceRegisters.h"
#include "MultiByte.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

namespace {

// The 8-bit code of one character; a character that takes two bytes has a code above
// 255, which no byte field takes.
int CharCode(VORNAGlobal& g, QChar ch)
{
    const QByteArray b = ToMultiByte(g, QString(ch));
    if (b.size() == 1)
        return quint8(b[0]);
    return b.size() == 2 ? quint8(b[0]) * 256 + quint8(b[1]) : 0;
}

void AppendToFile(QFile& file, const CommBuffer& cmd, int count)
{
    file.write(cmd.bytes(1, count));
}

} // namespace

bool BuildProjectImage(VORNAGlobal& g, ProjectImage& image)
{
    g.project.ProjectImageSize = 0;
    BuildPhoneBookList(g, image);
    if (g.project.rsBasic.RecordCount() > 0) {
        g.project.rsBasic.MoveFirst();
        image.IsUnicodeSMS = FieldFlag(g.project.rsBasic, "IsUnicode");
    }
    BuildShortMsgList(g, image);
    qint32 size = 0;
    for (const PhoneBookEntry& e : image.PhoneBookList)
        size += e.Length;
    size += 4 * g.project.ProjTelCount;
    for (const ShortMsgEntry& e : image.ShortMsgList)
        size += EncodeMessageText(g, e.Text, image.IsUnicodeSMS).size();
    size += 4 * image.ShortMsgCount;
    g.project.ProjectImageSize = size;
    return true;
}

bool BuildPhoneBookList(VORNAGlobal& g, ProjectImage& image)
{
    g.project.ProjGroupCount = 0;
    g.project.ProjTelCount = 0;
    Recordset& groups = g.project.rsUserGroups;
    if (groups.RecordCount() == 0)
        return false;
    image.GroupNameList.clear();
    groups.MoveFirst();
    while (!groups.IsEOF()) {
        const QString name = FieldText(groups, "GroupName");
        if (!name.isEmpty())
            image.GroupNameList.push_back(name);
        groups.MoveNext();
    }
    g.project.ProjGroupCount = CInt(qint64(image.GroupNameList.size()));

    Recordset& users = g.project.rsUsers;
    if (users.RecordCount() == 0)
        return false;
    image.PhoneBookList.clear();
    users.MoveFirst();
    while (!users.IsEOF()) {
        const QString groupList = FieldText(users, "GroupName");
        if (!groupList.isEmpty()) {
            for (const QString& piece : groupList.split(CRLF)) {
                const QString name = piece.trimmed();
                if (name.isEmpty())
                    continue;
                PhoneBookEntry entry;
                entry.PhoneNumber = FieldText(users, "PhoneNumber");
                entry.Length = CInt(qint64(entry.PhoneNumber.size()));
                entry.IsDisable = FieldFlag(users, "IsDisable");
                for (size_t k = 0; k < image.GroupNameList.size(); ++k) {
                    if (image.GroupNameList[k].toUpper() == name.toUpper()) {
                        entry.GroupNo = qint16(k + 1);
                        break;
                    }
                }
                image.PhoneBookList.push_back(entry);
            }
        }
        users.MoveNext();
    }
    g.project.ProjTelCount = CInt(qint64(image.PhoneBookList.size()));
    return true;
}

bool BuildShortMsgList(VORNAGlobal& g, ProjectImage& image)
{
    image.ShortMsgCount = 0;
    Recordset& zones = g.project.rsZones;
    if (zones.RecordCount() == 0)
        return false;
    image.ShortMsgList.clear();
    // One running group number for the whole walk: a zone whose target is empty or names
    // no group goes out with the number of the zone before it.
    qint16 groupNo = 0;
    zones.MoveFirst();
    while (!zones.IsEOF()) {
        const qint16 zoneNo = CInt(zones.Fields(QStringLiteral("ZoneNo")));
        const bool isDisable = FieldFlag(zones, "IsDisable");
        const QString groupName = FieldText(zones, "GroupName");
        const QString alarm = FieldText(zones, "AlarmSMS");
        const QString reset = FieldText(zones, "ResetSMS");
        if (groupName.toUpper() == QStringLiteral("ALL")) {
            groupNo = 0;
        } else {
            for (size_t k = 0; k < image.GroupNameList.size(); ++k) {
                if (image.GroupNameList[k].toUpper() == groupName.toUpper()) {
                    groupNo = qint16(k + 1);
                    break;
                }
            }
        }
        if (!alarm.isEmpty())
            image.ShortMsgList.push_back(
                {isDisable, groupNo, alarm, CInt(qint64(alarm.size())), CInt(zoneNo + 1)});
        if (!reset.isEmpty())
            image.ShortMsgList.push_back(
                {isDisable, groupNo, reset, CInt(qint64(reset.size())), CInt(zoneNo + 1 + 64)});
        zones.MoveNext();
    }
    image.ShortMsgCount = CInt(qint64(image.ShortMsgList.size()));
    return true;
}

QByteArray EncodeMessageText(VORNAGlobal& g, const QString& text, bool unicode)
{
    if (!unicode)
        return ToMultiByte(g, text);
    QByteArray bytes;
    bytes.reserve(text.size() * 2);
    for (QChar unit : text) {
        bytes.append(char(unit.unicode() >> 8));
        bytes.append(char(unit.unicode() & 0xFF));
    }
    return bytes;
}

qint16 SetPhoneBookRecord(VORNAGlobal& g, CommBuffer& cmd, int i, const PhoneBookEntry& entry)
{
    const int L = entry.Length;
    cmd.resize(L + 11);
    cmd(1) = CByte(g.link.StationID);
    cmd(2) = 0x50;
    cmd(3) = 0x43;
    cmd(4) = CByte(i);
    cmd(5) = CByte(L + 4);
    cmd(6) = entry.IsDisable ? 0x80 : 0x00;
    cmd(7) = CByte(entry.GroupNo);
    cmd(8) = CByte(L);
    cmd(9) = CByte(i);
    for (int k = 0; k < L; ++k)
        cmd(10 + k) = CByte(CharCode(g, entry.PhoneNumber.at(k)));
    return qint16(L + 9);
}

qint16 SetShortMsgRecord(VORNAGlobal& g, CommBuffer& cmd, const ShortMsgEntry& entry, bool unicode)
{
    const QByteArray text = EncodeMessageText(g, entry.Text, unicode);
    const int N = int(text.size());
    cmd.resize(N + 11);
    cmd(1) = CByte(g.link.StationID);
    cmd(2) = 0x50;
    cmd(3) = 0x53;
    cmd(4) = CByte(entry.MsgNo);
    cmd(5) = CByte(N + 4);
    cmd(6) = CByte((entry.IsDisable ? 0x80 : 0x00) + 0x40 + (unicode ? 0x01 : 0x00));
    cmd(7) = CByte(entry.GroupNo);
    cmd(8) = CByte(N);
    cmd(9) = 0x00;
    for (int k = 0; k < N; ++k)
        cmd(10 + k) = quint8(text[k]);
    return qint16(N + 9);
}

bool DownloadImages(VORNAGlobal& g, const ProjectImage& image)
{
    return DownloadPhoneBook(g, image) && DownloadShortMessages(g, image);
}

namespace {

// A new, empty copy of the frames about to be sent, in the current directory.
bool OpenDebugFile(QFile& file)
{
    if (file.exists())
        file.remove();
    if (!file.open(QIODevice::WriteOnly))
        throw UnhandledError(QStringLiteral("Permission denied: ") + file.fileName());
    return true;
}

// The records of a download, phone book and messages together, as the busy box counts them.
int RecordTotal(const VORNAGlobal& g, const ProjectImage& image)
{
    return g.project.ProjTelCount + int(image.ShortMsgList.size());
}

} // namespace

bool DownloadPhoneBook(VORNAGlobal& g, const ProjectImage& image)
{
    CommControl& comm = LinkComm(g);
    if (!EnsureCommOpen(g, comm))
        return false;
    QFile file(PhoneBookDbgFile);
    OpenDebugFile(file);
    CommBuffer cmd(256);
    CommBuffer rsp(6);
    const int total = RecordTotal(g, image);
    for (int i = 1; i <= g.project.ProjTelCount; ++i) {
        ShowBusyProgress(g, i, total);
        g.platform.doEvents();
        const qint16 nCmd = SetPhoneBookRecord(g, cmd, i, image.PhoneBookList.at(size_t(i - 1)));
        const bool sent = SendCommand(g, comm, cmd, nCmd, rsp, 6, g.link.Timeout, g.link.Retry);
        AppendToFile(file, cmd, nCmd);
        if (!sent)
            return false;
    }
    return true;
}

bool DownloadShortMessages(VORNAGlobal& g, const ProjectImage& image)
{
    CommControl& comm = LinkComm(g);
    if (!EnsureCommOpen(g, comm))
        return false;
    QFile file(ShortMsgDbgFile);
    OpenDebugFile(file);
    CommBuffer cmd(256);
    CommBuffer rsp(6);
    const int total = RecordTotal(g, image);
    int record = g.project.ProjTelCount;
    for (const ShortMsgEntry& entry : image.ShortMsgList) {
        ShowBusyProgress(g, ++record, total);
        g.platform.doEvents();
        const qint16 nCmd = SetShortMsgRecord(g, cmd, entry, image.IsUnicodeSMS);
        const bool sent = SendCommand(g, comm, cmd, nCmd, rsp, 6, g.link.Timeout, g.link.Retry);
        AppendToFile(file, cmd, nCmd);
        if (!sent)
            return false;
    }
    return true;
}
