#include "Icons.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {

using Glyph = void (*)(QPainter&);

// Glyphs draw on a 32 x 32 canvas, in white, inside the tile's 6-unit margin.

void bell(QPainter& p)
{
    QPainterPath body;
    body.moveTo(9, 21);
    body.cubicTo(11, 19, 10, 9, 16, 8.5);
    body.cubicTo(22, 9, 21, 19, 23, 21);
    body.closeSubpath();
    p.drawPath(body);
    p.drawLine(QPointF(8, 21.5), QPointF(24, 21.5));
    p.drawEllipse(QPointF(16, 24.5), 1.8, 1.8);
    p.drawLine(QPointF(16, 6.5), QPointF(16, 8.5));
}

void book(QPainter& p)
{
    p.drawRoundedRect(QRectF(9, 7, 14, 18), 1.5, 1.5);
    p.drawLine(QPointF(12, 7), QPointF(12, 25));
    p.drawLine(QPointF(15, 12), QPointF(20, 12));
    p.drawLine(QPointF(15, 16), QPointF(20, 16));
    p.drawLine(QPointF(15, 20), QPointF(19, 20));
}

void personAt(QPainter& p, double cx, double scale)
{
    p.drawEllipse(QPointF(cx, 12.5), 3.6 * scale, 3.6 * scale);
    QPainterPath shoulders;
    shoulders.moveTo(cx - 7 * scale, 25);
    shoulders.cubicTo(cx - 7 * scale, 19, cx + 7 * scale, 19, cx + 7 * scale, 25);
    p.drawPath(shoulders);
}

void person(QPainter& p)
{
    personAt(p, 16, 1.0);
}

void people(QPainter& p)
{
    personAt(p, 12, 0.8);
    personAt(p, 20.5, 0.8);
}

void folder(QPainter& p)
{
    QPainterPath f;
    f.moveTo(7, 10);
    f.lineTo(13, 10);
    f.lineTo(15, 12.5);
    f.lineTo(25, 12.5);
    f.lineTo(25, 23);
    f.lineTo(7, 23);
    f.closeSubpath();
    p.drawPath(f);
    p.drawLine(QPointF(7, 15.5), QPointF(25, 15.5));
}

void dialler(QPainter& p)
{
    p.drawRoundedRect(QRectF(11, 11, 10, 15), 1.5, 1.5);
    p.drawLine(QPointF(18.5, 11), QPointF(18.5, 6.5));
    p.drawArc(QRectF(20, 4, 6, 6), -60 * 16, 120 * 16);
    p.drawLine(QPointF(13.5, 14.5), QPointF(18.5, 14.5));
    p.drawPoint(QPointF(14, 19));
    p.drawPoint(QPointF(18, 19));
    p.drawPoint(QPointF(14, 22.5));
    p.drawPoint(QPointF(18, 22.5));
}

void list(QPainter& p)
{
    for (double y : {10.5, 16.0, 21.5}) {
        p.drawPoint(QPointF(9.5, y));
        p.drawLine(QPointF(13, y), QPointF(23.5, y));
    }
}

void target(QPainter& p)
{
    p.drawEllipse(QPointF(16, 16), 8.5, 8.5);
    p.drawEllipse(QPointF(16, 16), 4.5, 4.5);
    p.drawPoint(QPointF(16, 16));
}

void linkHalf(QPainter& p, double dx, double dy)
{
    p.save();
    p.translate(dx, dy);
    p.translate(16, 16);
    p.rotate(-45);
    p.drawRoundedRect(QRectF(-3.5, -9.5, 7, 10), 3.5, 3.5);
    p.restore();
}

void connected(QPainter& p)
{
    linkHalf(p, 2.5, -2.5);
    p.save();
    p.translate(16, 16);
    p.rotate(180);
    p.translate(-16, -16);
    linkHalf(p, 2.5, -2.5);
    p.restore();
}

void disconnected(QPainter& p)
{
    linkHalf(p, 4.5, -4.5);
    p.save();
    p.translate(16, 16);
    p.rotate(180);
    p.translate(-16, -16);
    linkHalf(p, 4.5, -4.5);
    p.restore();
    p.drawLine(QPointF(9, 9), QPointF(12, 12));
    p.drawLine(QPointF(20, 20), QPointF(23, 23));
}

struct IconDesign
{
    const char* key;
    QRgb colour;
    Glyph glyph;
};

const IconDesign kIcons[] = {
    {"Alarm", 0xD9453B, bell},
    {"PhoneBook", 0x2A9D8F, book},
    {"UserName", 0x3A7BD5, person},
    {"Proj", 0xE09A2D, folder},
    {"VORNA", 0x5B4FC4, dialler},
    {"UserGroups", 0x7B5EA7, people},
    {"ZoneList1", 0x5C6B7A, list},
    {"Zones", 0xE76F51, target},
    {"Connect", 0x3BA55C, connected},
    {"DisConnect", 0x8A8F98, disconnected},
};

const IconDesign* find(const QString& key)
{
    for (const IconDesign& d : kIcons)
        if (key == QLatin1String(d.key))
            return &d;
    return nullptr;
}

} // namespace

namespace Icons {

QStringList keys()
{
    QStringList all;
    for (const IconDesign& d : kIcons)
        all << QString::fromLatin1(d.key);
    return all;
}

QImage image(const QString& key, int size)
{
    const IconDesign* d = find(key);
    if (!d || size <= 0)
        return {};
    QImage pm(size, size, QImage::Format_ARGB32_Premultiplied);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 32.0, size / 32.0);

    const QColor base = QColor::fromRgb(d->colour);
    QLinearGradient fill(0, 1, 0, 31);
    fill.setColorAt(0, base.lighter(125));
    fill.setColorAt(1, base);
    p.setPen(QPen(base.darker(130), 1.0));
    p.setBrush(fill);
    p.drawRoundedRect(QRectF(1, 1, 30, 30), 6, 6);

    // Thinner strokes would vanish at 16 pixels.
    p.setPen(QPen(Qt::white, size < 24 ? 3.0 : 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    d->glyph(p);
    return pm;
}

QPixmap pixmap(const QString& key, int size)
{
    return QPixmap::fromImage(image(key, size));
}

QIcon icon(const QString& key)
{
    if (!find(key))
        return {};
    QIcon i;
    i.addPixmap(pixmap(key, 16));
    i.addPixmap(pixmap(key, 32));
    return i;
}

} // namespace Icons
