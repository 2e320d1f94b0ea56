#include <functional>

#include <QJsonArray>

#include <gtest/gtest.h>

#include "CaseName.h"
#include "Crc16.h"
#include "Dialler.h"
#include "Options.h"

using namespace devsim;

namespace {

QByteArray Hex(const char* hex)
{
    return QByteArray::fromHex(hex);
}

QByteArray Sealed(const char* hex)
{
    QByteArray frame = Hex(hex);
    AppendCrc(frame);
    return frame;
}

// All the bytes that the dialler puts on the line for one request and the silence after it.
QByteArray Answer(Dialler& dialler, const QByteArray& request)
{
    const qint64 atUs = (dialler.requestCount() + 1) * 1'000'000;
    QByteArray out;
    for (const Reply& reply : dialler.receive(request, atUs))
        out += reply.bytes;
    for (const Reply& reply : dialler.silence(atUs + 100'000))
        out += reply.bytes;
    return out;
}

// The record frames of the image builder, CRC included: the number 0912345678 as second
// entry of group 2, and the alarm text AB of zone 3 to all groups, in Unicode and in 8 bits.
const QByteArray PhoneBookFrame = Hex("F75043020E00020A02303931323334353637388A65");
const QByteArray UnicodeMessageFrame = Hex("F7505304084100040000410042B490");
const QByteArray ByteMessageFrame = Hex("F7505304064000020041422CCB");

TEST(DiallerTest, ChecksumOfKnownFrames)
{
    EXPECT_EQ(Crc16(Hex("F70400060001")), 0x5DC5);
    EXPECT_TRUE(CrcHolds(PhoneBookFrame));
    EXPECT_TRUE(CrcHolds(UnicodeMessageFrame));
    EXPECT_TRUE(CrcHolds(ByteMessageFrame));
    EXPECT_FALSE(CrcHolds(Hex("F75043020E00020A02303931323334353637388A66")));
}

struct RegisterCase
{
    const char* name;
    QStringList options;
    std::vector<const char*> requests; // without CRC; all but the last prepare
    const char* answer;                // to the last request, without CRC
};

class RegisterTest : public testing::TestWithParam<RegisterCase>
{ };

TEST_P(RegisterTest, AnswersAsTheDevice)
{
    const RegisterCase& c = GetParam();
    Options options;
    QString message;
    ASSERT_EQ(ParseOptions(QStringList {QStringLiteral("vorna-devsim")} + c.options, options, message),
        ParseResult::Run)
        << message.toStdString();
    Dialler dialler(options.dialler);
    QByteArray last;
    for (const char* request : c.requests)
        last = Answer(dialler, Sealed(request));
    EXPECT_EQ(last.toHex().toUpper(), Sealed(c.answer).toHex().toUpper());
}

const RegisterCase RegisterCases[] = {
    {"connection probe", {}, {"F70400060001"}, "F704020000"},
    {"model id", {"--model-id", "4106"}, {"F70400000001"}, "F704024106"},
    {"firmware", {"--firmware", "0412"}, {"F70400010001"}, "F704020412"},
    {"serial in the order given", {"--serial", "A1B2C3D4E5F60718"}, {"F70400020004"},
        "F70408A1B2C3D4E5F60718"},
    {"identity in one read", {}, {"F70400000006"}, "F7040C400603010102030405060708"},
    {"communication settings", {"--slave-id", "12", "--setting-byte", "0xC1"}, {"F70300800002"},
        "F70304000C00C1"},
    {"settings written then read", {}, {"F7100080000204000500C3", "F70300800002"}, "F70304000500C3"},
    {"write answer echoes address and count", {}, {"F7100080000204000500C3"}, "F71000800002"},
    {"project checksum of no records", {}, {"F70300820001"}, "F70302FFFF"},
    {"alarm bits", {"--alarm-bits", "8000000000000101"}, {"F70100000040"}, "F701080101000000000080"},
    {"record address after a record", {}, {"F75043020E00020A0230393132333435363738", "F70400060001"},
        "F70402000E"},
    {"erase phone book", {}, {"F75040FF"}, "F75040FF"},
    {"erase short messages", {}, {"F75050FF"}, "F75050FF"},
    {"input register out of the map", {}, {"F704000C0001"}, "F78402"},
    {"holding register out of the map", {}, {"F70300830001"}, "F78302"},
    {"read-only checksum register", {}, {"F7100082000102ABCD"}, "F79002"},
    {"register count zero", {}, {"F70400000000"}, "F78403"},
    {"unknown sub-function", {}, {"F75047FF"}, "F7D001"},
    {"unknown function", {}, {"F7050000FF00"}, "F78501"},
};

INSTANTIATE_TEST_SUITE_P(DiallerTest, RegisterTest, testing::ValuesIn(RegisterCases),
    [](const testing::TestParamInfo<RegisterCase>& info) { return CaseName(info.param.name); });

TEST(DiallerTest, KeepsTheRecordsOfTheImageBuilder)
{
    Dialler dialler {DiallerSettings {}};
    EXPECT_EQ(Answer(dialler, PhoneBookFrame), Sealed("F7504302"));
    EXPECT_EQ(Answer(dialler, UnicodeMessageFrame), Sealed("F7505304"));

    const StoredRecord& entry = dialler.memory().phoneBook().at(2);
    EXPECT_EQ(entry.flags, 0x00);
    EXPECT_EQ(entry.group, 2);
    EXPECT_EQ(entry.spare, 2);
    EXPECT_EQ(entry.data, QByteArray("0912345678"));
    EXPECT_EQ(entry.frame, PhoneBookFrame.chopped(2));

    const QJsonObject json = dialler.toJson();
    const QJsonObject message = json[QStringLiteral("shortMessages")].toArray().at(0).toObject();
    EXPECT_EQ(message[QStringLiteral("number")].toInt(), 4);
    EXPECT_EQ(message[QStringLiteral("flags")].toInt(), 0x41);
    EXPECT_TRUE(message[QStringLiteral("unicode")].toBool());
    EXPECT_EQ(message[QStringLiteral("text")].toString(), QStringLiteral("AB"));
    EXPECT_EQ(message[QStringLiteral("data")].toString(), QStringLiteral("00410042"));
    EXPECT_EQ(json[QStringLiteral("phoneBook")].toArray().at(0)[QStringLiteral("phoneNumber")].toString(),
        QStringLiteral("0912345678"));

    // The 8-bit form of the same text replaces the record of the same number.
    EXPECT_EQ(Answer(dialler, ByteMessageFrame), Sealed("F7505304"));
    ASSERT_EQ(dialler.memory().shortMessages().size(), 1u);
    EXPECT_EQ(dialler.memory().shortMessages().at(4).data, QByteArray("AB"));
    EXPECT_EQ(dialler.memory().usedBytes(), 14 + 6);

    // An 8-bit text in the code page of the dialler's users is dumped readable.
    EXPECT_EQ(Answer(dialler, Sealed("F75053420840000400C4B5B3F8")), Sealed("F7505342"));
    const QJsonArray messages = dialler.toJson()[QStringLiteral("shortMessages")].toArray();
    EXPECT_EQ(messages.at(1)[QStringLiteral("text")].toString(), QString::fromUtf8("警報"));
}

TEST(DiallerTest, ErasesAreKeptApartAndCounted)
{
    Dialler dialler {DiallerSettings {}};
    Answer(dialler, PhoneBookFrame);
    Answer(dialler, UnicodeMessageFrame);
    Answer(dialler, Sealed("F75050FF"));
    EXPECT_EQ(dialler.memory().phoneBook().size(), 1u);
    EXPECT_TRUE(dialler.memory().shortMessages().empty());
    Answer(dialler, Sealed("F75040FF"));
    Answer(dialler, Sealed("F75040FF"));
    EXPECT_TRUE(dialler.memory().phoneBook().empty());

    const QJsonObject erases = dialler.toJson()[QStringLiteral("erases")].toObject();
    EXPECT_EQ(erases[QStringLiteral("phoneBook")].toInt(), 2);
    EXPECT_EQ(erases[QStringLiteral("shortMessages")].toInt(), 1);
}

TEST(DiallerTest, RecordWhoseLengthsDisagreeIsRefused)
{
    Dialler dialler {DiallerSettings {}};
    // Length byte 0x0E but a number of 9 digits.
    EXPECT_EQ(Answer(dialler, Sealed("F75043020E000209023039313233343536373838")), Sealed("F7D003"));
    EXPECT_TRUE(dialler.memory().phoneBook().empty());
    // A text of two bytes with one byte more in the frame than its length byte says.
    EXPECT_EQ(Answer(dialler, Sealed("F75053040640000200004142")), Sealed("F7D003"));
    EXPECT_TRUE(dialler.memory().shortMessages().empty());
}

TEST(DiallerTest, SilentWithSw2OffButCounts)
{
    DiallerSettings settings;
    settings.sw2On = false;
    Dialler dialler(settings);
    EXPECT_TRUE(Answer(dialler, Sealed("F70400060001")).isEmpty());
    EXPECT_TRUE(Answer(dialler, PhoneBookFrame).isEmpty());
    EXPECT_TRUE(dialler.memory().phoneBook().empty());
    const QJsonObject requests = dialler.toJson()[QStringLiteral("requests")].toObject();
    EXPECT_EQ(requests[QStringLiteral("received")].toInt(), 2);
    EXPECT_EQ(requests[QStringLiteral("answered")].toInt(), 0);
}

} // namespace
