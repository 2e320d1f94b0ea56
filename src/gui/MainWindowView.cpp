#include "MainWindowView.h"

#include <algorithm>
#include <functional>
#include <vector>

#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QStyleOptionViewItem>
#include <QTreeView>

#include "EventWatch.h"
#include "Icons.h"
#include "ProjectTreeModel.h"
#include "Twips.h"
#include "frmMain.h"

namespace {

// The window's client area below the menu bar; its size is the form's ScaleHeight.
class ClientArea : public QWidget
{
public:
    std::function<void()> onResized;

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QWidget::resizeEvent(event);
        if (onResized)
            onResized();
    }
};

// The transparent grip between the panes: it only reports the mouse, x in twips.
class SplitterGrip : public QWidget
{
public:
    std::function<void()> onDown;
    std::function<void(double)> onMove;
    std::function<void()> onUp;

    explicit SplitterGrip(QWidget* parent)
        : QWidget(parent)
    {
        setCursor(Qt::SplitHCursor);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        if (event->button() == Qt::LeftButton && onDown)
            onDown();
    }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (onMove)
            onMove(Twips::fromPixels(qRound(event->position().x())));
    }
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        if (event->button() == Qt::LeftButton && onUp)
            onUp();
    }
};

void place(QWidget* w, const Control& r)
{
    w->setGeometry(
        Twips::toPixels(r.Left), Twips::toPixels(r.Top), Twips::toPixels(r.Width), Twips::toPixels(r.Height));
}

} // namespace

MainWindowView::MainWindowView(frmMain& model, QWidget* parent)
    : BoundView<QMainWindow>(model, parent)
    , m_model(model)
{
    setWindowIcon(Icons::icon(QStringLiteral("VORNA")));
    setMinimumWidth(Twips::toPixels(3000));

    auto* client = new ClientArea;
    client->setObjectName(QStringLiteral("frmMainClient"));
    client->onResized = [this] { clientResized(); };
    m_client = client;
    setCentralWidget(client);

    m_picTitles = new QWidget(m_client);
    m_binder.bind(m_picTitles, m_model.picTitles);
    m_lbltvProjectContentCaption = new QLabel(m_picTitles);
    m_binder.bind(m_lbltvProjectContentCaption, m_model.lbltvProjectContentCaption);
    m_lbllvNodeContentCaption = new QLabel(m_picTitles);
    m_binder.bind(m_lbllvNodeContentCaption, m_model.lbllvNodeContentCaption);
    for (QLabel* l : {m_lbltvProjectContentCaption, m_lbllvNodeContentCaption}) {
        l->setFrameShape(QFrame::Panel);
        l->setFrameShadow(QFrame::Sunken);
    }

    m_tvProjectContent = new QTreeView(m_client);
    m_tvProjectContent->setHeaderHidden(true);
    m_binder.bind(
        m_tvProjectContent, m_model.tvProjectContent, [this] { m_model.tvProjectContent_NodeClick(); },
        [this] { m_model.tvProjectContent_DblClick(); });
    // Each time the nodes change, the pane may widen to show their names.
    connect(m_tvProjectContent->model(), &QAbstractItemModel::modelReset, this,
        [this] { m_model.fitTreeWidth(Twips::fromPixels(namesWidth())); });

    m_lvNodeContent = new QTreeView(m_client);
    m_binder.bind(m_lvNodeContent, m_model.lvNodeContent, [this] { m_model.lvNodeContent_DblClick(); });

    watchContextMenu(
        m_tvProjectContent,
        [this](int Button, int Shift) { m_model.tvProjectContent_MouseUp(Button, Shift); },
        [this] { m_model.tvProjectContent_KeyDelete(); });
    watchContextMenu(
        m_lvNodeContent, [this](int Button, int Shift) { m_model.lvNodeContent_MouseUp(Button, Shift); },
        [this] { m_model.lvNodeContent_KeyDelete(); });

    auto* grip = new SplitterGrip(m_client);
    m_binder.bind(grip, m_model.imgSplitter);
    grip->onDown = [this] { m_model.imgSplitter_MouseDown(); };
    grip->onMove = [this](double x) { m_model.imgSplitter_MouseMove(x); };
    grip->onUp = [this] { m_model.imgSplitter_MouseUp(); };
    m_imgSplitter = grip;

    m_picSplitter = new QWidget(m_client);
    m_binder.bind(m_picSplitter, m_model.picSplitter);
    m_picSplitter->setAutoFillBackground(true);
    QPalette bar = m_picSplitter->palette();
    bar.setColor(QPalette::Window, palette().color(QPalette::Dark));
    m_picSplitter->setPalette(bar);
    m_picSplitter->hide();

    m_sbStatusBar = new QStatusBar(m_client);
    m_binder.bind(m_sbStatusBar, m_model.sbStatusBar);

    buildMenus();
    // The menu is painted before it pops up: the handler that asks for it has not returned yet.
    m_model.onPopupMenu = [this](const QString& name) {
        refreshMenus();
        if (QMenu* menu = m_actions.at(name)->menu())
            menu->popup(m_popupAt);
    };

    m_tmrSleep = new QTimer(this);
    m_tmrSleep->setObjectName(m_model.tmrSleep.Name);
    connect(m_tmrSleep, &QTimer::timeout, this, [this] { m_model.tmrSleep_Timer(); });
    m_model.tmrSleep.onEnabledChanged = [this] {
        if (m_model.tmrSleep.Enabled)
            m_tmrSleep->start(m_model.tmrSleep.Interval);
        else
            m_tmrSleep->stop();
    };

    refresh();
}

