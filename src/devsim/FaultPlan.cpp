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
        const QLatin1String recordPrefix("record:");
        const auto positive = [](const QString& number) {
            bool ok = false;
            const int value = number.toInt(&ok);
            return ok && value >= 1 ? value : 0;
        };
        for (const QString& item : text.mid(1).split(QLatin1Char(','))) {
            if (!item.startsWith(recordPrefix)) {
                const int request = positive(item);
                if (request == 0)
                    return std::nullopt;
                selector.requests.insert(request);
                continue;
            }
            const QStringList parts = item.mid(recordPrefix.size()).split(QLatin1Char('x'));
            const int record = positive(parts[0]);
            const int attempts = parts.size() == 2 ? positive(parts[1]) : FaultSelector::EveryAttempt;
            if (record == 0 || parts.size() > 2 || (parts.size() == 2 && attempts == 0))
                return std::nullopt;
            selector.records[record] = attempts;
        }
        return selector;
    }
    bool ok = false;
    selector.rate = text.toDouble(&ok);
    if (!ok || selector.rate < 0.0 || selector.rate > 1.0)
        return std::nullopt;
    return selector;
}

FaultSet FaultPlan::decide(int request, RecordAttempt record)
{
    std::uniform_real_distribution<double> chance(0.0, 1.0);
    FaultSet faults;
    for (int i = 0; i < FaultCount; ++i) {
        const FaultSelector& selector = m_selectors[i];
        const double draw = chance(m_random);
        const auto struck = selector.records.find(record.record);
        const bool recordStruck = struck != selector.records.end()
            && (struck->second == FaultSelector::EveryAttempt || record.attempt <= struck->second);
        if (selector.requests.contains(request) || recordStruck || draw < selector.rate)
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
