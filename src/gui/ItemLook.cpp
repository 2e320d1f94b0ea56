#include "ItemLook.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QBrush>
#include <QColor>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPalette>
#include <QToolTip>
#include <QTreeView>

#include "Controls.h"
#include "Twips.h"

void fitColumns(QTreeView* view, const std::vector<ColumnHeader>& columns)
{
    QHeaderView* header = view->header();
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
        const int design = Twips::toPixels(columns[i].Width);
        const int content = std::min(static_cast<QAbstractItemView*>(view)->sizeHintForColumn(i), 2 * design);
        header->resizeSection(i, std::max({design, header->sectionSizeHint(i), content}));
    }
}

QVariant foregroundOf(quint32 ForeColor)
{
    if (ForeColor == 0 || ForeColor == SystemColor::WindowText)
        return {};
    if (ForeColor == SystemColor::GrayText)
        return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    // Stored as 0xBBGGRR.
    return QBrush(QColor(ForeColor & 0xff, (ForeColor >> 8) & 0xff, (ForeColor >> 16) & 0xff));
}

bool CutTextDelegate::helpEvent(
    QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid() || index.data(Qt::ToolTipRole).isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);

    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QWidget* widget = item.widget ? item.widget : view;
    const QRect room = widget->style()->subElementRect(QStyle::SE_ItemViewItemText, &item, widget);
    // The style keeps a margin inside the text's rectangle on either side.
    const int margin = widget->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, widget) + 1;
    if (item.text.isEmpty() || item.fontMetrics.horizontalAdvance(item.text) <= room.width() - 2 * margin) {
        QToolTip::hideText();
        return true;
    }
    QToolTip::showText(event->globalPos(), item.text, view->viewport(), option.rect);
    return true;
}
