#include "frmMain.h"

#include <QRegularExpression>

#include "MenuDesign.h"
#include "ProjectFiles.h"
#include "UnhandledError.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"
#include "frmAbout.h"

namespace {

// The window's entries of the form-text table, in the order they are applied.
const FormTextPath kFormTexts[] = {
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
    {"mnuProj", &frmMain::mnuProj_Click},
};

const MenuHandler kMenuClicks[] = {
    {"mnuFileNew", &frmMain::mnuFileNew_Click},
    {"mnuFileOpen", &frmMain::mnuFileOpen_Click},
    {"mnuFileSave", &frmMain::mnuFileSave_Click},
    {"mnuFileSaveAs", &frmMain::mnuFileSaveAs_Click},
    {"mnuFileBasic", &frmMain::mnuFileBasic_Click},
    {"mnuFileExit", &frmMain::mnuFileExit_Click},
    {"mnuProjAddGroupList", &frmMain::mnuProjAddGroupList_Click},
    {"mnuProjAddTelList", &frmMain::mnuProjAddTelList_Click},
    {"mnuProjEditGroupList", &frmMain::mnuProjEditGroupList_Click},
    {"mnuProjEditTelList", &frmMain::mnuProjEditTelList_Click},
    {"mnuProjEditZoneList", &frmMain::mnuProjEditZoneList_Click},
    {"mnuProjDeleteGroupList", &frmMain::mnuProjDeleteGroupList_Click},
    {"mnuProjDeleteTelList", &frmMain::mnuProjDeleteTelList_Click},
    {"mnuViewRefresh", &frmMain::mnuViewRefresh_Click},
    {"mnuHelpAbout", &frmMain::mnuHelpAbout_Click},
};

// A size that the control refuses (negative) is skipped: the layout goes on with the others.
void setSize(double& property, double value)
{
    if (value >= 0)
        property = value;
}

void place(Control& c, double left, double top, double width, double height)
{
    c.Left = left;
    c.Top = top;
    c.Width = width;
    c.Height = height;
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
    : FormModel(g.ml, kFormTexts)
    , CommCtl(g.platform)
    , m_g(g)
{
    m_g.link.CommCtl = &CommCtl;
    Caption = QStringLiteral("VORNA 規劃程式");

    place(picTitles, 0, 0, Width, 300);
    lbltvProjectContentCaption.Caption = QStringLiteral(" 專案名稱:");
    place(lbltvProjectContentCaption, 0, 30, 2000, 240);
    lbllvNodeContentCaption.Caption = QStringLiteral(" 清單檢視:");
    place(lbllvNodeContentCaption, 2060, 30, 8600, 240);
    place(tvProjectContent, 0, 300, 2000, 5595);
    place(lvNodeContent, 2040, 300, 8620, 5595);
    place(imgSplitter, 2000, 300, 45, 5595);
    place(picSplitter, 2000, 300, 22, 5575);
    picSplitter.Visible = false;
    place(sbStatusBar, 0, ScaleHeight - 315, Width, 315);
    sbStatusBar.Panels = {{QStringLiteral("Status"), QStringLiteral("狀態"), {}},
        {QStringLiteral("ProjName"), QStringLiteral("專案名稱"), {}},
        {QStringLiteral("ConnectStatus"), QStringLiteral("Offline"), {}}};
    tmrSleep.Enabled = false;
    tmrSleep.Interval = 30;

    for (const MenuDesign& d : MenuDesigns()) {
        Menu& e = Menus.emplace_back();
        e.Name = QString::fromUtf8(d.name);
        e.Parent = QString::fromUtf8(d.parent);
        e.Caption = QString::fromUtf8(d.caption);
        e.Shortcut = QString::fromUtf8(d.shortcut);
        e.HiddenByDesign = d.hidden;
        e.Visible = !d.hidden;
        e.Checked = d.checked;
        registerControl(e);
    }
}

Menu& frmMain::menu(const QString& name)
{
    for (Menu& e : Menus)
        if (e.Name == name)
            return e;
    throw UnhandledError(QStringLiteral("Method or data member not found: ") + name);
}

const Menu& frmMain::menu(const QString& name) const
{
    return const_cast<frmMain*>(this)->menu(name);
}

Panel& frmMain::panel(const QString& key)
{
    for (Panel& p : sbStatusBar.Panels)
        if (p.Key == key)
            return p;
    throw UnhandledError(QStringLiteral("Element not found: ") + key);
}

std::span<const FormTextPath> frmMain::formTexts() const
{
    return kFormTexts;
}

void frmMain::Form_Load()
{
    Left = settingSingle(m_g, "MainLeft", "200");
    Top = settingSingle(m_g, "MainTop", "200");
    Width = settingSingle(m_g, "MainWidth", "10800");
    Height = settingSingle(m_g, "MainHeight", "6900");
    mIsInDelay = false;
    notifyChanged();
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
        Menu& e = menu(QStringLiteral("mnuFileMRU(%1)").arg(i));
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
    for (const Menu& e : Menus) {
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
