#pragma once

#include <QStyledItemDelegate>
#include <QVariant>

// The foreground of a tree node or list row from its control's ForeColor. Colour 0 and the
// window-text colour are the palette's text, the grey one its disabled text, so that both
// follow a dark palette; any other value is the RGB colour it names.
QVariant foregroundOf(quint32 ForeColor);

// Paints items as the view's default does; a text that its column cuts shows whole in the
// tooltip, and an item's own tooltip wins.
class CutTextDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;
};
