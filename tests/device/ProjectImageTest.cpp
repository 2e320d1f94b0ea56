#include "ProjectImage.h"
#include "CommUtil.h"
#include "DeviceFixture.h"
#include "DownloadSteps.h"
#include "Golden.h"

namespace {

class ProjectImageTest : public DeviceTest
{
protected:
    ProjectImageTest() { newEmptyProject(); }

    ProjectImage image;
};

} // namespace

// The two worked records; a disabled contact or text sets the top bit of its flags.
TEST_F(ProjectImageTest, TheWorkedRecordsByteForByte)
{
    CommBuffer cmd(256);
    ASSERT_EQ(SetPhoneBookRecord(g, cmd, 2, {"0912345678", false, 2, 10}), 19);
    EXPECT_EQ(Hex(cmd.bytes(1, 19)), "F7 50 43 02 0E 00 02 0A 02 30 39 31 32 33 34 35 36 37 38");
    SetPhoneBookRecord(g, cmd, 2, {"0912345678", true, 2, 10});
    EXPECT_EQ(Hex(cmd.bytes(1, 6)), "F7 50 43 02 0E 80");
    SetShortMsgRecord(g, cmd, {true, 0, "AB", 2, 4}, true);
    EXPECT_EQ(Hex(cmd.bytes(1, 6)), "F7 50 53 04 08 C1");

    const ShortMsgEntry ab {false, 0, "AB", 2, 4};
    ASSERT_EQ(SetShortMsgRecord(g, cmd, ab, true), 13);
    EXPECT_EQ(Hex(cmd.bytes(1, 13)), "F7 50 53 04 08 41 00 04 00 00 41 00 42");
    ASSERT_EQ(SetShortMsgRecord(g, cmd, ab, false), 11);
    EXPECT_EQ(Hex(cmd.bytes(1, 11)), "F7 50 53 04 06 40 00 02 00 41 42");
}

// Groups differing in case are both listed and a contact takes the first; a blank piece of a
// group list is no entry; an unknown group is number 0; a disabled contact or zone is sent
// all the same. A zone without texts moves the running group number, an empty or unknown
// target keeps it. The size follows the encoding of the moment.
TEST_F(ProjectImageTest, ListsGroupsContactsAndZonesAsTheDeviceTakesThem)
{
    for (const char* group : {"Fire", "fire", "", "Police"})
        AddGroupRow(p(), group);
    AddUserRow(p(), "A", "fire\r\n\r\nPolice", "0912345678", true);
    AddUserRow(p(), "B", "Gone", "110");
    AddUserRow(p(), "C", "", "119");
    AddZoneRow(p(), 0, "all", QStringLiteral("火警AB"), "");
    AddZoneRow(p(), 1, "Police", "", "");
    AddZoneRow(p(), 2, "", "X", "Y");
    AddZoneRow(p(), 3, "Gone", "", "R", true);
    AddZoneRow(p(), 4, "fire", "Z", "");
    QStringList lines;
    for (bool unicode : {true, false}) {
        SetUnicode(p(), unicode);
        BuildProjectImage(g, image);
        lines << QStringLiteral("unicode %1: %2 groups, %3 targets, %4 messages, %5 bytes")
                     .arg(int(unicode))
                     .arg(p().ProjGroupCount)
                     .arg(p().ProjTelCount)
                     .arg(image.ShortMsgCount)
                     .arg(p().ProjectImageSize);
    }
    for (const QString& name : image.GroupNameList)
        lines << QStringLiteral("group ") + name;
    for (const PhoneBookEntry& e : image.PhoneBookList)
        lines << QStringLiteral("phone %1 group %2 length %3 disabled %4")
                     .arg(e.PhoneNumber)
                     .arg(e.GroupNo)
                     .arg(e.Length)
                     .arg(int(e.IsDisable));
    for (const ShortMsgEntry& e : image.ShortMsgList)
        lines << QStringLiteral("message %1 group %2 length %3 disabled %4 %5")
                     .arg(e.MsgNo)
                     .arg(e.GroupNo)
                     .arg(e.Length)
                     .arg(int(e.IsDisable))
                     .arg(e.Text);
    ExpectGolden(QStringLiteral("device/golden/project-image.txt"), lines.join(u'\n') + u'\n');
    EXPECT_EQ(Hex(EncodeMessageText(g, QStringLiteral("火"), false)), "A4 F5");
}

TEST_F(ProjectImageTest, ACodePageThatQtLacksStopsTheProgram)
{
    g.link.CodePage = QStringLiteral("NoSuchCodePage");
    EXPECT_THROW(EncodeMessageText(g, "AB", false), UnhandledError);
}

// A project without messages still leaves an empty file. That a failed record is kept
// before it ends the download shows in vorna-cli's download transcripts.
TEST_F(ProjectImageTest, AProjectWithoutMessagesLeavesAnEmptyDebugFile)
{
    BuildProjectImage(g, image);
    EXPECT_TRUE(DownloadShortMessages(g, image));
    EXPECT_TRUE(QFile::exists("SHORTMSG.dbg"));
    EXPECT_TRUE(ReadAll("SHORTMSG.dbg").isEmpty());
}
