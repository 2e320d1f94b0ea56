#include "FileUtil.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include "UnhandledError.h"

namespace {

bool WriteAll(int fd, const char* data, qint64 size)
{
    while (size > 0) {
        const ssize_t n = ::write(fd, data, size_t(size));
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += n;
        size -= n;
    }
    return true;
}

// Makes a rename inside the folder durable. Some file systems refuse fsync on a folder;
// the rename has happened by then, so that is not a failure of the copy.
void SyncFolder(const QString& Folder)
{
    const int fd = ::open(QFile::encodeName(Folder).constData(), O_RDONLY | O_DIRECTORY);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
}

// The hidden temporary sibling that a copy onto Destination writes before its rename:
// "." + the file name + "." + six characters.
QString SiblingPrefix(const QFileInfo& destination)
{
    return QStringLiteral(".") + destination.fileName() + QStringLiteral(".");
}
constexpr int SiblingSuffixLength = 6;

// Removes the siblings of Destination that a copy killed before its rename left behind.
// A copy holds a lock on its sibling until it ends, so a sibling that can be locked is
// a leftover; one that cannot belongs to a copy still running and stays.
void RemoveLeftoverSiblings(const QFileInfo& destination)
{
    const QString prefix = SiblingPrefix(destination);
    const QDir folder = destination.absoluteDir();
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        if (!name.startsWith(prefix) || name.size() != prefix.size() + SiblingSuffixLength)
            continue;
        const QByteArray path = QFile::encodeName(folder.filePath(name));
        const int fd = ::open(path.constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
        if (fd < 0)
            continue;
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0)
            ::unlink(path.constData());
        ::close(fd);
    }
}

enum class CopyKind { Plain, Own };

bool CopyReplacing(const QString& Source, const QString& Destination, CopyKind kind,
    const std::function<void()>& beforeRename)
{
    const QString source = AbsolutePath(Source);
    const QString destination = AbsolutePath(Destination);
    QFile in(source);
    if (!QFileInfo(source).isFile() || !in.open(QIODevice::ReadOnly))
        return false;

    const QFileInfo destInfo(destination);
    const bool replacing = destInfo.exists();
    if (kind == CopyKind::Plain && replacing && !(destInfo.permissions() & QFileDevice::WriteOwner))
        return false;
    if (!destInfo.absoluteDir().exists())
        return false;
    RemoveLeftoverSiblings(destInfo);
    QTemporaryFile temp(destInfo.absolutePath() + QLatin1Char('/') + SiblingPrefix(destInfo)
        + QString(SiblingSuffixLength, u'X'));
    temp.setAutoRemove(true);
    if (!temp.open())
        return false;
    const int fd = temp.handle();
    // Held until the copy ends: it tells a running copy's sibling from a leftover.
    ::flock(fd, LOCK_EX);
    QFileDevice::Permissions permissions
        = replacing ? destInfo.permissions() : QFileInfo(source).permissions();
    if (kind == CopyKind::Own)
        permissions |= QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    temp.setPermissions(permissions);

    while (!in.atEnd()) {
        const QByteArray chunk = in.read(1 << 20);
        if (chunk.isEmpty() && in.error() != QFileDevice::NoError)
            return false;
        if (!WriteAll(fd, chunk.constData(), chunk.size()))
            return false;
    }
    if (::fsync(fd) != 0)
        return false;

    if (beforeRename)
        beforeRename();

    if (::rename(QFile::encodeName(temp.fileName()).constData(), QFile::encodeName(destination).constData())
        != 0)
        return false;
    temp.setAutoRemove(false);
    SyncFolder(destInfo.absolutePath());
    return true;
}

} // namespace

QString NativePath(const QString& BackslashPath)
{
    QString p = BackslashPath;
    p.replace(u'\\', u'/');
    return QDir::toNativeSeparators(p);
}

QString AbsolutePath(const QString& FilePath)
{
    return QDir::toNativeSeparators(QDir::cleanPath(QDir::current().absoluteFilePath(NativePath(FilePath))));
}

bool FileExists(const QString& FilePath)
{
    if (FilePath.isEmpty())
        return false;
    const QFileInfo info(AbsolutePath(FilePath));
    return info.exists() && !info.isDir();
}

void DeleteFile(const QString& FilePath, bool Force)
{
    PrepareReplace(FilePath, Force);
    if (FileExists(FilePath) && !QFile::remove(AbsolutePath(FilePath)))
        throw UnhandledError(QStringLiteral("Permission denied"));
}

void PrepareReplace(const QString& FilePath, bool Force)
{
    if (!FileExists(FilePath))
        return;
    const QString path = AbsolutePath(FilePath);
    const QFileInfo info(path);
    // The owner's write bit is the read-only mark: root may write anyway, but the mark holds.
    const bool readOnly = !(info.permissions() & QFileDevice::WriteOwner);
    if ((readOnly && !Force) || !QFileInfo(info.absolutePath()).isWritable())
        throw UnhandledError(QStringLiteral("Permission denied"));
    if (readOnly && !QFile::setPermissions(path, info.permissions() | QFileDevice::WriteOwner))
        throw UnhandledError(QStringLiteral("Permission denied"));
}

QString ReadTextFile(const QString& FilePath)
{
    if (!FileExists(FilePath))
        return QString();
    QFile file(AbsolutePath(FilePath));
    if (!file.open(QIODevice::ReadOnly))
        throw UnhandledError(QStringLiteral("Permission denied"));
    return QString::fromLocal8Bit(file.readAll());
}

int WriteTextFile(const QString& Text, const QString& FilePath)
{
    const QString path = AbsolutePath(FilePath);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        if (!QFileInfo(path).absoluteDir().exists())
            throw UnhandledError(QStringLiteral("Path not found"));
        throw UnhandledError(QStringLiteral("Permission denied"));
    }
    const QByteArray bytes = Text.toLocal8Bit();
    if (file.write(bytes) != bytes.size())
        throw UnhandledError(QStringLiteral("Disk full"));
    return int(Text.length());
}

bool FileCopy(const QString& Source, const QString& Destination, const std::function<void()>& beforeRename)
{
    return CopyReplacing(Source, Destination, CopyKind::Plain, beforeRename);
}

bool FileCopyOwn(const QString& Source, const QString& Destination)
{
    return CopyReplacing(Source, Destination, CopyKind::Own, {});
}

QString JoinPath(const QString& Folder, const QString& Name)
{
    if (Folder.isEmpty())
        return Name;
    if (Folder.endsWith(u'/') || Folder.endsWith(u'\\') || Folder.endsWith(QDir::separator()))
        return Folder + Name;
    return Folder + QDir::separator() + Name;
}

QString CurDir()
{
    return QDir::toNativeSeparators(QDir::currentPath());
}

void ChDir(const QString& Folder)
{
    if (!QDir::setCurrent(NativePath(Folder)))
        throw UnhandledError(QStringLiteral("Path not found"));
}
