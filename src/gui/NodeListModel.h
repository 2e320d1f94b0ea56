#pragma once

#include <vector>

#include <QAbstractTableModel>

#include "Controls.h"

// A ListView control in its detail view as Qt sees it: a table over the control's columns
// and rows. It keeps a copy and resets itself when they change.
class NodeListModel : public QAbstractTableModel
{
public:
    explicit NodeListModel(const ListView& list, QObject* parent = nullptr);

    // Returns true when the columns or rows changed and the model was reset.
    bool sync();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    const ListView& m_list;
    std::vector<ColumnHeader> m_columns;
    std::vector<ListItem> m_rows;
};
