#include "ElidedLabel.h"

#include <algorithm>

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace {

// What a label asks for at most and at least, in average characters.
constexpr int WidestChars = 40;
constexpr int NarrowestChars = 6;

} // namespace

ElidedLabel::ElidedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::sizeHint() const
{
    return narrowed(QLabel::sizeHint(), WidestChars);
}

QSize ElidedLabel::minimumSizeHint() const
{
    return narrowed(QLabel::minimumSizeHint(), NarrowestChars);
}

// The whole text's size, no wider than the frame and margins and that many characters.
QSize ElidedLabel::narrowed(QSize whole, int chars) const
{
    const int chrome = whole.width() - fontMetrics().horizontalAdvance(text());
    return {std::min(whole.width(), chrome + fontMetrics().averageCharWidth() * chars), whole.height()};
}

QRect ElidedLabel::textRect() const
{
    return contentsRect().adjusted(margin(), margin(), -margin(), -margin());
}

QString ElidedLabel::shownText() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, textRect().width());
}

bool ElidedLabel::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (shownText() != text())
            QToolTip::showText(help->globalPos(), text(), this);
        else
            QToolTip::hideText();
        return true;
    }
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemText(&painter, textRect(), QStyle::visualAlignment(layoutDirection(), alignment()),
        palette(), isEnabled(), shownText(), foregroundRole());
}
