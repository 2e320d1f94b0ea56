#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// An installation in a temporary folder for a benchmark: the program folder "VORNA" with
// the shipped files, beside "Project".
class BenchInstall
{
public:
    BenchInstall()
    {
        QDir(m_root.path()).mkpath(QStringLiteral("VORNA"));
        QDir(m_root.path()).mkpath(QStringLiteral("Project"));
        for (const char* name : {"VORNA.sdb", "RM64.mdb", "VORNA.ml", "VORNA.set"})
            QFile::copy(QDir(QStringLiteral(VORNA_SHIPPED_DIR)).filePath(QString::fromLatin1(name)),
                QDir(appPath()).filePath(QString::fromLatin1(name)));
    }
    QString root() const { return m_root.path(); }
    QString appPath() const { return QDir(m_root.path()).filePath(QStringLiteral("VORNA")); }

private:
    QTemporaryDir m_root;
};
