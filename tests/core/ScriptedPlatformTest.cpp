#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "FormModel.h"
#include "ScriptedPlatform.h"

namespace {

class Dialog : public FormModel
{
public:
    QString formName() const override { return QStringLiteral("frmDialog"); }
};

} // namespace

// The fake is only worth its strictness: each way a script can be wrong must fail the test.
TEST(ScriptedPlatformTest, FailsTheTestOnEveryWayAScriptCanBeWrong)
{
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedPlatform platform;
            platform.msgBox(QStringLiteral("Sure?"), MsgBox::YesNo, QStringLiteral("Q"));
        },
        "unexpected box");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedPlatform platform;
            platform.expectBox(MsgBox::YesNo, QStringLiteral("Sure?"), QStringLiteral("Q"), MsgBox::OK);
            platform.clearExpectations();
        },
        "is not a button");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedPlatform platform;
            platform.expectSaveDialog(QStringLiteral("a.cmb"));
        },
        "expected but never shown");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedPlatform platform;
            Dialog dialog;
            platform.expectModal(QStringLiteral("frmDialog"), [](FormModel&) {});
            platform.showModal(dialog);
        },
        "left frmDialog shown");
}
