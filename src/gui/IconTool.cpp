// vorna-icon PATH: writes the program's icon as a 256-pixel PNG, for the desktop entry.
#include <cstdio>

#include <QImage>
#include <QString>

#include "Icons.h"

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: vorna-icon PATH.png\n", stderr);
        return 2;
    }
    const QImage icon = Icons::image(QStringLiteral("VORNA"), 256);
    return !icon.isNull() && icon.save(QString::fromLocal8Bit(argv[1]), "PNG") ? 0 : 1;
}
