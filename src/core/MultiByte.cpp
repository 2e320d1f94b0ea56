#include "MultiByte.h"

#include <QStringEncoder>

#include "UnhandledError.h"
#include "VORNAGlobal.h"

QByteArray ToMultiByte(const VORNAGlobal& g, const QString& text)
{
    const QString name = g.link.CodePage.isEmpty() ? DefaultCodePage : g.link.CodePage;
    QStringEncoder encoder(name.toLatin1().constData());
    if (!encoder.isValid())
        throw UnhandledError(g.GetText(QStringLiteral("字碼頁["), 1, 1, QStringLiteral("MultiByte")) + name
            + g.GetText(QStringLiteral("]無法使用：本程式建置時未包含此文字編碼。"), 2, 1,
                QStringLiteral("MultiByte")));
    return encoder.encode(text);
}
