#include "NodeListModel.h"

#include "ItemLook.h"

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
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount())
        return {};
    const ListItem& item = m_rows[index.row()];
    const auto sub = static_cast<size_t>(index.column() - 1);
    const QString text = index.column() == 0 ? item.Text
        : sub < item.SubItems.size()         ? item.SubItems[sub]
                                             : QString();
    switch (role) {
    case Qt::DisplayRole:
        // A contact's group list keeps one group a line: the row shows them side by side.
        return QString(text).replace(QStringLiteral("\r\n"), QStringLiteral(", "));
    case Qt::ToolTipRole:
        return text.contains(u'\n') ? QString(text).remove(u'\r') : QVariant();
    case Qt::ForegroundRole:
        return foregroundOf(item.ForeColor);
    default:
        return {};
    }
}

QVariant NodeListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= columnCount())
        return {};
    return m_columns[section].Text;
}
