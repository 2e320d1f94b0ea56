#include "NodeListModel.h"

NodeListModel::NodeListModel(const ListView& list, QObject* parent)
    : QAbstractTableModel(parent)
    , m_list(list)
    , m_columns(list.ColumnHeaders)
    , m_rows(list.ListItems)
{ }

bool NodeListModel::sync()
{
    if (m_list.ColumnHeaders == m_columns && m_list.ListItems == m_rows)
        return false;
    beginResetModel();
    m_columns = m_list.ColumnHeaders;
    m_rows = m_list.ListItems;
    endResetModel();
    return true;
}

int NodeListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int NodeListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant NodeListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole || index.row() >= rowCount()
        || index.column() >= columnCount())
        return {};
    const ListItem& item = m_rows[index.row()];
    if (index.column() == 0)
        return item.Text;
    const auto sub = static_cast<size_t>(index.column() - 1);
    return sub < item.SubItems.size() ? item.SubItems[sub] : QString();
}

QVariant NodeListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= columnCount())
        return {};
    return m_columns[section].Text;
}
