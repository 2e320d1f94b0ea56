#include "Golden.h"

#include <QFile>

#include <gtest/gtest.h>

#include "TestFolder.h"

void ExpectGolden(const QString& relativePath, const QString& actual)
{
    const QString path = QStringLiteral(VORNA_TESTS_SOURCE_DIR "/") + relativePath;
    if (qEnvironmentVariableIntValue("VORNA_UPDATE_GOLDEN") == 1) {
        WriteAll(path, actual.toUtf8());
        return;
    }
    ASSERT_TRUE(QFile::exists(path)) << "no golden file " << path.toStdString()
                                     << "; run with VORNA_UPDATE_GOLDEN=1 to write it";
    EXPECT_EQ(actual.toStdString(), QString::fromUtf8(ReadAll(path)).toStdString())
        << relativePath.toStdString();
}
