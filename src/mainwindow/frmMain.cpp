#include "frmMain.h"

#include <QRegularExpression>

#include "ProjectFiles.h"
#include "UnhandledError.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"
#include "frmAbout.h"

namespace {

struct MenuDesign
{
    const char* name;
    const char* parent;
    const char* caption;
    const char* shortcut = "";
    bool hidden = false;
    bool checked = false;
};

// The menu bar as designed, in order, followed by the hidden popup of the tree and list.
const MenuDesign kMenuDesign[] = {
    {"mnuFile", "", "檔案(&F)"},
    {"mnuFileNew", "mnuFile", "開新專案(&N)...", "Ctrl+N"},
    {"mnuFileOpen", "mnuFile", "開啟專案(&O)", "Ctrl+O"},
    {"mnuFileSave", "mnuFile", "儲存專案(&S)", "Ctrl+S"},
    {"mnuFileSaveAs", "mnuFile", "另存專案(&A)"},
    {"mnuFileBar0", "mnuFile", "-"},
    {"mnuFileBasic", "mnuFile", "摘要資訊(&I)"},
    {"mnuFileBar1", "mnuFile", "-"},
    {"mnuFileMRU(1)", "mnuFile", "MRU1"},
    {"mnuFileMRU(2)", "mnuFile", "MRU2"},
    {"mnuFileMRU(3)", "mnuFile", "MRU3"},
    {"mnuFileMRU(4)", "mnuFile", "MRU4"},
    {"mnuFileBar2", "mnuFile", "-"},
    {"mnuFileExit", "mnuFile", "結束(&X)"},
    {"mnuProj", "", "專案(&P)"},
    {"mnuProjAddGroupList", "mnuProj", "新增群組"},
    {"mnuProjAddTelList", "mnuProj", "新增電話"},
    {"mnuProjBar0", "mnuProj", "-"},
    {"mnuProjEditGroupList", "mnuProj", "編輯群組"},
    {"mnuProjEditTelList", "mnuProj", "編輯電話"},
    {"mnuProjEditZoneList", "mnuProj", "編輯警報點"},
    {"mnuProjBar1", "mnuProj", "-"},
    {"mnuProjDeleteGroupList", "mnuProj", "刪除群組"},
    {"mnuProjDeleteTelList", "mnuProj", "刪除電話"},
    {"mnuView", "", "檢視(&V)"},
    {"mnuViewToolbar", "mnuView", "工具列(&T)", "", true, true},
    {"mnuViewStatusBar", "mnuView", "狀態列(&B)", "", true, true},
    {"mnuViewBar0", "mnuView", "-", "", true},
    {"mnuListViewMode(0)", "mnuView", "大圖示(&G)", "", true},
    {"mnuListViewMode(1)", "mnuView", "小圖示(&M)", "", true},
    {"mnuListViewMode(2)", "mnuView", "清單(&L)", "", true},
    {"mnuListViewMode(3)", "mnuView", "詳細資料(&D)", "", true},
    {"mnuViewBar1", "mnuView", "-", "", true},
    {"mnuViewArrangeIcons", "mnuView", "排列圖示(&I)", "", true},
    {"mnuViewBar2", "mnuView", "-", "", true},
    {"mnuViewRefresh", "mnuView", "重新整理(&R)", "F5"},
    {"mnuViewWebBrowser", "mnuView", "資訊網瀏覽器(&W)", "", true},
    {"mnuTools", "", "工具(&T)"},
    {"mnuToolsOptions", "mnuTools", "選項(&O)..."},
    {"mnuDevice", "", "簡訊報警機(&A)"},
    {"mnuDeviceConnect", "mnuDevice", "連線簡訊報警機"},
    {"mnuDeviceBar0", "mnuDevice", "-"},
    {"mnuDeviceDownLoad", "mnuDevice", "下載專案(&D)"},
    {"mnuDeviceSetting", "mnuDevice", "裝置設定(&S)"},
    {"mnuDeviceBar1", "mnuDevice", "-", "", true},
    {"mnuHelp", "", "說明(&H)"},
    {"mnuHelpContents", "mnuHelp", "內容(&C)", "", true},
    {"mnuHelpSearchForHelpOn", "mnuHelp", "搜尋說明主題(&S)...", "", true},
    {"mnuHelpBar0", "mnuHelp", "-", "", true},
    {"mnuHelpAbout", "mnuHelp", "關於簡訊報警機(&A)"},
    {"mnuProjConent", "", "專案內容", "", true},
    {"mnuProjConentAddGroupList", "mnuProjConent", "新增群組"},
    {"mnuProjConentAddTelList", "mnuProjConent", "新增電話"},
    {"mnuProjConentBar1", "mnuProjConent", "-"},
    {"mnuProjConentDeleteTelList", "mnuProjConent", "刪除電話"},
    {"mnuProjConentDeleteGroupList", "mnuProjConent", "刪除群組"},
    {"mnuProjConentEditGroupList", "mnuProjConent", "編輯群組"},
    {"mnuProjConentEditTelList", "mnuProjConent", "編輯電話"},
    {"mnuProjConentEditZoneList", "mnuProjConent", "編輯警報點"},
    {"mnuProjConentBar2", "mnuProjConent", "-"},
    {"mnuProjConentAddUser", "mnuProjConent", "加入連絡人"},
    {"mnuProjConentAddGroup", "mnuProjConent", "加入新群組"},
    {"mnuProjConentMoveUser", "mnuProjConent", "轉移到其它群組"},
};

struct FormText
{
    const char* path;
    const char* property = "Caption";
};

// The window's entries of the form-text table, in the order they are applied.
const FormText kFormTexts[] = {
    {""},
    {"lbllvNodeContentCaption"},
    {"lbltvProjectContentCaption"},
    {"sbStatusBar.Panels(1)", "Text"},
    {"sbStatusBar.Panels(2)", "Text"},
    {"sbStatusBar.Panels(3)", "Text"},
    {"mnuFile"},
    {"mnuFileNew"},
    {"mnuFileOpen"},
    {"mnuFileSave"},
    {"mnuFileSaveAs"},
    {"mnuFileBar0"},
    {"mnuFileBasic"},
    {"mnuFileBar1"},
    {"mnuFileMRU(1)"},
    {"mnuFileMRU(2)"},
    {"mnuFileMRU(3)"},
    {"mnuFileMRU(4)"},
    {"mnuFileBar2"},
    {"mnuFileExit"},
    {"mnuProj"},
    {"mnuProjAddGroupList"},
    {"mnuProjAddTelList"},
    {"mnuProjBar0"},
    {"mnuProjEditGroupList"},
    {"mnuProjEditTelList"},
    {"mnuProjEditZoneList"},
    {"mnuProjBar1"},
    {"mnuProjDeleteGroupList"},
    {"mnuProjDeleteTelList"},
    {"mnuView"},
    {"mnuViewToolbar"},
    {"mnuViewStatusBar"},
    {"mnuViewBar0"},
    {"mnuListViewMode(0)"},
    {"mnuListViewMode(1)"},
    {"mnuListViewMode(2)"},
    {"mnuListViewMode(3)"},
    {"mnuViewBar1"},
    {"mnuViewArrangeIcons"},
    {"mnuViewBar2"},
    {"mnuViewRefresh"},
    {"mnuTools"},
    {"mnuToolsOptions"},
    {"mnuViewWebBrowser"},
    {"mnuDevice"},
    {"mnuDeviceConnect"},
    {"mnuDeviceBar0"},
    {"mnuDeviceDownLoad"},
    {"mnuDeviceSetting"},
    {"mnuDeviceBar1"},
    {"mnuHelp"},
    {"mnuHelpContents"},
    {"mnuHelpSearchForHelpOn"},
    {"mnuHelpBar0"},
    {"mnuHelpAbout"},
    {"mnuProjConent"},
    {"mnuProjConentAddGroupList"},
    {"mnuProjConentAddTelList"},
    {"mnuProjConentEditGroupList"},
    {"mnuProjConentEditTelList"},
    {"mnuProjConentEditZoneList"},
    {"mnuProjConentDeleteGroupList"},
    {"mnuProjConentDeleteTelList"},
    {"mnuProjConentBar1"},
};

using Handler = void (frmMain::*)();

struct MenuHandler
{
    const char* name;
    Handler handler;
};

// Top menus whose click sets up their entries before they drop down.
const MenuHandler kMenuSetUps[] = {
    {"mnuFile", &frmMain::mnuFile_Click},
};

const MenuHandler kMenuClicks[] = {
    {"mnuFileNew", &frmMain::mnuFileNew_Click},
    {"mnuFileOpen", &frmMain::mnuFileOpen_Click},
    {"mnuFileSave", &frmMain::mnuFileSave_Click},
    {"mnuFileSaveAs", &frmMain::mnuFileSaveAs_Click},
    {"mnuFileBasic", &frmMain::mnuFileBasic_Click},
    {"mnuFileExit", &frmMain::mnuFileExit_Click},
    {"mnuViewRefresh", &frmMain::mnuViewRefresh_Click},
    {"mnuHelpAbout", &frmMain::mnuHelpAbout_Click},
};

// A size that the control refuses (negative) is skipped, as the layout's error trap does.
void setSize(double& property, double value)
{
    if (value >= 0)
        property = value;
}

// A stored window measure: the text of a single-precision number.
double settingSingle(VORNAGlobal& g, const char* key, const char* defaultValue)
{
    const QString text = g.platform.getSetting(g.program.App.Title, QStringLiteral("Settings"),
        QString::fromLatin1(key), QString::fromLatin1(defaultValue));
    bool ok = false;
    const float value = text.trimmed().toFloat(&ok);
    if (!ok)
        throw UnhandledError(QStringLiteral("Type mismatch"));
    return value;
}

} // namespace

