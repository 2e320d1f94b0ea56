#include <QJsonArray>

#include <gtest/gtest.h>

#include "Dialler.h"
#include "Frames.h"

using namespace devsim;

namespace {

const QByteArray Record = Sealed(PhoneRecord);
const QByteArray RecordAnswer = Sealed("F7504302");

struct FaultCase
{
    const char* name;
    Fault fault;
    bool stored;        // the record was carried out
    QByteArray answer;  // what goes on the line, apart from the junk
    int junkBefore = 0; // bytes of any value before it
    int junkAfter = 0;  // and after it
    qint64 delayUs = 0;
};

const FaultCase FaultCases[] = {
    {"drop request", Fault::DropRequest, false, {}},
    {"drop response", Fault::DropResponse, true, {}},
    {"exception", Fault::Exception, false, Sealed("F7D004")},
    {"wrong station", Fault::WrongStation, true, Sealed("F8504302")},
    {"wrong function", Fault::WrongFunction, true, Sealed("F7514302")},
    {"corrupt crc", Fault::CorruptCrc, true, QByteArray::fromHex("F75043027DB0")},
    {"truncate", Fault::Truncate, true, RecordAnswer.first(3)},
    {"noise before", Fault::Noise, true, RecordAnswer, 3},
    {"extra bytes after", Fault::ExtraBytes, true, RecordAnswer, 0, 3},
    {"delay", Fault::Delay, true, RecordAnswer, 0, 0, 3'500'000},
};

// The second of three requests carries the fault; the first and the third are untouched.
TEST(FaultTest, OnTheWireAsChosen)
{
    for (const FaultCase& c : FaultCases) {
        SCOPED_TRACE(c.name);
        DiallerSettings settings;
        settings.faults[int(c.fault)].requests = {2};
        Dialler dialler(settings);

        const std::vector<Reply> first = dialler.receive(Sealed(Probe), 0);
        ASSERT_EQ(first.size(), 1u);
        EXPECT_EQ(first[0].bytes, Sealed("F704020000"));

        const std::vector<Reply> faulted = dialler.receive(Record, 1'000'000);
        const QByteArray bytes = faulted.empty() ? QByteArray() : faulted[0].bytes;
        EXPECT_EQ(bytes.size(), c.junkBefore + c.answer.size() + c.junkAfter) << bytes.toHex().toStdString();
        EXPECT_EQ(bytes.mid(c.junkBefore, c.answer.size()), c.answer) << bytes.toHex().toStdString();
        EXPECT_EQ(faulted.empty() ? 0 : faulted[0].delayUs, c.delayUs);
        EXPECT_EQ(dialler.memory().phoneBook().contains(2), c.stored);

        const std::vector<Reply> third = dialler.receive(Sealed(Probe), 2'000'000);
        ASSERT_EQ(third.size(), 1u);
        EXPECT_EQ(third[0].request, 3);
        EXPECT_EQ(third[0].bytes.size(), 7);

        const QJsonArray log = dialler.toJson()["log"].toArray();
        ASSERT_EQ(log.size(), 3);
        EXPECT_EQ(log[1]["faults"].toArray(), QJsonArray {FaultName(c.fault)});
        EXPECT_TRUE(log[2]["faults"].toArray().isEmpty());
    }
}

// Which of 200 probes a rate strikes.
std::vector<int> Struck(double rate, quint32 seed)
{
    DiallerSettings settings;
    settings.faults[int(Fault::DropResponse)].rate = rate;
    settings.seed = seed;
    Dialler dialler(settings);
    std::vector<int> struck;
    for (int i = 0; i < 200; ++i) {
        if (dialler.receive(Sealed(Probe), i * 1'000'000).empty())
            struck.push_back(i + 1);
    }
    return struck;
}

TEST(DiallerTest, RatesAreRepeatableBySeed)
{
    EXPECT_TRUE(Struck(0.0, 1).empty());
    EXPECT_EQ(Struck(1.0, 1).size(), 200u);
    const std::vector<int> half = Struck(0.5, 7);
    EXPECT_GT(half.size(), 60u);
    EXPECT_LT(half.size(), 140u);
    EXPECT_EQ(Struck(0.5, 7), half);
    EXPECT_NE(Struck(0.5, 8), half);
}

TEST(DiallerTest, FaultSelectors)
{
    EXPECT_EQ(ParseFaultSelector("0.25"), (FaultSelector {0.25, {}, {}}));
    EXPECT_EQ(ParseFaultSelector("1"), (FaultSelector {1.0, {}, {}}));
    EXPECT_EQ(ParseFaultSelector("@3,7"), (FaultSelector {0.0, {3, 7}, {}}));
    EXPECT_EQ(ParseFaultSelector("@2,record:5,record:9x3"), (FaultSelector {0.0, {2}, {{5, 0}, {9, 3}}}));
    for (const char* bad : {"1.5", "-0.1", "@0", "@", "@3,", "often", "@record:", "@record:0", "@record:2x0",
             "@record:2x", "@record:2x1x1", "@records:2"})
        EXPECT_FALSE(ParseFaultSelector(bad)) << bad;
}

} // namespace
