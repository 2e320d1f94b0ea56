#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

#include "GuiApp.h"

namespace {

// Types the name into the file dialog and presses its button.
void answerFileDialog(QWidget* dialog, const char* name, QDialogButtonBox::StandardButton button)
{
    child<QLineEdit>(dialog, "fileNameEdit")->setText(name);
    dialog->findChild<QDialogButtonBox*>()->button(button)->click();
}

using PlatformDialogTest = VornaWindowTest;

} // namespace

TEST_F(PlatformDialogTest, FileOpenOfAMissingNameReachesTheProgramsOwnBox)
{
    atNextModal([](QWidget* dialog) {
        ASSERT_NE(qobject_cast<QFileDialog*>(dialog), nullptr);
        atNextModal([](QWidget* box) {
            ASSERT_NE(qobject_cast<QMessageBox*>(box), nullptr);
            EXPECT_TRUE(box->windowTitle() == "專案開啟失敗" || box->windowTitle() == "Project Open Failed")
                << box->windowTitle().toStdString();
            qobject_cast<QMessageBox*>(box)->button(QMessageBox::Ok)->click();
        });
        answerFileDialog(dialog, "Gone.cmb", QDialogButtonBox::Open);
    });
    vorna.mainForm.clickMenu("mnuFileOpen");
    EXPECT_TRUE(vorna.g.project.ProjectName.isEmpty());
}

// A box belongs to the main window and has the flags' buttons, icon and default; the toolkit's
// own button texts follow the program's language.
TEST_F(PlatformDialogTest, ABoxBelongsToTheMainWindowAndSpeaksTheProgramsLanguage)
{
    atNextModal([&](QWidget* modal) {
        auto* box = qobject_cast<QMessageBox*>(modal);
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->windowTitle(), "是否儲存專案");
        EXPECT_EQ(box->parentWidget(), vorna.mainView());
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        EXPECT_FALSE(box->windowIcon().isNull());
        EXPECT_EQ(box->buttons().size(), 3);
        EXPECT_EQ(box->defaultButton() ? box->defaultButton()->text() : QString(), "&Yes");
        box->button(QMessageBox::No)->click();
    });
    EXPECT_EQ(
        platform.msgBox("Save?", MsgBox::YesNoCancel | MsgBox::Exclamation, "是否儲存專案"), MsgBox::No);

    InstallToolkitTranslation("ChineseBig5");
    atNextModal([](QWidget* modal) {
        QAbstractButton* yes = qobject_cast<QMessageBox*>(modal)->button(QMessageBox::Yes);
        EXPECT_TRUE(yes->text().contains("是")) << yes->text().toStdString();
        yes->click();
    });
    EXPECT_EQ(platform.msgBox("?", MsgBox::YesNo, "t"), MsgBox::Yes);
}

// The filter's caption shows as written even where it differs from its pattern.
TEST_F(PlatformDialogTest, TheSaveDialogProposesTheNameAndTakesANewOne)
{
    FileDialogOptions options;
    options.DialogTitle = "另存專案";
    options.InitDir = "..\\Project";
    options.FileName = "Project1";
    options.Filter = "Quillbeacon設定檔案,(*.cbm)|*.cmb|所有檔案,(*.*)|*.*";
    atNextModal([](QWidget* dialog) {
        EXPECT_EQ(dialog->windowTitle(), "另存專案");
        EXPECT_EQ(child<QComboBox>(dialog, "fileTypeCombo")->itemText(0), "Quillbeacon設定檔案,(*.cbm)");
        EXPECT_EQ(child<QLineEdit>(dialog, "fileNameEdit")->text(), "Project1");
        answerFileDialog(dialog, "New.cmb", QDialogButtonBox::Save);
    });
    EXPECT_EQ(platform.showSave(options), QDir(folder.projectDir()).filePath("New.cmb"));
}