frmMain::frmMain(VORNAGlobal& g)
    : CommCtl(g.platform)
    , m_g(g)
{
    m_g.link.CommCtl = &CommCtl;
    Caption = QStringLiteral("VORNA 規劃程式");

    picTitles = {0, 0, Width, 300};
    lbltvProjectContentCaption.Caption = QStringLiteral(" 專案名稱:");
    static_cast<ControlRect&>(lbltvProjectContentCaption) = {0, 30, 2000, 240};
    lbllvNodeContentCaption.Caption = QStringLiteral(" 清單檢視:");
    static_cast<ControlRect&>(lbllvNodeContentCaption) = {2060, 30, 8600, 240};
    static_cast<ControlRect&>(tvProjectContent) = {0, 300, 2000, 5595};
    static_cast<ControlRect&>(lvNodeContent) = {2040, 300, 8620, 5595};
    imgSplitter = {2000, 300, 45, 5595};
    picSplitter = {2000, 300, 22, 5575, false};
    static_cast<ControlRect&>(sbStatusBar) = {0, ScaleHeight - 315, Width, 315};
    sbStatusBar.Panels = {{{QStringLiteral("Status"), QStringLiteral("狀態"), {}},
        {QStringLiteral("ProjName"), QStringLiteral("專案名稱"), {}},
        {QStringLiteral("ConnectStatus"), QStringLiteral("Offline"), {}}}};

    for (const MenuDesign& d : kMenuDesign) {
        MenuEntry e;
        e.Name = QString::fromUtf8(d.name);
        e.Parent = QString::fromUtf8(d.parent);
        e.Caption = QString::fromUtf8(d.caption);
        e.Shortcut = QString::fromUtf8(d.shortcut);
        e.HiddenByDesign = d.hidden;
        e.Visible = !d.hidden;
        e.Checked = d.checked;
        Menus.push_back(e);
    }
}

