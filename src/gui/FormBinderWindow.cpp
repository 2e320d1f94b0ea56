#include "FormBinder.h"

#include <memory>
#include <utility>

#include <QHeaderView>
#include <QLabel>
#include <QMouseEvent>
#include <QStatusBar>
#include <QTreeView>

#include "EventWatch.h"
#include "Icons.h"
#include "ItemLook.h"
#include "NodeListModel.h"
#include "ProjectTreeModel.h"
#include "Twips.h"

// The main window's controls: its project tree, its content list and its status bar.

void FormBinder::bind(QTreeView* widget, TreeView& control, Handler nodeClick, Handler dblClick)
{
    auto* model = new ProjectTreeModel(control, widget);
    widget->setModel(model);
    widget->setItemDelegate(new CutTextDelegate(widget));
    add(widget, control, [widget, &control, model] {
        model->sync();
        const QModelIndex selected = model->indexOfNode(control.SelectedItem);
        const bool moved = widget->currentIndex() != selected;
        // A node that a command selects shows, as the user's own choice would: its branch opens
        // and the pane scrolls to it.
        if (moved)
            for (QModelIndex up = selected.parent(); up.isValid(); up = up.parent())
                if (const int n = model->nodeOf(up); n >= 0 && n < static_cast<int>(control.Nodes.size()))
                    control.Nodes[n].Expanded = true;
        {
            const QSignalBlocker block(widget);
            for (int i = 0; i < static_cast<int>(control.Nodes.size()); ++i)
                widget->setExpanded(model->indexOfNode(i), control.Nodes[i].Expanded);
        }
        if (moved) {
            widget->setCurrentIndex(selected);
            if (selected.isValid())
                widget->scrollTo(selected);
        }
    });

    const auto setExpanded = [&control, model](const QModelIndex& index, bool expanded) {
        if (const int n = model->nodeOf(index); n >= 0 && n < static_cast<int>(control.Nodes.size()))
            control.Nodes[n].Expanded = expanded;
    };
    connect(
        widget, &QTreeView::expanded, this, [setExpanded](const QModelIndex& i) { setExpanded(i, true); });
    connect(
        widget, &QTreeView::collapsed, this, [setExpanded](const QModelIndex& i) { setExpanded(i, false); });

    // A mouse press moves the selection before it reports the node pressed: the click is the
    // press of the left button, and any other button only points, leaving the selection where
    // it was. Every other move of the selection away from the control's (the keys, the focus
    // coming in) acts as a click; the view's own painting of the control's selection does not.
    auto pressed = std::make_shared<Qt::MouseButton>(Qt::NoButton);
    new EventWatch(widget->viewport(), [pressed](QEvent* event) {
        if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick)
            *pressed = static_cast<QMouseEvent*>(event)->button();
        else if (event->type() == QEvent::MouseButtonRelease)
            *pressed = Qt::NoButton;
        return false;
    });
    connect(widget->selectionModel(), &QItemSelectionModel::currentChanged, this,
        [this, &control, model, pressed, nodeClick](const QModelIndex& current) {
            const int node = model->nodeOf(current);
            if (node == control.SelectedItem || (*pressed != Qt::NoButton && *pressed != Qt::LeftButton))
                return;
            control.SelectedItem = node;
            if (*pressed == Qt::NoButton && node >= 0)
                run(nodeClick);
        });
    connect(widget, &QTreeView::pressed, this, [this, pressed, nodeClick] {
        // The painting after another button puts the selection back.
        run(std::exchange(*pressed, Qt::NoButton) == Qt::LeftButton ? nodeClick : Handler());
    });
    connect(widget, &QTreeView::doubleClicked, this, [this, dblClick] { run(dblClick); });
    new EventWatch(widget, [this, widget, pressed, dblClick](QEvent* event) {
        if (event->type() == QEvent::KeyPress)
            *pressed = Qt::NoButton;
        if (!isEnter(event))
            return false;
        const QModelIndex current = widget->currentIndex();
        if (current.isValid() && widget->model()->hasChildren(current))
            widget->setExpanded(current, !widget->isExpanded(current));
        run(dblClick);
        return true;
    });
}

void FormBinder::bind(QTreeView* widget, ListView& control, Handler dblClick)
{
    auto* model = new NodeListModel(control, widget);
    widget->setModel(model);
    widget->setItemDelegate(new CutTextDelegate(widget));
    widget->setRootIsDecorated(false);
    widget->setItemsExpandable(false);
    widget->setUniformRowHeights(true);
    widget->setAllColumnsShowFocus(true);
    widget->header()->setStretchLastSection(false);
    add(widget, control, [widget, &control, model] {
        if (model->sync())
            fitColumns(widget, control.ColumnHeaders);
        const QModelIndex selected
            = control.SelectedItem >= 0 ? model->index(control.SelectedItem, 0) : QModelIndex();
        if (widget->currentIndex() != selected)
            widget->setCurrentIndex(selected);
    });
    connect(widget->selectionModel(), &QItemSelectionModel::currentChanged, this,
        [&control](
            const QModelIndex& current) { control.SelectedItem = current.isValid() ? current.row() : -1; });
    connect(widget, &QTreeView::doubleClicked, this, [this, dblClick] { run(dblClick); });
    new EventWatch(widget, [this, dblClick](QEvent* event) {
        if (!isEnter(event))
            return false;
        run(dblClick);
        return true;
    });
}

void FormBinder::bind(QStatusBar* widget, StatusBar& control)
{
    struct PanelLabels
    {
        QLabel* picture;
        QLabel* text;
        QString shownPicture;
    };
    auto panels = std::make_shared<std::vector<PanelLabels>>();
    widget->setSizeGripEnabled(false);
    for (const Panel& p : control.Panels) {
        auto* picture = new QLabel(widget);
        picture->setObjectName(p.Key + QStringLiteral("Picture"));
        picture->hide();
        auto* text = new QLabel(widget);
        text->setObjectName(p.Key);
        text->setFrameShape(QFrame::Panel);
        text->setFrameShadow(QFrame::Sunken);
        text->setMinimumWidth(Twips::toPixels(1500));
        if (panels->empty()) {
            widget->addWidget(picture);
            widget->addWidget(text, 1);
        } else {
            widget->addPermanentWidget(picture);
            widget->addPermanentWidget(text);
        }
        panels->push_back({picture, text, {}});
    }
    add(widget, control, [&control, panels] {
        for (size_t i = 0; i < panels->size() && i < control.Panels.size(); ++i) {
            const Panel& p = control.Panels[i];
            PanelLabels& shown = (*panels)[i];
            shown.text->setText(p.Text);
            if (shown.shownPicture != p.Picture) {
                shown.shownPicture = p.Picture;
                shown.picture->setPixmap(Icons::pixmap(p.Picture, 16));
            }
            shown.picture->setVisible(!p.Picture.isEmpty());
        }
    });
}
