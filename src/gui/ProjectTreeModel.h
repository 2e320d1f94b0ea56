#pragma once

#include <vector>

#include <QAbstractItemModel>

#include "Controls.h"

// A TreeView control as Qt sees it: an item model over its node list. It keeps a copy of
// the nodes it shows and resets itself when they change.
class ProjectTreeModel : public QAbstractItemModel
{
public:
    explicit ProjectTreeModel(const TreeView& tree, QObject* parent = nullptr);

    // Takes the window model's nodes over; returns true when the structure changed and
    // the model was reset. Expanded flags are the view's to apply.
    bool sync();

    QModelIndex indexOfNode(int node) const;
    // The node index behind an item, -1 for none.
    int nodeOf(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    void rebuildIndex();
    int parentOf(int node) const;

    const TreeView& m_tree;
    std::vector<Node> m_nodes;
    std::vector<std::vector<int>> m_children; // by parent node + 1; [0] holds the top nodes
    std::vector<int> m_row;                   // each node's row under its parent
};
