#pragma once

#include <array>
#include <bitset>
#include <map>
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

// When a fault strikes: at a rate (each request by chance), on chosen requests counted from 1
// in the order that the device receives them, retries included, and/or on chosen records.
// Records are counted from 1 in the order that they are first sent (the tool's retry of a
// record sends the same frame again and keeps its number); a record is struck on its first
// attempts, as many as given, or on every attempt.
struct FaultSelector
{
    static constexpr int EveryAttempt = 0;

    double rate = 0.0;
    std::set<int> requests;
    std::map<int, int> records; // record number to the attempts struck

    bool operator==(const FaultSelector&) const = default;
};

// Where a request stands in the download: its record number and the attempt at that record,
// both from 1, or 0 and 0 for a request that is no record.
struct RecordAttempt
{
    int record = 0;
    int attempt = 0;
};

// "0.25" is a rate; after "@" come comma-separated request numbers ("@3,7"), records struck
// on every attempt ("@record:5") and records struck on their first K attempts
// ("@record:5x2"), in any mix. Nothing for any other text.
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

    FaultSet decide(int request, RecordAttempt record);
    QByteArray noise(int count);

private:
    std::array<FaultSelector, FaultCount> m_selectors;
    std::mt19937 m_random;
};

} // namespace devsim
