#include <array>
#include <stdexcept>

#include <unistd.h>

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "FileUtil.h"
#include "UnhandledError.h"

namespace {

QByteArray ReadBytes(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void WriteBytes(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(bytes);
}

QStringList FilesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

class FileUtilTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        previous = CurDir();
        ChDir(dir.path());
    }
    void TearDown() override { ChDir(previous); }

    QTemporaryDir dir;
    QString previous;
};

TEST_F(FileUtilTest, TextFilesRoundTripWithTheirLineBreaks)
{
    const QString text = "[Comm]\r\nTimeOut=2\r\n";
    EXPECT_EQ(WriteTextFile(text, "VORNA.set"), text.length());
    EXPECT_TRUE(FileExists("VORNA.set"));
    EXPECT_EQ(ReadTextFile("VORNA.set"), text);

    // Writing replaces the whole file.
    EXPECT_EQ(WriteTextFile("short", "VORNA.set"), 5);
    EXPECT_EQ(ReadBytes(dir.filePath("VORNA.set")), "short");

    DeleteFile("VORNA.set");
    EXPECT_FALSE(FileExists("VORNA.set"));
    EXPECT_EQ(ReadTextFile("VORNA.set"), "");
    DeleteFile("VORNA.set"); // absent: nothing happens
}

TEST_F(FileUtilTest, BackslashPathsAreRelativeToTheCurrentFolder)
{
    ASSERT_TRUE(QDir(dir.path()).mkpath("Project"));
    ASSERT_TRUE(QDir(dir.path()).mkpath("System"));
    ChDir(dir.filePath("System"));
    WriteTextFile("x", "..\\Project\\a.cmb");
    EXPECT_TRUE(QFile::exists(dir.filePath("Project/a.cmb")));
    EXPECT_TRUE(FileExists("..\\Project\\a.cmb"));
    EXPECT_FALSE(FileExists("..\\Project")); // a folder is no file
    EXPECT_FALSE(FileExists(""));
    EXPECT_EQ(AbsolutePath("..\\Project\\a.cmb"), QDir::cleanPath(dir.filePath("Project/a.cmb")));
}

TEST(PathTest, NativeFormsAndJoins)
{
    EXPECT_EQ(NativePath("..\\Project"), "../Project");
    EXPECT_EQ(JoinPath("/opt/VORNA/", "VORNA.sdb"), "/opt/VORNA/VORNA.sdb");
    EXPECT_EQ(JoinPath("", "VORNA.sdb"), "VORNA.sdb");
}

TEST_F(FileUtilTest, ChDirToAMissingFolderIsAnUnhandledError)
{
    EXPECT_THROW(ChDir(dir.filePath("absent")), UnhandledError);
    EXPECT_EQ(QDir(CurDir()).canonicalPath(), QDir(dir.path()).canonicalPath());
}

TEST_F(FileUtilTest, FileCopyReplacesTheDestination)
{
    WriteBytes(dir.filePath("a.mir"), "new contents");
    WriteBytes(dir.filePath("a.cmb"), "old");
    EXPECT_TRUE(FileCopy(dir.filePath("a.mir"), dir.filePath("a.cmb")));
    EXPECT_EQ(ReadBytes(dir.filePath("a.cmb")), "new contents");
    EXPECT_EQ(FilesIn(dir.path()), QStringList({"a.cmb", "a.mir"}));

    EXPECT_TRUE(FileCopy("a.mir", "b.cmb")); // a new destination, relative paths
    EXPECT_EQ(ReadBytes(dir.filePath("b.cmb")), "new contents");
}

TEST_F(FileUtilTest, FileCopyLeavesTheDestinationWhenInterruptedBeforeTheRename)
{
    WriteBytes(dir.filePath("a.mir"), "new contents");
    WriteBytes(dir.filePath("a.cmb"), "old");
    bool interrupted = false;
    EXPECT_THROW(FileCopy(dir.filePath("a.mir"), dir.filePath("a.cmb"),
                     [&] {
                         interrupted = true;
                         throw std::runtime_error("power cut");
                     }),
        std::runtime_error);
    EXPECT_TRUE(interrupted);
    EXPECT_EQ(ReadBytes(dir.filePath("a.cmb")), "old");
    EXPECT_EQ(FilesIn(dir.path()), QStringList({"a.cmb", "a.mir"}));
}

TEST_F(FileUtilTest, FileCopyFailsWithoutATrace)
{
    WriteBytes(dir.filePath("a.mir"), "contents");
    WriteBytes(dir.filePath("a.cmb"), "old");
    // A missing source, a folder as source, a missing destination folder, a file as folder.
    const std::array<std::pair<const char*, const char*>, 4> cases
        = {{{"absent.mir", "a.cmb"}, {".", "a.cmb"}, {"a.mir", "absent/a.cmb"}, {"a.mir", "a.cmb/x.cmb"}}};
    for (const auto& [source, destination] : cases) {
        EXPECT_FALSE(FileCopy(dir.filePath(source), dir.filePath(destination)))
            << source << " " << destination;
        EXPECT_EQ(ReadBytes(dir.filePath("a.cmb")), "old") << source << " " << destination;
        EXPECT_EQ(FilesIn(dir.path()), QStringList({"a.cmb", "a.mir"})) << source << " " << destination;
    }
}

TEST_F(FileUtilTest, AReadOnlyFileIsNeitherReplacedNorDeletedWithoutForce)
{
    WriteBytes(dir.filePath("a.mir"), "new contents");
    WriteBytes(dir.filePath("a.cmb"), "old");
    QFile::setPermissions(dir.filePath("a.cmb"), QFileDevice::ReadOwner);

    EXPECT_FALSE(FileCopy(dir.filePath("a.mir"), dir.filePath("a.cmb")));
    EXPECT_THROW(DeleteFile(dir.filePath("a.cmb")), UnhandledError);
    EXPECT_THROW(PrepareReplace(dir.filePath("a.cmb")), UnhandledError);
    EXPECT_EQ(ReadBytes(dir.filePath("a.cmb")), "old");
    EXPECT_EQ(FilesIn(dir.path()), QStringList({"a.cmb", "a.mir"}));

    // Forced, the file loses its mark but stays until the copy takes its place.
    PrepareReplace(dir.filePath("a.cmb"), true);
    EXPECT_EQ(ReadBytes(dir.filePath("a.cmb")), "old");
    EXPECT_TRUE(FileCopy(dir.filePath("a.mir"), dir.filePath("a.cmb")));
    EXPECT_EQ(ReadBytes(dir.filePath("a.cmb")), "new contents");
    QFile::setPermissions(dir.filePath("a.cmb"), QFileDevice::ReadOwner);
    DeleteFile(dir.filePath("a.cmb"), true);
    EXPECT_EQ(FilesIn(dir.path()), QStringList({"a.mir"}));
}

} // namespace
