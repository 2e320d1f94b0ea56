#pragma once

#include <functional>
#include <map>

#include <QMainWindow>
#include <QPoint>
#include <QTimer>

#include "FormView.h"

class QLabel;
class QMenu;
class QStatusBar;
class QTreeView;
class frmMain;
class ProjectTreeModel;

// The main window: a thin view over frmMain. The panes are laid out by hand from the
// model's geometry in twips; menus, tree, list and status bar are painted from the model,
// and every event goes to the model's handler.
class MainWindowView : public BoundView<QMainWindow>
{
public:
    explicit MainWindowView(frmMain& model, QWidget* parent = nullptr);
    ~MainWindowView() override;

    void refresh() override;

    ProjectTreeModel* treeModel() const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void buildMenus();
    // The context menu of a pane: the release of the right button, Shift+F10 and the Menu key
    // run mouseUp, Delete runs deleteKey.
    void watchContextMenu(
        QTreeView* pane, std::function<void(int Button, int Shift)> mouseUp, std::function<void()> deleteKey);
    void refreshMenus();
    // The pixels that the tree pane needs to show every node's name whole.
    int namesWidth() const;
    void syncPlacement();
    void clientResized();
    void layoutPanes();

    frmMain& m_model;
    QWidget* m_client = nullptr;
    QWidget* m_picTitles = nullptr;
    QLabel* m_lbltvProjectContentCaption = nullptr;
    QLabel* m_lbllvNodeContentCaption = nullptr;
    QTreeView* m_tvProjectContent = nullptr;
    QTreeView* m_lvNodeContent = nullptr;
    QWidget* m_imgSplitter = nullptr;
    QWidget* m_picSplitter = nullptr;
    QStatusBar* m_sbStatusBar = nullptr;
    std::map<QString, QAction*> m_actions; // by entry name; a top entry's is its menu's action
    QTimer* m_tmrSleep = nullptr;
    // Where the next popup opens: the pointer for a click, the current item for a key.
    QPoint m_popupAt;
};
