#include <functional>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

#include "GuiApp.h"
#include "MainWindowView.h"
#include "QtPlatform.h"
#include "TestFolder.h"
#include "VornaApp.h"
#include "VornaApplication.h"

namespace {

QAbstractButton* dialogButton(QWidget* dialog, QDialogButtonBox::StandardButton which)
{
    auto* box = dialog->findChild<QDialogButtonBox*>();
    return box ? box->button(which) : nullptr;
}

QStringList comboTexts(const QComboBox* combo)
{
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
        texts << combo->itemText(i);
    return texts;
}

using PlatformDialogTest = VornaWindowTest;

} // namespace

TEST_F(PlatformDialogTest, FileOpenOfAMissingNameReachesTheProgramsOwnBox)
{
    atNextModal([](QWidget* modal) {
        auto* dialog = qobject_cast<QFileDialog*>(modal);
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QStringLiteral("Gone.cmb"));
        dialogButton(dialog, QDialogButtonBox::Open)->click();
        atNextModal([](QWidget* box) {
            ASSERT_NE(qobject_cast<QMessageBox*>(box), nullptr);
            EXPECT_TRUE(box->windowTitle() == QStringLiteral("專案開啟失敗")
                || box->windowTitle() == QStringLiteral("Project Open Failed"))
                << box->windowTitle().toStdString();
            qobject_cast<QMessageBox*>(box)->button(QMessageBox::Ok)->click();
        });
    });
    vorna.mainForm.clickMenu(QStringLiteral("mnuFileOpen"));
    EXPECT_TRUE(vorna.g.project.ProjectName.isEmpty());
}

TEST_F(PlatformDialogTest, ABoxHasTheGivenButtonsTitleAndIconAndBelongsToTheMainWindow)
{
    struct Seen
    {
        QString title;
        QWidget* parent = nullptr;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        bool windowIcon = false;
        QList<QAbstractButton*> buttons;
        QString defaultText;
    } seen;
    atNextModal([&](QWidget* modal) {
        auto* box = qobject_cast<QMessageBox*>(modal);
        ASSERT_NE(box, nullptr);
        seen = {box->windowTitle(), box->parentWidget(), box->icon(), !box->windowIcon().isNull(),
            box->buttons(), box->defaultButton() ? box->defaultButton()->text() : QString()};
        box->button(QMessageBox::No)->click();
    });
    const int answer = platform.msgBox(
        QStringLiteral("Save?"), MsgBox::YesNoCancel | MsgBox::Exclamation, QStringLiteral("是否儲存專案"));

    EXPECT_EQ(answer, MsgBox::No);
    EXPECT_EQ(seen.title, QStringLiteral("是否儲存專案"));
    EXPECT_EQ(seen.parent, vorna.mainView());
    EXPECT_EQ(seen.icon, QMessageBox::Warning);
    EXPECT_TRUE(seen.windowIcon);
    EXPECT_EQ(seen.buttons.size(), 3);
    EXPECT_EQ(seen.defaultText, QStringLiteral("&Yes"));
}

TEST_F(PlatformDialogTest, TheToolkitSpeaksTheProgramsLanguage)
{
    InstallToolkitTranslation(QStringLiteral("ChineseBig5"));
    QString yes;
    atNextModal([&](QWidget* modal) {
        auto* box = qobject_cast<QMessageBox*>(modal);
        yes = box->button(QMessageBox::Yes)->text();
        box->button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(platform.msgBox(QStringLiteral("?"), MsgBox::YesNo, QStringLiteral("t")), MsgBox::Yes);
    EXPECT_TRUE(yes.contains(QStringLiteral("是"))) << yes.toStdString();
}

TEST_F(PlatformDialogTest, TheSaveDialogProposesTheNameAndTakesANewOne)
{
    FileDialogOptions options;
    options.DialogTitle = QStringLiteral("另存專案");
    options.InitDir = QStringLiteral("..\\Project");
    options.FileName = QStringLiteral("Project1");
    options.Filter = QStringLiteral("Quillbeacon設定檔案,(*.cbm)|*.cmb|所有檔案,(*.*)|*.*");
    atNextModal([](QWidget* modal) {
        auto* dialog = qobject_cast<QFileDialog*>(modal);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("另存專案"));
        EXPECT_EQ(comboTexts(dialog->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"))).first(),
            QStringLiteral("Quillbeacon設定檔案,(*.cbm)"));
        auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        EXPECT_EQ(name->text(), QStringLiteral("Project1"));
        name->setText(QStringLiteral("New.cmb"));
        dialogButton(dialog, QDialogButtonBox::Save)->click();
    });
    const auto chosen = platform.showSave(options);
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(*chosen, QDir(folder.projectDir()).filePath(QStringLiteral("New.cmb")));
}
