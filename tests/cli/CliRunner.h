#pragma once

#include <functional>
#include <memory>
#include <optional>

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

// One run of the program and what it must give.
struct CliRun
{
    QStringList args; // after "--dir" and the program folder
    int status = 0;
    QStringList outHas = {};
    QStringList errHas = {};
    std::optional<QString> outIs = {};
    const char* input = nullptr; // stdin; nothing means it is closed at once
};

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

// The run's status and output against what it must give, its texts with their placeholders
// replaced by expand.
inline void ExpectRun(const CliRun& run, const Result& result, const std::function<QString(QString)>& expand)
{
    const std::string output
        = "stdout:\n" + result.out.toStdString() + "stderr:\n" + result.err.toStdString();
    EXPECT_EQ(result.status, run.status) << output;
    for (const auto& [stream, texts] : {std::pair {&result.out, &run.outHas}, {&result.err, &run.errHas}})
        for (const QString& text : *texts)
            EXPECT_TRUE(stream->contains(expand(text))) << "missing " << expand(text).toStdString() << "\n"
                                                        << output;
    if (run.outIs) {
        EXPECT_EQ(result.out.toStdString(), expand(*run.outIs).toStdString());
    }
}
