#include "FaultPlan.h"

#include <QStringList>

namespace devsim {

QString FaultName(Fault fault)
{
    switch (fault) {
    case Fault::DropRequest:
        return QStringLiteral("drop-request");
    case Fault::Exception:
        return QStringLiteral("exception");
    case Fault::WrongStation:
        return QStringLiteral("wrong-station");
    case Fault::WrongFunction:
        return QStringLiteral("wrong-function");
    case Fault::CorruptCrc:
        return QStringLiteral("corrupt-crc");
    case Fault::Truncate:
        return QStringLiteral("truncate");
    case Fault::DropResponse:
        return QStringLiteral("drop-response");
    case Fault::Noise:
        return QStringLiteral("noise");
    case Fault::ExtraBytes:
        return QStringLiteral("extra-bytes");
    case Fault::Delay:
        return QStringLiteral("delay");
    }
    return {};
}

std::optional<FaultSelector> ParseFaultSelector(const QString& text)
{
    FaultSelector selector;
    if (text.startsWith(QLatin1Char('@'))) {
        const QStringList numbers = text.mid(1).split(QLatin1Char(','));
        for (const QString& number : numbers) {
            bool ok = false;
            const int request = number.toInt(&ok);
            if (!ok || request < 1)
                return std::nullopt;
            selector.requests.insert(request);
        }
        return selector;
    }
    bool ok = false;
    selector.rate = text.toDouble(&ok);
    if (!ok || selector.rate < 0.0 || selector.rate > 1.0)
        return std::nullopt;
    return selector;
}

FaultSet FaultPlan::decide(int request)
{
    std::uniform_real_distribution<double> chance(0.0, 1.0);
    FaultSet faults;
    for (int i = 0; i < FaultCount; ++i) {
        const FaultSelector& selector = m_selectors[i];
        const double draw = chance(m_random);
        if (selector.requests.contains(request) || draw < selector.rate)
            faults.set(i);
    }
    return faults;
}

QByteArray FaultPlan::noise(int count)
{
    std::uniform_int_distribution<int> byte(0, 255);
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes.append(static_cast<char>(byte(m_random)));
    return bytes;
}

} // namespace devsim