frmMain::MenuEntry& frmMain::menu(const QString& name)
{
    for (MenuEntry& e : Menus)
        if (e.Name == name)
            return e;
    throw UnhandledError(QStringLiteral("Method or data member not found: ") + name);
}

const frmMain::MenuEntry& frmMain::menu(const QString& name) const
{
    return const_cast<frmMain*>(this)->menu(name);
}

frmMain::Panel& frmMain::panel(const QString& key)
{
    for (Panel& p : sbStatusBar.Panels)
        if (p.Key == key)
            return p;
    throw UnhandledError(QStringLiteral("Element not found: ") + key);
}

void frmMain::Form_Load()
{
    ApplyFormText();
    Left = settingSingle(m_g, "MainLeft", "200");
    Top = settingSingle(m_g, "MainTop", "200");
    Width = settingSingle(m_g, "MainWidth", "10800");
    Height = settingSingle(m_g, "MainHeight", "6900");
    mIsInDelay = false;
    notifyChanged();
}

void frmMain::ApplyFormText()
{
    for (const FormText& t : kFormTexts) {
        const QString path = QString::fromLatin1(t.path);
        setControlText(path, m_g.ml.GetFormText(formName(), path, QString::fromLatin1(t.property)));
    }
}

void frmMain::setControlText(const QString& objectPath, const QString& text)
{
    static const QRegularExpression panelPath(QStringLiteral("^sbStatusBar\\.Panels\\((\\d)\\)$"));
    if (objectPath.isEmpty()) {
        Caption = text;
    } else if (objectPath == QLatin1String("lbllvNodeContentCaption")) {
        lbllvNodeContentCaption.Caption = text;
    } else if (objectPath == QLatin1String("lbltvProjectContentCaption")) {
        lbltvProjectContentCaption.Caption = text;
    } else if (const auto m = panelPath.match(objectPath); m.hasMatch()) {
        sbStatusBar.Panels.at(m.captured(1).toInt() - 1).Text = text;
    } else {
        menu(objectPath).Caption = text;
    }
}

