#include "MainWindowView.h"

#include <functional>

#include <QCloseEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QTreeView>

#include "Icons.h"
#include "NodeListModel.h"
#include "ProjectTreeModel.h"
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
            onMove(MainWindowView::twips(qRound(event->position().x())));
    }
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        if (event->button() == Qt::LeftButton && onUp)
            onUp();
    }
};

void place(QWidget* w, const Control& r)
{
    w->setGeometry(MainWindowView::px(r.Left), MainWindowView::px(r.Top), MainWindowView::px(r.Width),
        MainWindowView::px(r.Height));
}

} // namespace

MainWindowView::MainWindowView(frmMain& model, QWidget* parent)
    : BoundView<QMainWindow>(model, parent)
    , m_model(model)
{
    setWindowIcon(Icons::icon(QStringLiteral("VORNA")));
    setMinimumWidth(px(3000));

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
    m_binder.bind(m_tvProjectContent, static_cast<Control&>(m_model.tvProjectContent));
    m_tvProjectContent->setHeaderHidden(true);
    m_treeModel = new ProjectTreeModel(m_model.tvProjectContent, this);
    m_tvProjectContent->setModel(m_treeModel);

    m_lvNodeContent = new QTreeView(m_client);
    m_binder.bind(m_lvNodeContent, static_cast<Control&>(m_model.lvNodeContent));
    m_lvNodeContent->setRootIsDecorated(false);
    m_lvNodeContent->setItemsExpandable(false);
    m_lvNodeContent->setUniformRowHeights(true);
    m_lvNodeContent->header()->setStretchLastSection(false);
    m_listModel = new NodeListModel(m_model.lvNodeContent, this);
    m_lvNodeContent->setModel(m_listModel);

    // The selection and the expanded flags are control state that the model holds.
    connect(m_tvProjectContent->selectionModel(), &QItemSelectionModel::currentChanged, this,
        [this](const QModelIndex& current) {
            m_model.tvProjectContent.SelectedItem = m_treeModel->nodeOf(current);
        });
    connect(m_tvProjectContent, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        if (const int n = m_treeModel->nodeOf(index);
            n >= 0 && n < static_cast<int>(m_model.tvProjectContent.Nodes.size()))
            m_model.tvProjectContent.Nodes[n].Expanded = true;
    });
    connect(m_tvProjectContent, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
        if (const int n = m_treeModel->nodeOf(index);
            n >= 0 && n < static_cast<int>(m_model.tvProjectContent.Nodes.size()))
            m_model.tvProjectContent.Nodes[n].Expanded = false;
    });
    connect(m_lvNodeContent->selectionModel(), &QItemSelectionModel::currentChanged, this,
        [this](const QModelIndex& current) {
            m_model.lvNodeContent.SelectedItem = current.isValid() ? current.row() : -1;
        });
    // A double click also expands or collapses a branch, as the control does of its own.
    connect(m_tvProjectContent, &QTreeView::clicked, this,
        [this] { m_binder.run([this] { m_model.tvProjectContent_NodeClick(); }); });
    connect(m_tvProjectContent, &QTreeView::doubleClicked, this,
        [this] { m_binder.run([this] { m_model.tvProjectContent_DblClick(); }); });
    connect(m_lvNodeContent, &QTreeView::doubleClicked, this,
        [this] { m_binder.run([this] { m_model.lvNodeContent_DblClick(); }); });

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
    m_binder.bind(m_sbStatusBar, static_cast<Control&>(m_model.sbStatusBar));
    m_sbStatusBar->setSizeGripEnabled(false);
    for (const Panel& p : m_model.sbStatusBar.Panels) {
        auto* label = new QLabel(m_sbStatusBar);
        label->setObjectName(p.Key);
        label->setFrameShape(QFrame::Panel);
        label->setFrameShadow(QFrame::Sunken);
        label->setMinimumWidth(px(1500));
        m_panels[p.Key] = label;
    }
    m_connectImage = new QLabel(m_sbStatusBar);
    m_connectImage->setObjectName(QStringLiteral("ConnectStatusImage"));
    m_connectImage->hide();
    m_sbStatusBar->addWidget(m_panels.at(QStringLiteral("Status")), 1);
    m_sbStatusBar->addPermanentWidget(m_panels.at(QStringLiteral("ProjName")));
    m_sbStatusBar->addPermanentWidget(m_connectImage);
    m_sbStatusBar->addPermanentWidget(m_panels.at(QStringLiteral("ConnectStatus")));

    buildMenus();

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

