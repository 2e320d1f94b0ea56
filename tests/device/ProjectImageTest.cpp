#include <vector>

#include "CaseName.h"
#include "CommUtil.h"
#include "DeviceFixture.h"
#include "DownloadSteps.h"
#include "ProjectImage.h"

namespace {

class ProjectImageTest : public DeviceTest, public ProjectRows
{
protected:
    ProjectImageTest()
        : ProjectRows(g)
    {
        newProject();
        clearGroupsAndZones();
    }

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
    group("Fire");
    group("fire");
    group("");
    group("Police");
    user("A", "0912345678", "fire\r\n\r\nPolice", true);
    user("B", "110", "Gone");
    user("C", "119", "");
    zone(0, "ALL", "AB", "");
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
    group("Fire");
    group("Police");
    zone(0, "all", "AB", "");
    zone(1, "Police", "", "");
    zone(2, "", "X", "Y");
    zone(3, "Gone", "", "R", true);
    zone(4, "fire", "Z", "");
    BuildProjectImage(g, image);
    EXPECT_EQ(image.ShortMsgList,
        (std::vector<ShortMsgEntry> {{false, 0, "AB", 2, 1}, {false, 2, "X", 1, 3}, {false, 2, "Y", 1, 67},
            {true, 2, "R", 1, 68}, {false, 1, "Z", 1, 5}}));
    EXPECT_EQ(image.ShortMsgCount, 5);
}

TEST_F(ProjectImageTest, TheSizeFollowsTheEncodingOfTheMoment)
{
    group("Fire");
    user("A", "0912345678", "Fire");
    zone(0, "Fire", QStringLiteral("火警AB"), "");
    unicode(true);
    BuildProjectImage(g, image);
    EXPECT_EQ(g.project.ProjectImageSize, 10 + 4 + 8 + 4);
    unicode(false);
    BuildProjectImage(g, image);
    EXPECT_EQ(g.project.ProjectImageSize, 10 + 4 + 6 + 4);
    EXPECT_EQ(Hex(EncodeMessageText(g, QStringLiteral("火"), false)), "A4 F5");
}

TEST_F(ProjectImageTest, AnImageOfExactlyTheMemoryGoesAndOneByteMoreIsRefused)
{
    g.project.MaxMemoryByte = 12288;
    g.project.ProjectImageSize = 12288;
    EXPECT_TRUE(IsImageSizeAllowed(g));
    g.project.ProjectImageSize = 12289;
    platform.expectBox(MsgBox::Critical,
        QStringLiteral(
            "專案下載失敗!\r\n欲下載的專案 [12289 Byte] 過大, 請更改專案內容。記憶空間為 12288Byte."),
        QStringLiteral("下載專案"));
    EXPECT_FALSE(IsImageSizeAllowed(g));
}

TEST_F(ProjectImageTest, ACodePageThatQtLacksStopsTheProgram)
{
    g.link.CodePage = QStringLiteral("NoSuchCodePage");
    EXPECT_THROW(EncodeMessageText(g, "AB", false), UnhandledError);
}

TEST_F(ProjectImageTest, DownloadsKeepTheFramesWithoutCrcInDebugFiles)
{
    group("Fire");
    user("A", "123", "Fire");
    user("B", "45", "Fire", true);
    zone(3, "ALL", "AB", "");
    unicode(false);
    BuildProjectImage(g, image);
    for (int k = 0; k < 3; ++k)
        platform.serial.answer(WithCrc("F7504300"));
    ASSERT_TRUE(DownloadImages(g, image));
    EXPECT_EQ(
        Hex(File("PhoneBook.dbg")), "F7 50 43 01 07 00 01 03 01 31 32 33 F7 50 43 02 06 80 01 02 02 34 35");
    EXPECT_EQ(Hex(File("SHORTMSG.dbg")), "F7 50 53 04 06 40 00 02 00 41 42");
    EXPECT_EQ(Hex(platform.serial.written.at(2)), Hex(WithCrc("F75053040640000200 4142")));
}

TEST_F(ProjectImageTest, AFailedRecordEndsTheDownloadAfterKeepingIt)
{
    group("Fire");
    user("A", "123", "Fire");
    user("B", "45", "Fire");
    g.link.Retry = 0;
    BuildProjectImage(g, image);
    platform.serial.answer(WithCrc("F7504300"));
    platform.serial.answer(WithCrc("F6504300"));
    EXPECT_FALSE(DownloadPhoneBook(g, image));
    EXPECT_EQ(File("PhoneBook.dbg").size(), 12 + 11);
    // A project without messages still leaves an empty file.
    EXPECT_TRUE(DownloadShortMessages(g, image));
    EXPECT_TRUE(QFile::exists("SHORTMSG.dbg"));
    EXPECT_TRUE(File("SHORTMSG.dbg").isEmpty());
}

TEST_F(ProjectImageTest, AByteFieldOver255EndsTheProgram)
{
    group("Fire");
    zone(191, "Fire", "A", "B"); // the reset record would be number 256
    BuildProjectImage(g, image);
    platform.serial.answer(WithCrc("F7505300"));
    EXPECT_THROW(DownloadShortMessages(g, image), UnhandledError);
}
