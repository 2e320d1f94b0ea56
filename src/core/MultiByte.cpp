#include "MultiByte.h"

#include <QStringEncoder>

#include "UnhandledError.h"
#include "VORNAGlobal.h"

namespace {

const ModuleText T {"MultiByte"};

} // namespace

QByteArray ToMultiByte(const VORNAGlobal& g, const QString& text)
{
    const QString name = g.link.CodePage.isEmpty() ? DefaultCodePage : g.link.CodePage;
    QStringEncoder encoder(name.toLatin1().constData());
    if (!encoder.isValid())
        throw UnhandledError(
            T(g, "字碼頁[", 1, 1) + name + T(g, "]無法使用：本程式建置時未包含此文字編碼。", 2, 1));
    return encoder.encode(text);
}
