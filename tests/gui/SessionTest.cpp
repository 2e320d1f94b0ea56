#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include "GuiApp.h"
#include "ProjectRows.h"
#include "VBUtil.h"

namespace {

// Types over whatever the box holds, as a user who selects it all first.
void retype(QLineEdit* box, const QString& text)
{
    box->selectAll();
    QTest::keyClicks(box, text);
}

// Types the name into the file dialog and presses its button.
void answerFileDialog(QWidget* dialog, const char* name, QDialogButtonBox::StandardButton button)
{
    child<QLineEdit>(dialog, "fileNameEdit")->setText(name);
    dialog->findChild<QDialogButtonBox*>()->button(button)->click();
}

using SessionTest = VornaWindowTest;

} // namespace

// A short session in the real window, every dialog the real one: a new project, a group and a
// contact, a zone's texts, save, close, and back from the recent list.
TEST_F(SessionTest, ANewProjectEditedInTheWindowComesBackWholeFromTheRecentList)
{
    MainWindowView* window = vorna.mainView();

    // The file dialog belongs to the window, shows each filter's caption once and proposes a
    // name that is free.
    atNextModal([&](QWidget* dialog) {
        EXPECT_EQ(dialog->parentWidget(), window);
        const auto* types = child<QComboBox>(dialog, "fileTypeCombo");
        QStringList filters;
        for (int i = 0; i < types->count(); ++i)
            filters << types->itemText(i);
        EXPECT_EQ(filters, QStringList({"Quillbeacon configuration files,(*.cmb)", "All files,(*.*)"}));
        auto* name = child<QLineEdit>(dialog, "fileNameEdit");
        EXPECT_EQ(name->text(), "Project1");
        retype(name, "Site.cmb");
        QTest::keyClick(name, Qt::Key_Return);
    });
    chooseMenu("mnuFile", "mnuFileNew");
    ASSERT_EQ(vorna.g.project.ProjectName, "Site");

    atNextModal([](QWidget* input) {
        atNextModal([](QWidget* editor) {
            QTest::keyClicks(child<QPlainTextEdit>(editor, "txtGroupDsc"), "Brigade");
            child<QPushButton>(editor, "cmdOK")->click();
        });
        auto* name = child<QLineEdit>(input, "txtKeyInString");
        retype(name, "Fire");
        QTest::keyClick(name, Qt::Key_Return);
    });
    chooseMenu("mnuProj", "mnuProjAddGroupList");

    atNextModal([](QWidget* add) {
        atNextModal([](QWidget* editor) {
            QTest::keyClicks(child<QLineEdit>(editor, "txtTelNo"), "0911222333");
            child<QPushButton>(editor, "cmdOK")->click();
        });
        auto* name = child<QLineEdit>(add, "txtAddUserName");
        retype(name, "Ann");
        QTest::keyClick(name, Qt::Key_Return);
    });
    chooseMenu("mnuProj", "mnuProjAddTelList");

    child<QTreeView>(window, "tvProjectContent")
        ->setCurrentIndex(window->treeModel()->indexOfNode(FindNodeByTag(vorna.mainForm, "Zones,3")));
    atNextModal([](QWidget* editor) {
        retype(child<QLineEdit>(editor, "txtZoneName"), "Hall");
        QTest::keyClicks(child<QPlainTextEdit>(editor, "txtAlarmSMS"), "Fire in the hall");
        child<QPushButton>(editor, "cmdOK")->click();
    });
    chooseMenu("mnuProj", "mnuProjEditZoneList");

    chooseMenu("mnuFile", "mnuFileSave");
    EXPECT_EQ(CloseProject(vorna.g), 0) << "saved: nothing to ask";
    EXPECT_TRUE(vorna.mainForm.tvProjectContent.Nodes.empty());

    // What was typed into the real dialogs comes back with the project.
    chooseMenu("mnuFile", "mnuFileMRU(1)");
    ProjectState& p = vorna.g.project;
    EXPECT_EQ(Column(p.rsUsers, "PhoneNumber"), QStringList {"0911222333"});
    EXPECT_EQ(Column(p.rsUserGroups, "GroupDsc"), QStringList({"", "Brigade"}));
    EXPECT_EQ(Column(p.rsZones, "ZoneName").at(3), "Hall");
    EXPECT_EQ(Column(p.rsZones, "AlarmSMS").at(3), "Fire in the hall");
}

TEST_F(SessionTest, FileOpenOfAMissingNameReachesTheProgramsOwnBox)
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
TEST_F(SessionTest, ABoxBelongsToTheMainWindowAndSpeaksTheProgramsLanguage)
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

// The save dialog is the open dialog's, with its title and a Save button.
TEST_F(SessionTest, TheSaveDialogTakesANewName)
{
    FileDialogOptions options;
    options.DialogTitle = "另存專案";
    options.InitDir = "..\\Project";
    options.FileName = "Project1";
    options.Filter = "Quillbeacon設定檔案,(*.cbm)|*.cmb|所有檔案,(*.*)|*.*";
    atNextModal([](QWidget* dialog) {
        EXPECT_EQ(dialog->windowTitle(), "另存專案");
        answerFileDialog(dialog, "New.cmb", QDialogButtonBox::Save);
    });
    EXPECT_EQ(platform.showSave(options), QDir(folder.projectDir()).filePath("New.cmb"));
}
