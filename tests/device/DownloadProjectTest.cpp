#include <functional>

#include "CaseName.h"
#include "ConnectDownload.h"
#include "DeviceFixture.h"
#include "DownloadTexts.h"
#include "ProjectImage.h"

namespace {

// One contact of one group and one alarm text: two erases and two records.
class DownloadProjectTest : public DeviceTest
{
protected:
    DownloadProjectTest()
    {
        newEmptyProject();
        AddGroupRow(p(), "Fire");
        AddUserRow(p(), "Ann", "Fire", "0912345678");
        AddZoneRow(p(), 3, "Fire", "AB", "");
        g.link.Retry = 0;
        SetOnlineState(g);
        ProjectImage image;
        BuildProjectImage(g, image);
        size = p().ProjectImageSize;
        startJournal();
    }

    void expectStillOnline()
    {
        EXPECT_TRUE(platform.serial.written.empty());
        EXPECT_TRUE(g.link.IsDeviceConnected);
        EXPECT_EQ(pause.panels["ConnectStatus"], " Online");
        EXPECT_EQ(pause.pictures["ConnectStatus"], "Connect");
        EXPECT_TRUE(pause.pointerHistory.empty());
    }

    int size = 0;
};

struct RefusalCase
{
    const char* name;
    // Sets the project up and scripts the boxes; given the fixture's image size.
    std::function<void(ScriptedPlatform&, VORNAGlobal&, int size)> script;
};

class DownloadRefusalTest : public DownloadProjectTest, public testing::WithParamInterface<RefusalCase>
{ };

// Every way out before the first erase: nothing reaches the line, and the link state stays.
TEST_P(DownloadRefusalTest, SendsNothing)
{
    GetParam().script(platform, g, size);
    pause.pointerHistory.clear();
    EXPECT_FALSE(DownloadProject(g));
    expectStillOnline();
}

const RefusalCase RefusalCases[] = {
    {"no project",
        [](ScriptedPlatform& platform, VORNAGlobal& g, int) {
            ASSERT_EQ(CloseProject(g), 0);
            platform.expectBox(MsgBox::Critical, "下載專案失敗!\r\n請確認目前有專案是被開啟!", DownloadTitle);
        }},
    {"save prompt answered no",
        [](ScriptedPlatform& platform, VORNAGlobal& g, int) {
            g.project.IsProjectModified = true;
            platform.expectBox(MsgBox::YesNoCancel, SavePrompt("Project1"), SaveTitle, MsgBox::No);
            platform.expectBox(MsgBox::OKOnly, "下載專案取消", "下載專案取消！");
        }},
    {"save prompt cancelled",
        [](ScriptedPlatform& platform, VORNAGlobal& g, int) {
            g.project.IsProjectModified = true;
            platform.expectBox(MsgBox::YesNoCancel, SavePrompt("Project1"), SaveTitle, MsgBox::Cancel);
        }},
    // A project of exactly the memory's size is offered, with nothing left over.
    {"exactly full then cancelled",
        [](ScriptedPlatform& platform, VORNAGlobal& g, int size) {
            g.project.MaxMemoryByte = qint16(size);
            platform.expectBox(
                MsgBox::OKCancel + MsgBox::Question, Confirmation(size, 0), DownloadTitle, MsgBox::Cancel);
        }},
    {"one byte too large",
        [](ScriptedPlatform& platform, VORNAGlobal& g, int size) {
            g.project.MaxMemoryByte = qint16(size - 1);
            platform.expectBox(MsgBox::Critical,
                QStringLiteral(
                    "專案下載失敗!\r\n欲下載的專案 [%1 Byte] 過大, 請更改專案內容。記憶空間為 %2Byte.")
                    .arg(size)
                    .arg(size - 1),
                DownloadTitle);
        }},
};

INSTANTIATE_TEST_SUITE_P(DownloadProjectTest, DownloadRefusalTest, testing::ValuesIn(RefusalCases),
    [](const testing::TestParamInfo<RefusalCase>& info) { return CaseName(info.param.name); });

// A record that no byte can hold stops the program before the dialler is erased.
TEST_F(DownloadProjectTest, ARecordThatCannotBeBuiltStopsTheProgramBeforeAnErase)
{
    AddZoneRow(p(), 191, "Fire", "A", "B"); // the reset record would be number 256
    EXPECT_THROW(DownloadProject(g), UnhandledError);
    expectStillOnline();
    EXPECT_TRUE(journal().isEmpty());
}

// Taken: the busy box over the records, its bar full at the end, and the link online.
TEST_F(DownloadProjectTest, ATakenDownloadEndsOnlineWithTheBarFull)
{
    platform.expectBox(
        MsgBox::OKCancel + MsgBox::Question, Confirmation(size, p().MaxMemoryByte - size), DownloadTitle);
    for (int k = 0; k < 4; ++k)
        platform.serial.answer(WithCrc("F7500000"));
    platform.expectBox(MsgBox::OKOnly, DownloadSuccess("Project1", size), DownloadTitle);
    EXPECT_TRUE(DownloadProject(g));
    const ProgressBar& bar = message.prgProgress;
    EXPECT_EQ(QStringList({journal().join("; "), message.lblProgress.Caption,
                              QStringLiteral("%1..%2 at %3, shown %4")
                                  .arg(bar.Min)
                                  .arg(bar.Max)
                                  .arg(bar.Value)
                                  .arg(int(message.lblProgress.Visible && bar.Visible))})
                  .join(u'\n'),
        "box 下載專案; pointer 11; show frmMessage; pointer 0; hide frmMessage; box 下載專案; ConnectStatus= "
        "Online\n正在傳送第 2 筆，共 2 筆...\n0..2 at 2, shown 1");
    EXPECT_TRUE(g.link.IsDeviceConnected);
}

struct SendFailureCase
{
    const char* name;
    int goodAnswers; // before the one from the wrong station
    qint16 debugLevel;
    const char* debugBox; // the step's own box at that level, after the offline state
    const char* journal;  // after the confirmation and the busy box
};

class SendFailureTest : public DownloadProjectTest, public testing::WithParamInterface<SendFailureCase>
{ };

// A failed erase or record: the failure box and the offline state, in each step's own order;
// the message erase alone leaves the hourglass.
TEST_P(SendFailureTest, EndsOffline)
{
    const SendFailureCase& c = GetParam();
    g.link.CommDebugLevel = c.debugLevel;
    platform.expectBox(
        MsgBox::OKCancel + MsgBox::Question, Confirmation(size, p().MaxMemoryByte - size), DownloadTitle);
    for (int k = 0; k < c.goodAnswers; ++k)
        platform.serial.answer(WithCrc("F7500000"));
    platform.serial.answer(WithCrc("F6500000"));
    if (c.debugLevel > 0)
        platform.expectBox(MsgBox::Critical, "Station ID is Error.", "Send Command Error");
    platform.expectBox(MsgBox::Critical, SendFailure("Project1"), DownloadTitle);
    if (c.debugBox)
        platform.expectBox(MsgBox::Critical, c.debugBox, DownloadTitle);

    EXPECT_FALSE(DownloadProject(g));
    EXPECT_EQ(journal().join("; "), "box 下載專案; pointer 11; show frmMessage; " + QString(c.journal));
    EXPECT_FALSE(g.link.IsDeviceConnected);
    EXPECT_EQ(pause.pictures["ConnectStatus"], "DisConnect");
    EXPECT_EQ(int(platform.serial.written.size()), c.goodAnswers + 1);
}

const SendFailureCase SendFailureCases[] = {
    {"phone book erase", 0, 0, nullptr, "pointer 0; hide frmMessage; box 下載專案; ConnectStatus= Offline"},
    {"message erase with debug boxes", 1, 1, nullptr,
        "box Send Command Error; hide frmMessage; box 下載專案; ConnectStatus= Offline"},
    {"record with debug boxes", 2, 1, "下載專案失敗!",
        "box Send Command Error; pointer 0; hide frmMessage; box 下載專案; ConnectStatus= Offline; box "
        "下載專案"},
};

INSTANTIATE_TEST_SUITE_P(DownloadProjectTest, SendFailureTest, testing::ValuesIn(SendFailureCases),
    [](const testing::TestParamInfo<SendFailureCase>& info) { return CaseName(info.param.name); });

} // namespace