MainWindowView::~MainWindowView()
{
    m_model.onPopupMenu = nullptr;
    m_model.tmrSleep.onEnabledChanged = nullptr;
}

void MainWindowView::buildMenus()
{
    std::map<QString, QMenu*> menus;
    for (const Menu& e : m_model.Menus) {
        const QString name = e.Name;
        if (e.Parent.isEmpty()) {
            QMenu* menu = menuBar()->addMenu(e.Caption);
            menu->setObjectName(name);
            // The two bars around the recent entries both show when the entries are hidden.
            menu->setSeparatorsCollapsible(false);
            menu->menuAction()->setObjectName(name);
            connect(menu, &QMenu::aboutToShow, this,
                [this, name] { m_binder.run([this, name] { m_model.openMenu(name); }); });
            menus[name] = menu;
            m_actions[name] = menu->menuAction();
            continue;
        }
        QAction* action = menus.at(e.Parent)->addAction(e.Caption);
        action->setObjectName(name);
        connect(action, &QAction::triggered, this,
            [this, name] { m_binder.run([this, name] { m_model.clickMenu(name); }); });
        m_actions[name] = action;
        if (!e.Shortcut.isEmpty()) {
            // The key goes through the model, which sets the menu up before it decides.
            auto* shortcut = new QShortcut(QKeySequence(e.Shortcut), this);
            shortcut->setObjectName(name + QStringLiteral("Shortcut"));
            shortcut->setContext(Qt::WindowShortcut);
            const QString key = e.Shortcut;
            connect(shortcut, &QShortcut::activated, this,
                [this, key] { m_binder.run([this, key] { m_model.shortcut(key); }); });
        }
    }
}

void MainWindowView::watchContextMenu(
    QTreeView* pane, std::function<void(int, int)> mouseUp, std::function<void()> deleteKey)
{
    // The menu comes from the model alone, never from a context-menu event of the pane's.
    pane->setContextMenuPolicy(Qt::PreventContextMenu);
    new EventWatch(pane->viewport(), [this, pane, mouseUp](QEvent* event) {
        if (event->type() != QEvent::MouseButtonRelease)
            return false;
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::RightButton)
            return false;
        const Qt::KeyboardModifiers keys = mouse->modifiers();
        const int shift = (keys & Qt::ShiftModifier ? 1 : 0) | (keys & Qt::ControlModifier ? 2 : 0)
            | (keys & Qt::AltModifier ? 4 : 0);
        m_popupAt = mouse->globalPosition().toPoint();
        // A click on the list's empty part leaves no row selected, for the menu of the list itself.
        if (pane == m_lvNodeContent && !pane->indexAt(mouse->position().toPoint()).isValid())
            pane->setCurrentIndex(QModelIndex());
        m_binder.run([&] { mouseUp(2, shift); });
        return false;
    });
    // For the keyboard the menu opens at the selected node or row, as a right click on it would.
    new EventWatch(pane, [this, pane, mouseUp, deleteKey](QEvent* event) {
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Menu
            || (key->key() == Qt::Key_F10 && key->modifiers() == Qt::ShiftModifier)) {
            const QRect item = pane->visualRect(pane->currentIndex());
            m_popupAt = pane->viewport()->mapToGlobal(item.isValid() ? item.center() : QPoint(0, 0));
            m_binder.run([&] { mouseUp(2, 0); });
            return true;
        }
        if (key->key() == Qt::Key_Delete && key->modifiers() == Qt::NoModifier) {
            m_binder.run(deleteKey);
            return true;
        }
        return false;
    });
}

void MainWindowView::refresh()
{
    BoundView<QMainWindow>::refresh();
    refreshMenus();
    syncPlacement();
    layoutPanes();
}

