#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

// A fresh temporary folder for one test, laid out as an installation: the program folder
// "VORNA" with its shipped files copied in, beside "Project" and "System". The process's
// current directory is the program folder for the test's lifetime, as the program expects.
class TestFolder
{
public:
    // withShippedFiles: copy VORNA.sdb, RM64.mdb, VORNA.ml and VORNA.set from the build.
    explicit TestFolder(bool withShippedFiles = true);
    ~TestFolder();

    QString root() const { return m_dir.path(); }
    QString appPath() const;                     // <root>/VORNA
    QString projectDir() const;                  // <root>/Project
    QString path(const QString& relative) const; // relative to the program folder

private:
    QTemporaryDir m_dir;
    QString m_previousDir;
};

// A file's whole content; nothing if it cannot be read.
QByteArray ReadAll(const QString& path);
// The file made anew with the given content.
void WriteAll(const QString& path, const QByteArray& bytes);
