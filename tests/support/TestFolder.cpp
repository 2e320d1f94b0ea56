#include "TestFolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

TestFolder::TestFolder(bool withShippedFiles)
    : m_previousDir(QDir::currentPath())
{
    QDir root(m_dir.path());
    root.mkpath(QStringLiteral("VORNA"));
    root.mkpath(QStringLiteral("Project"));
    root.mkpath(QStringLiteral("System"));
    if (withShippedFiles) {
        for (const char* name : {"VORNA.sdb", "RM64.mdb", "VORNA.ml", "VORNA.set"}) {
            const QString from = QDir(QStringLiteral(VORNA_SHIPPED_DIR)).filePath(QString::fromLatin1(name));
            EXPECT_TRUE(QFile::copy(from, path(QString::fromLatin1(name))))
                << "cannot copy " << from.toStdString();
            QFile::setPermissions(
                path(QString::fromLatin1(name)), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        }
    }
    QDir::setCurrent(appPath());
}

TestFolder::~TestFolder()
{
    QDir::setCurrent(m_previousDir);
}

QString TestFolder::appPath() const
{
    return QDir(m_dir.path()).filePath(QStringLiteral("VORNA"));
}

QString TestFolder::projectDir() const
{
    return QDir(m_dir.path()).filePath(QStringLiteral("Project"));
}

QString TestFolder::path(const QString& relative) const
{
    return QDir::cleanPath(QDir(appPath()).filePath(relative));
}

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteAll(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
    file.write(bytes);
}
