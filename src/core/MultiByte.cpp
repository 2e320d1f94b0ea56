#include "MultiByte.h"

#include <QStringEncoder>

#include "UnhandledError.h"
#include "VORNAGlobal.h"

QByteArray ToMultiByte(const VORNAGlobal& g, const QString& text)
{
    const QString name = g.link.CodePage.isEmpty() ? DefaultCodePage : g.link.CodePage;
    QStringEncoder encoder(name.toLatin1().constData());
    if (!encoder.isValid())
        throw UnhandledError(QStringLiteral("The code page ") + name
            + QStringLiteral(" is not available: Qt was built without this text codec."));
    return encoder.encode(text);
}
