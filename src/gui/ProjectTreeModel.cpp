#include "ProjectTreeModel.h"

#include "Icons.h"
#include "ItemLook.h"

namespace {

bool sameShown(const Node& a, const Node& b)
{
    return a.Parent == b.Parent && a.Key == b.Key && a.Text == b.Text && a.Image == b.Image && a.Tag == b.Tag
        && a.ForeColor == b.ForeColor;
}

} // namespace

ProjectTreeModel::ProjectTreeModel(const TreeView& tree, QObject* parent)
    : QAbstractItemModel(parent)
    , m_tree(tree)
{
    m_nodes = m_tree.Nodes;
    rebuildIndex();
}

bool ProjectTreeModel::sync()
{
    const auto& nodes = m_tree.Nodes;
    const bool same = nodes.size() == m_nodes.size()
        && std::equal(nodes.begin(), nodes.end(), m_nodes.begin(), sameShown);
    if (same) {
        m_nodes = nodes;
        return false;
    }
    beginResetModel();
    m_nodes = nodes;
    rebuildIndex();
    endResetModel();
    return true;
}

int ProjectTreeModel::parentOf(int node) const
{
    // A parent that is not an earlier node would make a cycle; such a node shows at the top.
    const int p = m_nodes[node].Parent;
    return p >= 0 && p < node ? p : -1;
}

void ProjectTreeModel::rebuildIndex()
{
    m_children.assign(m_nodes.size() + 1, {});
    m_row.assign(m_nodes.size(), 0);
    for (int i = 0; i < static_cast<int>(m_nodes.size()); ++i) {
        auto& siblings = m_children[parentOf(i) + 1];
        m_row[i] = static_cast<int>(siblings.size());
        siblings.push_back(i);
    }
}

QModelIndex ProjectTreeModel::indexOfNode(int node) const
{
    if (node < 0 || node >= static_cast<int>(m_nodes.size()))
        return {};
    return createIndex(m_row[node], 0, static_cast<quintptr>(node));
}

int ProjectTreeModel::nodeOf(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<int>(index.internalId()) : -1;
}

QModelIndex ProjectTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (column != 0 || row < 0)
        return {};
    if (parent.isValid() && parent.column() != 0)
        return {};
    const auto& siblings = m_children[nodeOf(parent) + 1];
    if (row >= static_cast<int>(siblings.size()))
        return {};
    return createIndex(row, 0, static_cast<quintptr>(siblings[row]));
}

QModelIndex ProjectTreeModel::parent(const QModelIndex& child) const
{
    const int node = nodeOf(child);
    if (node < 0)
        return {};
    return indexOfNode(parentOf(node));
}

int ProjectTreeModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid() && parent.column() != 0)
        return 0;
    return static_cast<int>(m_children[nodeOf(parent) + 1].size());
}

int ProjectTreeModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant ProjectTreeModel::data(const QModelIndex& index, int role) const
{
    const int node = nodeOf(index);
    if (node < 0)
        return {};
    const Node& n = m_nodes[node];
    switch (role) {
    case Qt::DisplayRole:
        return n.Text;
    case Qt::DecorationRole:
        return Icons::icon(n.Image);
    case Qt::ForegroundRole:
        return foregroundOf(n.ForeColor);
    default:
        return {};
    }
}
