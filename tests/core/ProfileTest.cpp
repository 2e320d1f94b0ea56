#include "CoreFixture.h"
#include "FileUtil.h"
#include "ProfileSettings.h"

// How a profile line is found is the profile reader's own rule; these are the two numbers
// taken from what it finds.
struct CommCase
{
    const char* name;
    QByteArray profile;
    int timeout;
    int retry;
};

TEST_F(CoreTest, ReadsTimeoutAndRetry)
{
    const CommCase cases[] = {{"as delivered", "[Comm]\r\nTimeOut=5\r\nRetry=1\r\n", 5, 1},
        {"no Comm section", "[ML]\r\nOriginalLangName=ChineseBig5\r\n", 2, 3},
        {"non-numeric reads as zero", "[Comm]\r\nTimeout=abc\r\nRetry=6 tries\r\n", 0, 6},
        {"rounds to even", "[Comm]\r\nTimeout=2.5\r\nRetry=3.5\r\n", 2, 4}};
    for (const CommCase& c : cases) {
        WriteAll("VORNA.set", c.profile);
        ReadCommSettings(g, QString());
        EXPECT_EQ(g.link.Timeout, c.timeout) << c.name;
        EXPECT_EQ(g.link.Retry, c.retry) << c.name;
    }
}

TEST_F(CoreTest, AProfileThatVanishedBeforeCommEndsTheStart)
{
    QFile::remove("VORNA.set");
    platform.expectBox(
        MsgBox::Critical, "VORNA system failed!\nFile [VORNA.set] not exist.", "VORNA system failed");
    EXPECT_THROW(ReadCommSettings(g, QString()), ProcessEnded);
}

TEST_F(CoreTest, WriteSettingsRewritesTheWholeFileInItsOwnForm)
{
    WriteAll("VORNA.set",
        "[Comm]\r\nTimeout=2\r\nExtra=kept?\r\n[ML]\r\nAppliedLangName=auto\r\n"
        "OriginalLangName=ChineseBig5\r\nAlternateLangName=English\r\nIsFormDisable="
        "2\r\nIsTextDisable=1\r\n");
    g.ml.ReadMLSettings(QString());
    g.link.Timeout = 5;
    g.link.Retry = 1;
    WriteSettings(g, QString());
    EXPECT_EQ(ReadAll("VORNA.set"),
        QByteArray("[Comm]\r\nTimeOut=5\r\nRetry=1\r\n\r\n[ML]\r\nAppliedLangName=auto\r\n"
                   "AlternateLangName=English\r\nOriginalLangName =ChineseBig5\r\n"
                   "IsFormDisable= 0\r\nIsTextDisable= 1\r\n"));
    // What it wrote reads back the same.
    g.link.Timeout = 0;
    ReadCommSettings(g, QString());
    EXPECT_EQ(g.link.Timeout, 5);
}

TEST_F(CoreTest, TheDeliveredProfileIsInTheWritersForm)
{
    g.ml.ReadMLSettings(QString());
    ReadCommSettings(g, QString());
    EXPECT_EQ(g.ml.OriginalLangName, "ChineseBig5");
    EXPECT_EQ(SettingsText(g).toUtf8(), ReadAll("VORNA.set"));
}