void MainWindowView::refreshMenus()
{
    for (const Menu& e : m_model.Menus) {
        QAction* a = m_actions.at(e.Name);
        const QSignalBlocker block(a);
        const bool separator = e.Caption == QLatin1String("-") && !e.Parent.isEmpty();
        a->setSeparator(separator);
        if (separator)
            a->setText(QString());
        else
            a->setText(e.Shortcut.isEmpty() ? e.Caption : e.Caption + u'\t' + e.Shortcut);
        a->setEnabled(e.Enabled);
        a->setVisible(e.Visible);
        a->setCheckable(e.Checked);
        a->setChecked(e.Checked);
    }
}

int MainWindowView::namesWidth() const
{
    const QTreeView* tree = m_tvProjectContent;
    const auto* model = tree->model();
    QStyleOptionViewItem option;
    option.initFrom(tree);
    option.font = tree->font();
    option.fontMetrics = tree->fontMetrics();
    const int icon = tree->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, tree);
    option.decorationSize = tree->iconSize().isValid() ? tree->iconSize() : QSize(icon, icon);
    option.features = QStyleOptionViewItem::HasDisplay | QStyleOptionViewItem::HasDecoration;
    int widest = 0;
    // Every node counts, shown or folded, each indented one step a level and the top one too.
    std::vector<std::pair<QModelIndex, int>> pending {{QModelIndex(), 0}};
    while (!pending.empty()) {
        const auto [parent, depth] = pending.back();
        pending.pop_back();
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex index = model->index(row, 0, parent);
            const int width = tree->indentation() * (depth + 1)
                + tree->itemDelegateForIndex(index)->sizeHint(option, index).width();
            widest = std::max(widest, width);
            pending.emplace_back(index, depth + 1);
        }
    }
    const int scrollBar = tree->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, tree);
    return widest == 0 ? 0 : widest + 2 * tree->frameWidth() + scrollBar;
}

void MainWindowView::syncPlacement()
{
    if (isMinimized() || isMaximized() || isFullScreen())
        return;
    const QPoint at(Twips::toPixels(m_model.Left), Twips::toPixels(m_model.Top));
    if (pos() != at)
        move(at);
    const QSize size(Twips::toPixels(m_model.Width), Twips::toPixels(m_model.Height));
    if (this->size() != size)
        resize(size);
}

void MainWindowView::clientResized()
{
    if (isMinimized())
        return;
    m_model.Width = Twips::fromPixels(width());
    m_model.Height = Twips::fromPixels(height());
    m_model.ScaleHeight = Twips::fromPixels(m_client->height());
    m_model.Form_Resize();
    if (Twips::toPixels(m_model.Width) > width())
        resize(Twips::toPixels(m_model.Width), height());
    layoutPanes();
}

void MainWindowView::layoutPanes()
{
    const int clientWidth = m_client->width();
    const frmMain& m = m_model;

    m_picTitles->setGeometry(Twips::toPixels(m.picTitles.Left), Twips::toPixels(m.picTitles.Top), clientWidth,
        Twips::toPixels(m.picTitles.Height));
    place(m_lbltvProjectContentCaption, m.lbltvProjectContentCaption);
    place(m_lbllvNodeContentCaption, m.lbllvNodeContentCaption);
    place(m_tvProjectContent, m.tvProjectContent);
    place(m_lvNodeContent, m.lvNodeContent);
    place(m_imgSplitter, m.imgSplitter);
    place(m_picSplitter, m.picSplitter);
    m_picSplitter->setVisible(m.picSplitter.Visible);
    if (m.picSplitter.Visible)
        m_picSplitter->raise();

    m_sbStatusBar->setGeometry(0, Twips::toPixels(m.ScaleHeight - m.sbStatusBar.Height), clientWidth,
        Twips::toPixels(m.sbStatusBar.Height));
    m_sbStatusBar->setVisible(m.sbStatusBar.Visible);
}

void MainWindowView::closeEvent(QCloseEvent* event)
{
    int cancel = 0;
    m_model.Form_Unload(cancel);
    if (cancel != 0)
        event->ignore();
    refresh();
}

void MainWindowView::moveEvent(QMoveEvent* event)
{
    QMainWindow::moveEvent(event);
    if (!isMinimized() && !isMaximized()) {
        m_model.Left = Twips::fromPixels(x());
        m_model.Top = Twips::fromPixels(y());
    }
}

void MainWindowView::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        m_model.WindowState = isMinimized() ? 1 : isMaximized() ? 2 : 0;
}

ProjectTreeModel* MainWindowView::treeModel() const
{
    return static_cast<ProjectTreeModel*>(m_tvProjectContent->model());
}
