#pragma once

#include <QLabel>

// A label for a name the user typed, of any length: the layout gives its width, what does not
// fit ends in an ellipsis, and the whole name shows as its tooltip.
class ElidedLabel : public QLabel
{
public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QSize narrowed(QSize whole, int chars) const;
    QRect textRect() const;
    QString shownText() const;
};
