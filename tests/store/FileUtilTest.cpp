#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "FileUtil.h"
#include "TestFolder.h"
#include "UnhandledError.h"

namespace {

// Runs in a fresh current folder, the program folder of an installation with nothing
// shipped, that holds a source a.mir and a destination a.cmb.
class FileUtilTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        WriteAll("a.mir", "new contents");
        WriteAll("a.cmb", "old");
    }
    QStringList files() const
    {
        return QDir(folder.appPath()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    TestFolder folder {false};
};

TEST_F(FileUtilTest, TextFilesRoundTripWithTheirLineBreaks)
{
    const QString text = "[Comm]\r\nTimeOut=2\r\n";
    EXPECT_EQ(WriteTextFile(text, "VORNA.set"), text.length());
    EXPECT_TRUE(FileExists("VORNA.set"));
    EXPECT_EQ(ReadTextFile("VORNA.set"), text);
    EXPECT_EQ(WriteTextFile("short", "VORNA.set"), 5); // writing replaces the whole file
    EXPECT_EQ(ReadAll("VORNA.set"), "short");

    DeleteFile("VORNA.set");
    EXPECT_FALSE(FileExists("VORNA.set"));
    EXPECT_EQ(ReadTextFile("VORNA.set"), "");
    DeleteFile("VORNA.set"); // absent: nothing happens
}

TEST_F(FileUtilTest, BackslashPathsAreRelativeToTheCurrentFolder)
{
    ChDir(QDir(folder.root()).filePath("System"));
    WriteTextFile("x", "..\\Project\\a.cmb");
    EXPECT_TRUE(QFile::exists(QDir(folder.projectDir()).filePath("a.cmb")));
    EXPECT_TRUE(FileExists("..\\Project\\a.cmb"));
    EXPECT_FALSE(FileExists("..\\Project")); // a folder is no file
    EXPECT_FALSE(FileExists(""));
    EXPECT_EQ(
        AbsolutePath("..\\Project\\a.cmb"), QDir::cleanPath(QDir(folder.projectDir()).filePath("a.cmb")));
    EXPECT_EQ(NativePath("..\\Project"), "../Project");
    EXPECT_EQ(JoinPath("/opt/VORNA/", "VORNA.sdb"), "/opt/VORNA/VORNA.sdb");
    EXPECT_EQ(JoinPath("", "VORNA.sdb"), "VORNA.sdb");

    EXPECT_THROW(ChDir(folder.path("absent")), UnhandledError);
    EXPECT_EQ(QDir(CurDir()).canonicalPath(), QDir(QDir(folder.root()).filePath("System")).canonicalPath());
}

TEST_F(FileUtilTest, FileCopyReplacesTheDestinationOrLeavesItAsItWas)
{
    // A missing source, a folder as source, a missing destination folder, a file as folder.
    const std::array<std::pair<const char*, const char*>, 4> failing
        = {{{"absent.mir", "a.cmb"}, {".", "a.cmb"}, {"a.mir", "absent/a.cmb"}, {"a.mir", "a.cmb/x.cmb"}}};
    for (const auto& [source, destination] : failing) {
        EXPECT_FALSE(FileCopy(folder.path(source), folder.path(destination))) << source << " " << destination;
        EXPECT_EQ(ReadAll("a.cmb"), "old") << source << " " << destination;
        EXPECT_EQ(files(), QStringList({"a.cmb", "a.mir"})) << source << " " << destination;
    }

    EXPECT_TRUE(FileCopy(folder.path("a.mir"), folder.path("a.cmb")));
    EXPECT_EQ(ReadAll("a.cmb"), "new contents");
    EXPECT_TRUE(FileCopy("a.mir", "b.cmb")); // a new destination, relative paths
    EXPECT_EQ(ReadAll("b.cmb"), "new contents");
    EXPECT_EQ(files(), QStringList({"a.cmb", "a.mir", "b.cmb"}));
}

// Thrown out of before the rename, the copy takes its temporary file away; killed there, it
// leaves the destination whole, as no unwinding can restore it.
TEST_F(FileUtilTest, FileCopyLeavesTheDestinationWhenInterruptedBeforeTheRename)
{
    EXPECT_THROW(
        FileCopy("a.mir", "a.cmb", [] { throw std::runtime_error("power cut"); }), std::runtime_error);
    EXPECT_EQ(files(), QStringList({"a.cmb", "a.mir"}));

    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        FileCopy("a.mir", "a.cmb", [] { ::_exit(9); });
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 9) << "the copy was not killed at its last step";
    EXPECT_EQ(ReadAll("a.cmb"), "old");
}

TEST_F(FileUtilTest, AReadOnlyFileIsNeitherReplacedNorDeletedWithoutForce)
{
    QFile::setPermissions("a.cmb", QFileDevice::ReadOwner);
    EXPECT_FALSE(FileCopy("a.mir", "a.cmb"));
    EXPECT_THROW(DeleteFile("a.cmb"), UnhandledError);
    EXPECT_THROW(PrepareReplace("a.cmb"), UnhandledError);
    EXPECT_EQ(ReadAll("a.cmb"), "old");
    EXPECT_EQ(files(), QStringList({"a.cmb", "a.mir"}));

    // Forced, the file loses its mark but stays until the copy takes its place.
    PrepareReplace("a.cmb", true);
    EXPECT_EQ(ReadAll("a.cmb"), "old");
    EXPECT_TRUE(FileCopy("a.mir", "a.cmb"));
    EXPECT_EQ(ReadAll("a.cmb"), "new contents");
    QFile::setPermissions("a.cmb", QFileDevice::ReadOwner);
    DeleteFile(folder.path("a.cmb"), true);
    EXPECT_EQ(files(), QStringList({"a.mir"}));
}

} // namespace
