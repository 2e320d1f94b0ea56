#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include <QString>

#include "CommControl.h"
#include "ContextMenu.h"
#include "FormModel.h"
#include "ProjectView.h"

class VORNAGlobal;
class Recordset;
class frmAbout;

// The main window as a model: every control's state as plain members, in twips, and the
// window's handlers under their own names. A view paints these members and forwards its
// events; tests drive the handlers directly.
class frmMain : public FormModel, public ProjectView
{
public:
    explicit frmMain(VORNAGlobal& g);
    ~frmMain() override;
    QString formName() const override { return QStringLiteral("frmMain"); }

    // Window geometry, twips. Width and Height are the window's outer size, ScaleHeight the
    // height of its client area below the menu bar (the view keeps it current).
    double Left = 200;
    double Top = 200;
    double Width = 10800;
    double Height = 6900;
    double ScaleHeight = 6210;
    int WindowState = 0; // 0 normal, 1 minimised, 2 maximised

    Label lbltvProjectContentCaption {*this, "lbltvProjectContentCaption"};
    Label lbllvNodeContentCaption {*this, "lbllvNodeContentCaption"};
    Control picTitles {*this, "picTitles"};
    Control imgSplitter {*this, "imgSplitter"};
    Control picSplitter {*this, "picSplitter"};
    TreeView tvProjectContent {*this, "tvProjectContent"};
    ListView lvNodeContent {*this, "lvNodeContent"};
    StatusBar sbStatusBar {*this, "sbStatusBar"};
    // The menu bar and the popup of the tree and list, in the order of the menu table. A deque,
    // so that the entries stay where they are registered.
    std::deque<Menu> Menus;
    Timer tmrSleep {*this, "tmrSleep"};
    // The serial control of the device link.
    CommControl CommCtl;

    bool mbMoving = false;
    bool mIsInDelay = false;

    // The about box that Help About shows; wired by the entry point.
    frmAbout* about = nullptr;

    Menu& menu(const QString& name);
    const Menu& menu(const QString& name) const;
    Panel& panel(const QString& key);

    void Form_Load() override;
    void LoadFormObj();
    void RefreshFormObj() override;
    void CheckFormObj();
    void SaveFormObj();
    void SizeControls(double& x);
    void Form_Resize();
    void Form_Unload(int& Cancel);

    void imgSplitter_MouseDown();
    void imgSplitter_MouseMove(double x);
    // The release stores the tree pane's width that the user gave, for the next run.
    void imgSplitter_MouseUp();
    // Widens the tree pane to the width that shows every node's name (twips, measured by the
    // view), until the user gives it a width of their own: it never narrows it.
    void fitTreeWidth(double namesWidth);

    void tmrSleep_Timer();

    // The tree and its tags are in ProjectTree.cpp, the list in ContentList.cpp.
    void mktvProjContent();
    void mklvNodeContent() override;
    void LocateCurRecord(NodeTagItems& Items, qint16 count, bool& found) override;
    void PutTableTolvNodeContent(const QString& TableName, Recordset& rs, const QString& FilterField,
        const QString& FilterValue = QString());
    void PutRecordTolvNodeContent(const QString& TableName, Recordset& rs);
    void tvProjectContent_NodeClick();
    void tvProjectContent_DblClick();
    void lvNodeContent_DblClick();
    void mkRecentFilePathMenu() override;

    void mnuFile_Click();
    void mnuFileNew_Click();
    void mnuFileOpen_Click();
    void mnuFileSave_Click();
    void mnuFileSaveAs_Click();
    void mnuFileBasic_Click();
    void mnuFileMRU_Click(int Index);
    void mnuFileExit_Click();
    // The Project menu is in ProjectMenu.cpp.
    void mnuProj_Click();
    void mnuProjAddGroupList_Click();
    void mnuProjAddTelList_Click();
    void mnuProjEditGroupList_Click();
    void mnuProjEditTelList_Click();
    void mnuProjEditZoneList_Click();
    void mnuProjDeleteGroupList_Click();
    void mnuProjDeleteTelList_Click();
    void mnuViewRefresh_Click();
    void mnuToolsOptions_Click();
    // The Device menu is in DeviceMenu.cpp.
    void mnuDevice_Click();
    void mnuDeviceConnect_Click();
    void mnuDeviceDownLoad_Click();
    void mnuDeviceSetting_Click();
    void mnuHelpAbout_Click();

    // The context menu of the tree and the list is in ContextMenuCommands.cpp. The release of
    // the right button (Button 2) decides the entries, makes the record current and pops the
    // menu up.
    void tvProjectContent_MouseUp(int Button, int Shift);
    void lvNodeContent_MouseUp(int Button, int Shift);
    // Delete on the tree or the list runs the context menu's delete entry when the menu of that
    // node or row offers one; the entries keep what the last right click left them.
    void tvProjectContent_KeyDelete();
    void lvNodeContent_KeyDelete();
    void mnuProjConentAddGroupList_Click();
    void mnuProjConentAddTelList_Click();
    void mnuProjConentDeleteTelList_Click();
    void mnuProjConentDeleteGroupList_Click();
    void mnuProjConentEditGroupList_Click();
    void mnuProjConentEditTelList_Click();
    void mnuProjConentEditZoneList_Click();
    void mnuProjConentAddUser_Click();
    void mnuProjConentAddGroup_Click();
    void mnuProjConentMoveUser_Click();
    // Pops a menu up by its top entry's name; the view shows it, at the pointer for a click.
    std::function<void(const QString& menuName)> onPopupMenu;
    void PopupMenu(const QString& menuName);

    // The view's entry points: a top menu about to drop down runs its set-up, an entry's
    // click runs its handler (entries without one do nothing).
    void openMenu(const QString& topName);
    void clickMenu(const QString& name);
    // A shortcut key ("Ctrl+N", "Ctrl+O", "Ctrl+S", "F5"): the set-up of its entry's menu
    // runs first, then the entry's click if the set-up left it enabled.
    void shortcut(const QString& key);

    void setStatusText(const QString& panelKey, const QString& text) override;
    void setStatusPicture(const QString& panelKey, const QString& image) override;
    void setMousePointer(int pointer) override;
    std::optional<WindowPlacement> windowPlacement() const override;
    void startSleep() override;
    bool isInDelay() const override { return mIsInDelay; }

    int nodeCount() const override;
    QString nodeTag(int node) const override;
    int addNode(int parent, const QString& key, const QString& text, const QString& image,
        const QString& tag) override;
    void removeNode(int node) override;
    void selectNode(int node) override;
    void setNodeText(int node, const QString& text) override;
    void setNodeTag(int node, const QString& tag) override;
    void setNodeForeColor(int node, quint32 color) override;
    void refreshTree() override;

private:
    // Decides the context menu of a right click on the tree or the list, on the entries given,
    // and makes its record current when it shows (found tells whether it was); NoMenu when none
    // shows.
    ContextMenuSet contextMenu(bool onList, const ContextMenuEntries& entries, bool& found);
    ContextMenuEntries contextEntries();
    void deleteByKey(bool onList);
    // The tree's selected node parsed, with its displayed text; false with no selection.
    bool selectedNode(NodeTagItems& Items, qint16& count, QString& text) const;
    // The group that adding and moving members works on, if the selection names one.
    std::optional<QString> contextGroup() const;
    void warnTargetLimit();

    VORNAGlobal& m_g;
    // The user set the tree pane's width by the splitter, in this run or an earlier one.
    bool m_treeWidthGiven = false;
};