void MainWindowView::refresh()
{
    BoundView<QMainWindow>::refresh();

    for (const Panel& p : m_model.sbStatusBar.Panels) {
        m_panels.at(p.Key)->setText(p.Text);
        if (p.Key == QLatin1String("ConnectStatus") && p.Picture != m_connectImageKey) {
            m_connectImageKey = p.Picture;
            m_connectImage->setPixmap(Icons::pixmap(p.Picture, 16));
            m_connectImage->setVisible(!p.Picture.isEmpty());
        }
    }

    refreshMenus();
    refreshTree();
    refreshList();
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

void MainWindowView::refreshTree()
{
    m_treeModel->sync();
    const auto& nodes = m_model.tvProjectContent.Nodes;
    {
        const QSignalBlocker block(m_tvProjectContent);
        for (int i = 0; i < static_cast<int>(nodes.size()); ++i)
            m_tvProjectContent->setExpanded(m_treeModel->indexOfNode(i), nodes[i].Expanded);
    }
    const QModelIndex selected = m_treeModel->indexOfNode(m_model.tvProjectContent.SelectedItem);
    if (m_tvProjectContent->currentIndex() != selected)
        m_tvProjectContent->setCurrentIndex(selected);
}

void MainWindowView::refreshList()
{
    if (m_listModel->sync()) {
        const auto& columns = m_model.lvNodeContent.ColumnHeaders;
        for (int i = 0; i < static_cast<int>(columns.size()); ++i)
            m_lvNodeContent->header()->resizeSection(i, px(columns[i].Width));
    }
    const int row = m_model.lvNodeContent.SelectedItem;
    const QModelIndex selected = row >= 0 ? m_listModel->index(row, 0) : QModelIndex();
    if (m_lvNodeContent->currentIndex() != selected)
        m_lvNodeContent->setCurrentIndex(selected);
}

void MainWindowView::syncPlacement()
{
    if (isMinimized() || isMaximized() || isFullScreen())
        return;
    const QPoint at(px(m_model.Left), px(m_model.Top));
    if (pos() != at)
        move(at);
    const QSize size(px(m_model.Width), px(m_model.Height));
    if (this->size() != size)
        resize(size);
}

void MainWindowView::clientResized()
{
    if (isMinimized())
        return;
    m_model.Width = twips(width());
    m_model.Height = twips(height());
    m_model.ScaleHeight = twips(m_client->height());
    m_model.Form_Resize();
    if (px(m_model.Width) > width())
        resize(px(m_model.Width), height());
    layoutPanes();
}

void MainWindowView::layoutPanes()
{
    const int clientWidth = m_client->width();
    const frmMain& m = m_model;

    m_picTitles->setGeometry(px(m.picTitles.Left), px(m.picTitles.Top), clientWidth, px(m.picTitles.Height));
    place(m_lbltvProjectContentCaption, m.lbltvProjectContentCaption);
    place(m_lbllvNodeContentCaption, m.lbllvNodeContentCaption);
    place(m_tvProjectContent, m.tvProjectContent);
    place(m_lvNodeContent, m.lvNodeContent);
    place(m_imgSplitter, m.imgSplitter);
    place(m_picSplitter, m.picSplitter);
    m_picSplitter->setVisible(m.picSplitter.Visible);
    if (m.picSplitter.Visible)
        m_picSplitter->raise();

    m_sbStatusBar->setGeometry(
        0, px(m.ScaleHeight - m.sbStatusBar.Height), clientWidth, px(m.sbStatusBar.Height));
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
        m_model.Left = twips(x());
        m_model.Top = twips(y());
    }
}

void MainWindowView::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        m_model.WindowState = isMinimized() ? 1 : isMaximized() ? 2 : 0;
}
