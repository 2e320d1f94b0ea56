#include <gtest/gtest.h>

#include "Dialler.h"

using namespace devsim;

namespace {

#define PROBE "F70400060001C55D"
const QByteArray ProbeAnswer = QByteArray::fromHex("F7040200007125");

struct Step
{
    qint64 atUs;
    const char* hex; // empty: the line is silent until atUs
};

struct FramingCase
{
    const char* name;
    std::vector<Step> steps;
    int answers;
    qint64 discarded;
};

const FramingCase FramingCases[] = {
    {"whole frame", {{0, PROBE}}, 1, 0},
    {"split over three reads", {{0, "F704"}, {1000, "000600"}, {2000, "01C55D"}}, 1, 0},
    {"garbage before", {{0, "0013FF" PROBE}}, 1, 3},
    {"garbage that starts like a frame", {{0, "F710" PROBE}}, 1, 2},
    {"two frames in one read", {{0, PROBE PROBE}}, 2, 0},
    {"partial frame dropped at silence", {{0, "F7040006"}, {10000, ""}, {20000, PROBE}}, 1, 4},
    {"partial frame dropped when bytes follow a gap", {{0, "F7040006"}, {10000, PROBE}}, 1, 4},
    {"partial frame kept within the gap", {{0, "F7040006"}, {2000, ""}, {3000, "0001C55D"}}, 1, 0},
    {"bad checksum ignored", {{0, "F70400060001C55E"}, {10000, ""}}, 0, 8},
    {"another station is not answered or numbered", {{0, "010300000001840A" PROBE}}, 1, 0},
};

// The frame gap is 3.5 characters at 9600 baud, about 3.6 ms.
TEST(FramingTest, CutsRequestsFromTheLine)
{
    for (const FramingCase& c : FramingCases) {
        SCOPED_TRACE(c.name);
        Dialler dialler {DiallerSettings {}};
        std::vector<Reply> replies;
        for (const Step& step : c.steps) {
            const std::vector<Reply> some = *step.hex
                ? dialler.receive(QByteArray::fromHex(step.hex), step.atUs)
                : dialler.silence(step.atUs);
            replies.insert(replies.end(), some.begin(), some.end());
        }
        ASSERT_EQ(int(replies.size()), c.answers);
        for (size_t i = 0; i < replies.size(); ++i) {
            EXPECT_EQ(replies[i].bytes, ProbeAnswer);
            EXPECT_EQ(replies[i].request, int(i) + 1);
        }
        EXPECT_EQ(dialler.toJson()[QStringLiteral("requests")][QStringLiteral("discardedBytes")].toInteger(),
            c.discarded);
    }
}

} // namespace
