#pragma once

#include <array>
#include <functional>
#include <vector>

#include <QString>

#include "CommControl.h"
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

    // A control's place in twips. A failed assignment (a negative size) leaves it as it was.
    struct ControlRect
    {
        double Left = 0;
        double Top = 0;
        double Width = 0;
        double Height = 0;
        bool Visible = true;
        bool operator==(const ControlRect&) const = default;
    };

    struct Label : ControlRect
    {
        QString Caption;
    };

    struct Panel
    {
        QString Key;
        QString Text;
        QString Picture; // image key of ImgListVORNA, or empty
        bool operator==(const Panel&) const = default;
    };

    struct StatusBar : ControlRect
    {
        std::array<Panel, 3> Panels;
    };

    // System colours as the tree stores them; any other value is an RGB colour (0xBBGGRR).
    static constexpr quint32 SystemWindowText = 0x80000008;
    static constexpr quint32 SystemGrayText = 0x80000011;

    struct Node
    {
        int Parent = -1; // index into Nodes, -1 for a top node
        QString Key;
        QString Text;
        QString Image;
        QString Tag;
        quint32 ForeColor = SystemWindowText;
        bool Expanded = false;
        bool operator==(const Node&) const = default;
    };

    struct TreeView : ControlRect
    {
        std::vector<Node> Nodes;
        int SelectedItem = -1; // index into Nodes, -1 for none
    };

    struct ColumnHeader
    {
        QString Text;
        double Width = 0;
        bool operator==(const ColumnHeader&) const = default;
    };

    struct ListItem
    {
        QString Text;
        std::vector<QString> SubItems; // SubItems(1) is SubItems[0]
        bool operator==(const ListItem&) const = default;
    };

    // The list view's View values; the window keeps the detail view of its design.
    static constexpr int lvwReport = 3;

    struct ListView : ControlRect
    {
        std::vector<ColumnHeader> ColumnHeaders;
        std::vector<ListItem> ListItems;
        int SelectedItem = -1; // index into ListItems, -1 for none
        int View = lvwReport;
    };

    // A menu entry. Top entries have an empty Parent; a Caption of "-" is a separator.
    struct MenuEntry
    {
        QString Name; // "mnuFileOpen", "mnuFileMRU(1)"
        QString Parent;
        QString Caption;
        QString Shortcut; // "Ctrl+N", or empty
        bool Enabled = true;
        bool Visible = true;
        bool Checked = false;
        bool HiddenByDesign = false;
        bool operator==(const MenuEntry&) const = default;
    };

    // The pause timer of the command loop. Start and stop it with setEnabled so that the
    // view's real timer follows.
    struct Timer
    {
        bool Enabled = false;
        int Interval = 30;
        std::function<void()> onEnabledChanged;
        void setEnabled(bool on)
        {
            Enabled = on;
            if (onEnabledChanged)
                onEnabledChanged();
        }
    };

    // Window geometry, twips. Width and Height are the window's outer size, ScaleHeight the
    // height of its client area below the menu bar (the view keeps it current).
    double Left = 200;
    double Top = 200;
    double Width = 10800;
    double Height = 6900;
    double ScaleHeight = 6210;
    int WindowState = 0; // 0 normal, 1 minimised, 2 maximised
    int MousePointer = 0;

    Label lbltvProjectContentCaption;
    Label lbllvNodeContentCaption;
    ControlRect picTitles;
    ControlRect imgSplitter;
    ControlRect picSplitter;
    TreeView tvProjectContent;
    ListView lvNodeContent;
    StatusBar sbStatusBar;
    std::vector<MenuEntry> Menus;
    Timer tmrSleep;
    // The serial control of the device link.
    CommControl CommCtl;

    bool mbMoving = false;
    bool mIsInDelay = false;

    // The about box that Help About shows; wired by the entry point.
    frmAbout* about = nullptr;

    MenuEntry& menu(const QString& name);
    const MenuEntry& menu(const QString& name) const;
    Panel& panel(const QString& key);

    void Form_Load();
    void ApplyFormText();
    void LoadFormObj();
    void RefreshFormObj() override;
    void CheckFormObj();
    void SaveFormObj();
    void SizeControls(double& x);
    void Form_Resize();
    void Form_Unload(int& Cancel);

    void imgSplitter_MouseDown();
    void imgSplitter_MouseMove(double x);
    void imgSplitter_MouseUp();

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
    void mnuViewRefresh_Click();
    void mnuHelpAbout_Click();

    // The view's entry points: a top menu about to drop down runs its set-up, an entry's
    // click runs its handler (entries without one do nothing).
    void openMenu(const QString& topName);
    void clickMenu(const QString& name);
    // A shortcut key ("Ctrl+N", "Ctrl+O", "Ctrl+S", "F5"): the set-up of its entry's menu
    // runs first, then the entry's click if the set-up left it enabled.
    void shortcut(const QString& key);

    void setStatusText(const QString& panelKey, const QString& text) override;
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
    void refreshTree() override;

private:
    void setControlText(const QString& objectPath, const QString& text);

    VORNAGlobal& m_g;
};
