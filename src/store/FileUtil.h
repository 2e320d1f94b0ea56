#pragma once

#include <functional>

#include <QString>

// File wrappers. Relative paths are taken against the current directory, and '\' counts
// as a separator as well as the platform's own.
bool FileExists(const QString& FilePath);
// No effect when the file is absent. A read-only file is refused unless Force is set; a
// refusal is an unhandled error ("Permission denied").
void DeleteFile(const QString& FilePath, bool Force = false);
// Readies an existing file to be replaced by FileCopy, in place of deleting it first:
// throws where DeleteFile(FilePath, Force) would, and with Force clears a read-only mark.
// The file itself stays until the copy's rename replaces it, so a failed copy loses nothing.
void PrepareReplace(const QString& FilePath, bool Force = false);
// The whole text, or empty when the file is absent. Read in the system's encoding.
QString ReadTextFile(const QString& FilePath);
// Replaces the file with the text; returns its length in characters.
int WriteTextFile(const QString& Text, const QString& FilePath);

// Copies Source over Destination so that Destination is never left half-written:
// the bytes go to a hidden temporary sibling of Destination, are flushed to disk, and
// the sibling is then renamed over Destination. Returns false on any failure, with
// Destination as it was; a read-only Destination is a failure, as a plain copy's. The copy
// takes Destination's permissions, or Source's for a new file. Siblings left by a copy that
// was killed before its rename are removed first. beforeRename is a test hook run just
// before the rename.
bool FileCopy(
    const QString& Source, const QString& Destination, const std::function<void()>& beforeRename = {});

// FileCopy for a file of the program's own, such as a working copy: the copy is always
// readable and writable by its user, whatever Source's permissions, and replaces an earlier
// file at Destination even if that one is marked read-only.
bool FileCopyOwn(const QString& Source, const QString& Destination);

// Joins a folder and a name with the platform's separator.
QString JoinPath(const QString& Folder, const QString& Name);

// The platform's form of a path written with '\' separators ("..\Project").
QString NativePath(const QString& BackslashPath);

// The absolute form of a path, relative to the current directory, in the platform's form.
QString AbsolutePath(const QString& FilePath);

// The process's current directory, and ChDir (a missing folder is an unhandled error).
QString CurDir();
void ChDir(const QString& Folder);
