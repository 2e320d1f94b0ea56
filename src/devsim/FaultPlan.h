#pragma once

#include <array>
#include <bitset>
#include <optional>
#include <random>
#include <set>

#include <QByteArray>
#include <QString>

namespace devsim {

// The faults that the dialler can put on the wire, in the order that they are applied to
// an answer.
enum class Fault {
    DropRequest,   // the request is not seen: no answer, nothing changes
    Exception,     // an exception answer, the request not carried out
    WrongStation,  // the answer comes from station + 1
    WrongFunction, // the answer carries function + 1
    CorruptCrc,    // the low CRC byte inverted
    Truncate,      // only the first half of the answer
    DropResponse,  // the request takes effect but no answer goes out
    Noise,         // three random bytes before the answer
    ExtraBytes,    // three random bytes after the answer
    Delay,         // the answer held back beyond the silent time-out
};
constexpr int FaultCount = 10;
using FaultSet = std::bitset<FaultCount>;

// The option name of a fault, also its name in the dump: "drop-request", "corrupt-crc", ...
QString FaultName(Fault fault);

// When a fault strikes: at a rate (each request by chance) and/or on chosen requests,
// counted from 1 in the order that the device receives them.
struct FaultSelector
{
    double rate = 0.0;
    std::set<int> requests;

    bool operator==(const FaultSelector&) const = default;
};

// "0.25" is a rate; "@3" or "@3,7" are request numbers. Nothing for any other text.
std::optional<FaultSelector> ParseFaultSelector(const QString& text);

// The per-instance random choices: one generator, seeded, drawn in a fixed order for every
// request, so a seed repeats a run exactly.
class FaultPlan
{
public:
    FaultPlan(const std::array<FaultSelector, FaultCount>& selectors, quint32 seed)
        : m_selectors(selectors)
        , m_random(seed)
    { }

    FaultSet decide(int request);
    QByteArray noise(int count);

private:
    std::array<FaultSelector, FaultCount> m_selectors;
    std::mt19937 m_random;
};

} // namespace devsim
