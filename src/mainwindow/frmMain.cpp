#include "frmMain.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include <QRegularExpression>

#include "MenuDesign.h"
#include "ProjectFiles.h"
#include "UnhandledError.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"
#include "frmAbout.h"
#include "frmProjBasic.h"
#include "frmToolsOptions.h"

namespace {

const ModuleText T {"VORNAMain"};

// The window's entries of the form-text table: these, then its menu entries'.
const FormTextPath kControlTexts[] = {
    {""},
    {"lbllvNodeContentCaption"},
    {"lbltvProjectContentCaption"},
    {"sbStatusBar.Panels(1)", "Text"},
    {"sbStatusBar.Panels(2)", "Text"},
    {"sbStatusBar.Panels(3)", "Text"},
};

// The window's own rows, then a row for each menu entry that has one, in the menu table's order.
std::span<const FormTextPath> FormTexts()
{
    static const std::vector<FormTextPath> texts = [] {
        std::vector<FormTextPath> all(std::begin(kControlTexts), std::end(kControlTexts));
        for (const MenuDesign& d : MenuDesigns())
            if (d.formText)
                all.push_back({d.name});
        return all;
    }();
    return texts;
}

const MenuDesign* findDesign(const QString& name)
{
    for (const MenuDesign& d : MenuDesigns())
        if (name == QLatin1String(d.name))
            return &d;
    return nullptr;
}

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

QString storedSetting(VORNAGlobal& g, const char* key, const char* defaultValue)
{
    return g.platform.getSetting(g.program.App.Title, QStringLiteral("Settings"), QString::fromLatin1(key),
        QString::fromLatin1(defaultValue));
}

// A stored window measure: the text of a single-precision number.
double single(const QString& text)
{
    bool ok = false;
    const float value = text.trimmed().toFloat(&ok);
    if (!ok)
        throw UnhandledError(QStringLiteral("Type mismatch"));
    return value;
}

} // namespace

frmMain::frmMain(VORNAGlobal& g)
    : FormModel(g.ml, FormTexts())
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

void frmMain::Form_Load()
{
    Left = single(storedSetting(m_g, "MainLeft", "200"));
    Top = single(storedSetting(m_g, "MainTop", "200"));
    Width = single(storedSetting(m_g, "MainWidth", "10800"));
    Height = single(storedSetting(m_g, "MainHeight", "6900"));
    // The tree pane keeps the width that the user gave it; without one it fits its names.
    if (const QString given = storedSetting(m_g, "MainTreeWidth", ""); !given.isEmpty()) {
        imgSplitter.Left = single(given);
        m_treeWidthGiven = true;
    }
    mIsInDelay = false;
    notifyChanged();
}

void frmMain::LoadFormObj()
{
    panel(QStringLiteral("Status")).Text = T(m_g, "歡迎使用 簡訊報警機", 2, 976);
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
    m_treeWidthGiven = true;
    m_g.platform.saveSetting(m_g.program.App.Title, QStringLiteral("Settings"),
        QStringLiteral("MainTreeWidth"), QString::number(static_cast<float>(tvProjectContent.Width), 'g', 7));
    notifyChanged();
}

void frmMain::fitTreeWidth(double namesWidth)
{
    // At most half the window, so that a long name leaves the list its room.
    const double x = std::min(namesWidth, Width / 2);
    if (m_treeWidthGiven || x <= tvProjectContent.Width)
        return;
    double split = x;
    SizeControls(split);
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

void frmMain::mnuFileBasic_Click()
{
    ShowDialog<frmProjBasic>(m_g);
}

void frmMain::mnuFileMRU_Click(int Index)
{
    const QString caption = menu(QStringLiteral("mnuFileMRU(%1)").arg(Index)).Caption;
    if (caption != T(m_g, "(空)", 1, 831))
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

void frmMain::mnuToolsOptions_Click()
{
    ShowDialog<frmToolsOptions>(m_g);
}

void frmMain::mnuHelpAbout_Click()
{
    if (about)
        m_g.platform.showModal(*about);
}

void frmMain::openMenu(const QString& topName)
{
    // A top entry's click is its set-up.
    if (const MenuDesign* d = findDesign(topName); d && d->click && !*d->parent)
        (this->*d->click)();
}

void frmMain::clickMenu(const QString& name)
{
    static const QRegularExpression mruPath(QStringLiteral("^mnuFileMRU\\((\\d)\\)$"));
    if (const auto m = mruPath.match(name); m.hasMatch()) {
        mnuFileMRU_Click(m.captured(1).toInt());
        return;
    }
    if (const MenuDesign* d = findDesign(name); d && d->click && *d->parent)
        (this->*d->click)();
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

void frmMain::setStatusPicture(const QString& panelKey, const QString& image)
{
    panel(panelKey).Picture = image;
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
