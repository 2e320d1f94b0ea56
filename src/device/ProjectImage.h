#pragma once

#include <vector>

#include <QByteArray>
#include <QString>

class CommBuffer;
class VORNAGlobal;

// One phone-book record: a phone number and one of its contact's groups.
struct PhoneBookEntry
{
    QString PhoneNumber;
    bool IsDisable = false;
    qint16 GroupNo = 0; // place in GroupNameList from 1; 0 when the name matches no group
    qint16 Length = 0;  // characters in PhoneNumber
    bool operator==(const PhoneBookEntry&) const = default;
};

// One short-message record: an alarm or a reset text of a zone.
struct ShortMsgEntry
{
    bool IsDisable = false;
    qint16 GroupNo = 0; // 0 for all groups
    QString Text;
    qint16 Length = 0; // characters in Text
    qint16 MsgNo = 0;  // ZoneNo + 1 for the alarm, ZoneNo + 65 for the reset
    bool operator==(const ShortMsgEntry&) const = default;
};

// The project as the device takes it, rebuilt before each download. The counts of groups
// and targets and the image size are shared state (ProjGroupCount, ProjTelCount,
// ProjectImageSize), since the project check reads them.
struct ProjectImage
{
    std::vector<QString> GroupNameList; // non-empty group names in table order
    std::vector<PhoneBookEntry> PhoneBookList;
    std::vector<ShortMsgEntry> ShortMsgList;
    qint16 ShortMsgCount = 0;
    bool IsUnicodeSMS = false;
};

bool BuildProjectImage(VORNAGlobal& g, ProjectImage& image);
bool BuildPhoneBookList(VORNAGlobal& g, ProjectImage& image);
bool BuildShortMsgList(VORNAGlobal& g, ProjectImage& image);

// A message text as it goes into its record: UTF-16 high byte first, or the 8-bit code page.
QByteArray EncodeMessageText(VORNAGlobal& g, const QString& text, bool unicode);

// The records without their CRC, numbered from 1 (phone book) or as in the entry (messages),
// the message text encoded as it goes. Each sizes cmd with room for the CRC and returns nCmd.
qint16 SetPhoneBookRecord(VORNAGlobal& g, CommBuffer& cmd, int i, const PhoneBookEntry& entry);
qint16 SetShortMsgRecord(VORNAGlobal& g, CommBuffer& cmd, const ShortMsgEntry& entry, bool unicode);

// The files that keep the frames of the last download, in the current directory.
inline const QString PhoneBookDbgFile = QStringLiteral("PhoneBook.dbg");
inline const QString ShortMsgDbgFile = QStringLiteral("SHORTMSG.dbg");

bool DownloadImages(VORNAGlobal& g, const ProjectImage& image);
// Each sends its records one by one and keeps them, without CRC, in "PhoneBook.dbg" or
// "SHORTMSG.dbg" in the current directory.
bool DownloadPhoneBook(VORNAGlobal& g, const ProjectImage& image);
bool DownloadShortMessages(VORNAGlobal& g, const ProjectImage& image);
