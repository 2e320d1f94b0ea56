#pragma once

#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QString>
#include <QStringList>

// The main window's image list ImgListVORNA, drawn in code: rounded tiles of one size
// and palette, each with a simple white glyph, looked up by key.
namespace Icons {

// The ten keys, in the image list's order.
QStringList keys();

// The image at any size, drawn without a display (the installed icon is made from it);
// a null image for an unknown key.
QImage image(const QString& key, int size);

// The image at 16 or 32 pixels (any size draws); a null pixmap for an unknown key.
QPixmap pixmap(const QString& key, int size);

// 16 and 32 pixel images of the key; a null icon for an unknown key.
QIcon icon(const QString& key);

} // namespace Icons
