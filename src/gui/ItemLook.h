#pragma once

#include <vector>

#include <QStyledItemDelegate>
#include <QVariant>

class QTreeView;
struct ColumnHeader;

// The foreground of a tree node or list row from its control's ForeColor. Colour 0 and the
// window-text colour are the palette's text, the grey one its disabled text, so that both
// follow a dark palette; any other value is the RGB colour it names.
QVariant foregroundOf(quint32 ForeColor);

// Sizes a list's columns to their drawn widths, each widened as far as its header's text needs
// and for its widest cell up to twice its drawn width: a translated header or label is often
// longer than the one the column was drawn for, while a long message still ends cut.
void fitColumns(QTreeView* view, const std::vector<ColumnHeader>& columns);

// Paints items as the view's default does; a text that its column cuts shows whole in the
// tooltip, and an item's own tooltip wins.
class CutTextDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;
};
