#pragma once

#include <memory>

#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include "TestFolder.h"

// vorna-cli run as a child process in a temporary installation.

// In every text below, "{ROOT}" stands for the installation's root, which is also the
// children's working directory: the paths on their command lines are relative to it.
inline const QString Root = QStringLiteral("{ROOT}");

struct Result
{
    bool finished = false; // in time
    int status = -1;       // -1: ended by a signal
    QString out;
    QString err;
};

// A project at path made from the template and changed by the given statements.
inline void MakeProject(const QString& templatePath, const QString& path, const QStringList& statements)
{
    ASSERT_TRUE(QFile::copy(templatePath, path));
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("prepare"));
        db.setDatabaseName(path);
        ASSERT_TRUE(db.open());
        QSqlQuery query(db);
        for (const QString& statement : statements)
            ASSERT_TRUE(query.exec(statement)) << statement.toStdString();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("prepare"));
}

inline const char* const TraditionalChinese = "zh_TW.UTF-8";
inline const char* const English = "en_US.UTF-8";

// The program started in the program folder programDir under root, under the wrapper command
// if one is given (its program and options first); nothing if it does not start.
inline std::unique_ptr<QProcess> StartCli(const QString& root, const char* locale, const QStringList& args,
    const char* input, const QStringList& wrapper = {}, const QString& programDir = QStringLiteral("VORNA"))
{
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("LANG"), QString::fromLatin1(locale));
    env.insert(QStringLiteral("LC_ALL"), QString::fromLatin1(locale));
    // The settings store stays inside the test's folder.
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), root + QStringLiteral("/config"));
    process->setProcessEnvironment(env);
    process->setWorkingDirectory(root);
    QStringList command
        = wrapper + QStringList {QStringLiteral(VORNA_CLI_PATH), QStringLiteral("--dir"), programDir} + args;
    process->start(command.takeFirst(), command);
    if (!process->waitForStarted())
        return nullptr;
    if (input)
        process->write(input);
    process->closeWriteChannel();
    return process;
}

inline Result FinishCli(QProcess& process)
{
    if (!process.waitForFinished(30000)) {
        process.kill();
        process.waitForFinished();
        return {};
    }
    Result result;
    result.finished = true;
    result.status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

inline Result RunCli(const QString& root, const char* locale, const QStringList& args, const char* input,
    const QStringList& wrapper = {}, const QString& programDir = QStringLiteral("VORNA"))
{
    const std::unique_ptr<QProcess> process = StartCli(root, locale, args, input, wrapper, programDir);
    return process ? FinishCli(*process) : Result {};
}

// A run as a transcript shows it: the command line, stdout, each line of stderr after "2> ",
// and the exit status. A usage error's stderr ends with the usage, given here to be shown as
// "[usage]" when it is exactly that.
inline QString Transcript(const QString& line, const Result& result, const QString& usage = QString())
{
    QString err = result.err;
    if (result.status == 2 && !usage.isEmpty() && err.endsWith(usage))
        err = err.chopped(usage.size()) + QStringLiteral("[usage]\n");
    QString text = QStringLiteral("$ vorna-cli ") + line + u'\n' + result.out;
    for (const QString& errLine : err.split(u'\n', Qt::SkipEmptyParts))
        text += QStringLiteral("2> ") + errLine + u'\n';
    return text
        + QStringLiteral("[exit %1]\n")
              .arg(result.finished ? QString::number(result.status) : QStringLiteral("timed out"));
}