void frmMain::LoadFormObj()
{
    panel(QStringLiteral("Status")).Text
        = m_g.GetText(QStringLiteral("歡迎使用 簡訊報警機"), 2, 976, QStringLiteral("VORNAMain"));
    panel(QStringLiteral("ProjName")).Text = QString();
    RefreshFormObj();
}

void frmMain::RefreshFormObj()
{
    lbltvProjectContentCaption.Caption = m_g.project.ProjectName;
    mktvProjContent();
    mklvNodeContent();
    panel(QStringLiteral("ProjName")).Text = m_g.project.ProjectName;
    notifyChanged();
}

void frmMain::CheckFormObj() { }

void frmMain::SaveFormObj() { }

void frmMain::SizeControls(double& x)
{
    if (x < 1500)
        x = 1500;
    if (x > Width - 1500)
        x = Width - 1500;

    setSize(tvProjectContent.Width, x);
    imgSplitter.Left = x;
    lvNodeContent.Left = x + 40;
    setSize(lvNodeContent.Width, Width - (tvProjectContent.Width + 140));

    setSize(lbltvProjectContentCaption.Width, tvProjectContent.Width);
    lbllvNodeContentCaption.Left = lvNodeContent.Left + 20;
    setSize(lbllvNodeContentCaption.Width, lvNodeContent.Width - 40);

    lvNodeContent.Top = tvProjectContent.Top;
    if (sbStatusBar.Visible)
        setSize(
            tvProjectContent.Height, ScaleHeight - (picTitles.Top + picTitles.Height + sbStatusBar.Height));
    else
        setSize(tvProjectContent.Height, ScaleHeight - (picTitles.Top + picTitles.Height));

    setSize(lvNodeContent.Height, tvProjectContent.Height);
    imgSplitter.Top = tvProjectContent.Top;
    setSize(imgSplitter.Height, tvProjectContent.Height);
}

void frmMain::Form_Resize()
{
    if (Width < 3000)
        Width = 3000;
    double x = imgSplitter.Left;
    SizeControls(x);
}

void frmMain::Form_Unload(int& Cancel)
{
    if (!m_g.project.ProjectName.isEmpty()) {
        if (CloseProject(m_g) == ProjectResult::Cancelled) {
            Cancel = 1;
            return;
        }
    }
    ExitApplication(m_g, true);
}

void frmMain::imgSplitter_MouseDown()
{
    picSplitter.Left = imgSplitter.Left;
    picSplitter.Top = imgSplitter.Top;
    picSplitter.Width = imgSplitter.Width / 2;
    setSize(picSplitter.Height, imgSplitter.Height - 20);
    picSplitter.Visible = true;
    mbMoving = true;
    notifyChanged();
}

void frmMain::imgSplitter_MouseMove(double x)
{
    if (!mbMoving)
        return;
    const double p = x + imgSplitter.Left;
    if (p < 500)
        picSplitter.Left = 500;
    else if (!(Width - 500 < p))
        picSplitter.Left = p;
    else
        picSplitter.Left = Width - 500;
    notifyChanged();
}

void frmMain::imgSplitter_MouseUp()
{
    // The position goes by value: SizeControls' correction stays with the panes.
    double x = picSplitter.Left;
    SizeControls(x);
    picSplitter.Visible = false;
    mbMoving = false;
    notifyChanged();
}

