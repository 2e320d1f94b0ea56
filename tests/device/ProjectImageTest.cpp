#include <vector>

#include "CaseName.h"
#include "CommUtil.h"
#include "DeviceFixture.h"
#include "DownloadSteps.h"
#include "ProjectImage.h"

namespace {

class ProjectImageTest : public DeviceTest
{
protected:
    ProjectImageTest() { newEmptyProject(); }

    ProjectImage image;
};

} // namespace

TEST_F(ProjectImageTest, TheTwoWorkedRecordsByteForByte)
{
    CommBuffer cmd(256);
    ASSERT_EQ(SetPhoneBookRecord(g, cmd, 2, {"0912345678", false, 2, 10}), 19);
    EXPECT_EQ(Hex(cmd.bytes(1, 19)), "F7 50 43 02 0E 00 02 0A 02 30 39 31 32 33 34 35 36 37 38");

    const ShortMsgEntry ab {false, 0, "AB", 2, 4};
    ASSERT_EQ(SetShortMsgRecord(g, cmd, ab, true), 13);
    EXPECT_EQ(Hex(cmd.bytes(1, 13)), "F7 50 53 04 08 41 00 04 00 00 41 00 42");
    ASSERT_EQ(SetShortMsgRecord(g, cmd, ab, false), 11);
    EXPECT_EQ(Hex(cmd.bytes(1, 11)), "F7 50 53 04 06 40 00 02 00 41 42");
}

TEST_F(ProjectImageTest, ContactsBecomeOneEntryForEachOfTheirGroups)
{
    AddGroupRow(p(), "Fire");
    AddGroupRow(p(), "fire");
    AddGroupRow(p(), "");
    AddGroupRow(p(), "Police");
    AddUserRow(p(), "A", "fire\r\n\r\nPolice", "0912345678", true);
    AddUserRow(p(), "B", "Gone", "110");
    AddUserRow(p(), "C", "", "119");
    AddZoneRow(p(), 0, "ALL", "AB", "");
    BuildProjectImage(g, image);

    EXPECT_EQ(image.GroupNameList, (std::vector<QString> {"Fire", "fire", "Police"}));
    EXPECT_EQ(g.project.ProjGroupCount, 3);
    EXPECT_EQ(image.PhoneBookList,
        (std::vector<PhoneBookEntry> {
            {"0912345678", true, 1, 10}, {"0912345678", true, 3, 10}, {"110", false, 0, 3}}));
    EXPECT_EQ(g.project.ProjTelCount, 3);
}

TEST_F(ProjectImageTest, ZonesKeepARunningGroupNumber)
{
    AddGroupRow(p(), "Fire");
    AddGroupRow(p(), "Police");
    AddZoneRow(p(), 0, "all", "AB", "");
    AddZoneRow(p(), 1, "Police", "", "");
    AddZoneRow(p(), 2, "", "X", "Y");
    AddZoneRow(p(), 3, "Gone", "", "R", true);
    AddZoneRow(p(), 4, "fire", "Z", "");
    BuildProjectImage(g, image);
    EXPECT_EQ(image.ShortMsgList,
        (std::vector<ShortMsgEntry> {{false, 0, "AB", 2, 1}, {false, 2, "X", 1, 3}, {false, 2, "Y", 1, 67},
            {true, 2, "R", 1, 68}, {false, 1, "Z", 1, 5}}));
    EXPECT_EQ(image.ShortMsgCount, 5);
}

TEST_F(ProjectImageTest, TheSizeFollowsTheEncodingOfTheMoment)
{
    AddGroupRow(p(), "Fire");
    AddUserRow(p(), "A", "Fire", "0912345678");
    AddZoneRow(p(), 0, "Fire", QStringLiteral("火警AB"), "");
    SetUnicode(p(), true);
    BuildProjectImage(g, image);
    EXPECT_EQ(g.project.ProjectImageSize, 10 + 4 + 8 + 4);
    SetUnicode(p(), false);
    BuildProjectImage(g, image);
    EXPECT_EQ(g.project.ProjectImageSize, 10 + 4 + 6 + 4);
    EXPECT_EQ(Hex(EncodeMessageText(g, QStringLiteral("火"), false)), "A4 F5");
}

TEST_F(ProjectImageTest, ACodePageThatQtLacksStopsTheProgram)
{
    g.link.CodePage = QStringLiteral("NoSuchCodePage");
    EXPECT_THROW(EncodeMessageText(g, "AB", false), UnhandledError);
}

TEST_F(ProjectImageTest, AFailedRecordEndsTheDownloadAfterKeepingIt)
{
    AddGroupRow(p(), "Fire");
    AddUserRow(p(), "A", "Fire", "123");
    AddUserRow(p(), "B", "Fire", "45");
    g.link.Retry = 0;
    BuildProjectImage(g, image);
    platform.serial.answer(WithCrc("F7504300"));
    platform.serial.answer(WithCrc("F6504300"));
    EXPECT_FALSE(DownloadPhoneBook(g, image));
    EXPECT_EQ(ReadAll("PhoneBook.dbg").size(), 12 + 11);
    // A project without messages still leaves an empty file.
    EXPECT_TRUE(DownloadShortMessages(g, image));
    EXPECT_TRUE(QFile::exists("SHORTMSG.dbg"));
    EXPECT_TRUE(ReadAll("SHORTMSG.dbg").isEmpty());
}