void frmMain::tmrSleep_Timer()
{
    mIsInDelay = false;
    tmrSleep.setEnabled(false);
}

void frmMain::mkRecentFilePathMenu()
{
    for (int i = 1; i <= 4; ++i) {
        MenuEntry& e = menu(QStringLiteral("mnuFileMRU(%1)").arg(i));
        if (i > m_g.system.MRUCount) {
            e.Caption = QString();
            e.Enabled = false;
            e.Visible = false;
        } else {
            e.Caption = m_g.system.MRUFilePath(i);
            e.Enabled = true;
            e.Visible = true;
        }
    }
    notifyChanged();
}

void frmMain::mnuFile_Click()
{
    mkRecentFilePathMenu();
    if (m_g.project.ProjectName.isEmpty()) {
        menu(QStringLiteral("mnuFileSave")).Enabled = false;
        menu(QStringLiteral("mnuFileSaveAs")).Enabled = false;
        menu(QStringLiteral("mnuFileBasic")).Enabled = false;
    } else {
        menu(QStringLiteral("mnuFileSaveAs")).Enabled = true;
        menu(QStringLiteral("mnuFileBasic")).Enabled = true;
        menu(QStringLiteral("mnuFileSave")).Enabled = m_g.project.IsProjectModified;
    }
}

void frmMain::mnuFileNew_Click()
{
    NewProject(m_g);
}

void frmMain::mnuFileOpen_Click()
{
    OpenProject(m_g, QString());
}

void frmMain::mnuFileSave_Click()
{
    SaveProject(m_g, true, false, false);
}

void frmMain::mnuFileSaveAs_Click()
{
    SaveProjectAs(m_g);
}

// The project summary dialog arrives with the model dialogs; until then the entry does nothing.
void frmMain::mnuFileBasic_Click() { }

void frmMain::mnuFileMRU_Click(int Index)
{
    const QString caption = menu(QStringLiteral("mnuFileMRU(%1)").arg(Index)).Caption;
    if (caption != m_g.GetText(QStringLiteral("(空)"), 1, 831, QStringLiteral("VORNAMain")))
        OpenProject(m_g, caption);
}

void frmMain::mnuFileExit_Click()
{
    ExitApplication(m_g, true);
}

void frmMain::mnuViewRefresh_Click()
{
    if (!m_g.project.ProjectName.isEmpty()) {
        mktvProjContent();
        mklvNodeContent();
        notifyChanged();
    }
}

void frmMain::mnuHelpAbout_Click()
{
    if (about)
        m_g.platform.showModal(*about);
}

void frmMain::openMenu(const QString& topName)
{
    for (const MenuHandler& h : kMenuSetUps)
        if (topName == QLatin1String(h.name))
            (this->*h.handler)();
}

void frmMain::clickMenu(const QString& name)
{
    static const QRegularExpression mruPath(QStringLiteral("^mnuFileMRU\\((\\d)\\)$"));
    if (const auto m = mruPath.match(name); m.hasMatch()) {
        mnuFileMRU_Click(m.captured(1).toInt());
        return;
    }
    for (const MenuHandler& h : kMenuClicks)
        if (name == QLatin1String(h.name))
            (this->*h.handler)();
}

void frmMain::shortcut(const QString& key)
{
    for (const MenuEntry& e : Menus) {
        if (e.Shortcut != key)
            continue;
        const QString name = e.Name;
        openMenu(e.Parent);
        if (menu(name).Enabled)
            clickMenu(name);
        return;
    }
}

void frmMain::setStatusText(const QString& panelKey, const QString& text)
{
    panel(panelKey).Text = text;
    notifyChanged();
}

void frmMain::setMousePointer(int pointer)
{
    MousePointer = pointer;
    m_g.platform.setMousePointer(pointer);
    notifyChanged();
}

frmMain::~frmMain()
{
    if (m_g.link.CommCtl == &CommCtl)
        m_g.link.CommCtl = nullptr;
}

void frmMain::startSleep()
{
    mIsInDelay = true;
    tmrSleep.setEnabled(true);
}

std::optional<ProjectView::WindowPlacement> frmMain::windowPlacement() const
{
    return WindowPlacement {Left, Top, Width, Height, WindowState, lvNodeContent.View};
}
