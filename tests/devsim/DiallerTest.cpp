#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include "Dialler.h"
#include "Frames.h"
#include "Options.h"

using namespace devsim;

namespace {

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

// The record frames of the image builder with their CRC as it computes it: the phone-book
// record, and the alarm text AB of zone 3 to all groups, in Unicode and in 8 bits.
const QByteArray PhoneBookFrame = QByteArray::fromHex("F75043020E00020A02303931323334353637388A65");
const QByteArray UnicodeMessageFrame = QByteArray::fromHex("F7505304084100040000410042B490");
const QByteArray ByteMessageFrame = QByteArray::fromHex("F7505304064000020041422CCB");

// Records whose length bytes disagree with their contents: a number of 9 digits under a
// length of 0x0E, and a text of two bytes with one byte more in the frame.
#define BAD_PHONE_RECORD "F75043020E000209023039313233343536373838"
#define BAD_MESSAGE "F75053040640000200004142"

struct RegisterCase
{
    const char* name;
    QStringList options;
    std::vector<const char*> requests; // without CRC; all but the last prepare
    const char* answer;                // to the last request, without CRC; nothing: silence
};

const RegisterCase RegisterCases[] = {
    {"connection probe", {}, {Probe}, "F704020000"},
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
    {"record address after a record", {}, {PhoneRecord, Probe}, "F70402000E"},
    {"erase phone book", {}, {"F75040FF"}, "F75040FF"},
    {"erase short messages", {}, {"F75050FF"}, "F75050FF"},
    {"input register out of the map", {}, {"F704000C0001"}, "F78402"},
    {"holding register out of the map", {}, {"F70300830001"}, "F78302"},
    {"read-only checksum register", {}, {"F7100082000102ABCD"}, "F79002"},
    {"register count zero", {}, {"F70400000000"}, "F78403"},
    {"unknown sub-function", {}, {"F75047FF"}, "F7D001"},
    {"unknown function", {}, {"F7050000FF00"}, "F78501"},
    {"phone record whose lengths disagree", {}, {BAD_PHONE_RECORD}, "F7D003"},
    {"message whose length byte disagrees", {}, {BAD_MESSAGE}, "F7D003"},
    {"refused records take no memory", {}, {BAD_PHONE_RECORD, BAD_MESSAGE, Probe}, "F704020000"},
    {"silent with SW2 off", {"--sw2-off"}, {Probe}, nullptr},
};

TEST(DiallerTest, AnswersAsTheDevice)
{
    for (const RegisterCase& c : RegisterCases) {
        SCOPED_TRACE(c.name);
        Options options;
        QString message;
        ASSERT_EQ(ParseOptions(QStringList {"vorna-devsim"} + c.options, options, message), ParseResult::Run)
            << message.toStdString();
        Dialler dialler(options.dialler);
        QByteArray last;
        for (const char* request : c.requests)
            last = Answer(dialler, Sealed(request));
        EXPECT_EQ(last.toHex().toUpper(), c.answer ? Sealed(c.answer).toHex().toUpper() : QByteArray());
    }
}

// The records of the image builder as the dump shows them, frames without their CRC. The 8-bit
// form of the same text replaces the record of the same number, and an 8-bit text in the code
// page of the dialler's users is dumped readable.
TEST(DiallerTest, KeepsTheRecordsOfTheImageBuilder)
{
    Dialler dialler {DiallerSettings {}};
    const auto records = [&dialler] {
        const QJsonObject json = dialler.toJson();
        return QString::fromUtf8(QJsonDocument(QJsonArray {json["phoneBook"], json["shortMessages"]})
                                     .toJson(QJsonDocument::Compact))
            .toStdString();
    };
    EXPECT_EQ(Answer(dialler, PhoneBookFrame), Sealed("F7504302"));
    EXPECT_EQ(Answer(dialler, UnicodeMessageFrame), Sealed("F7505304"));
    EXPECT_EQ(dialler.memory().phoneBook().at(2).spare, 2);
    const std::string phoneBook = R"([{"data":"30393132333435363738","disabled":false,"flags":0,)"
                                  R"("frame":"F75043020E00020A0230393132333435363738","group":2,"number":2,)"
                                  R"("phoneNumber":"0912345678"}])";
    EXPECT_EQ(records(),
        "[" + phoneBook
            + R"(,[{"data":"00410042","disabled":false,"flags":65,)"
              R"("frame":"F7505304084100040000410042","group":0,"number":4,"text":"AB",)"
              R"("unicode":true}]])");
    EXPECT_EQ(Answer(dialler, ByteMessageFrame), Sealed("F7505304"));
    EXPECT_EQ(Answer(dialler, Sealed("F75053420840000400C4B5B3F8")), Sealed("F7505342"));
    EXPECT_EQ(dialler.memory().usedBytes(), 14 + 6 + 8);
    EXPECT_EQ(records(),
        "[" + phoneBook
            + R"(,[{"data":"4142","disabled":false,"flags":64,)"
              R"("frame":"F750530406400002004142","group":0,"number":4,"text":"AB","unicode":false},)"
              R"({"data":"C4B5B3F8","disabled":false,"flags":64,"frame":"F75053420840000400C4B5B3F8",)"
              R"("group":0,"number":66,"text":"警報","unicode":false}]])");
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

    const QJsonObject erases = dialler.toJson()["erases"].toObject();
    EXPECT_EQ(erases["phoneBook"].toInt(), 2);
    EXPECT_EQ(erases["shortMessages"].toInt(), 1);
}

TEST(DiallerTest, SilentWithSw2OffButCounts)
{
    DiallerSettings settings;
    settings.sw2On = false;
    Dialler dialler(settings);
    EXPECT_TRUE(Answer(dialler, Sealed(Probe)).isEmpty());
    EXPECT_TRUE(Answer(dialler, PhoneBookFrame).isEmpty());
    EXPECT_TRUE(dialler.memory().phoneBook().empty());
    const QJsonObject requests = dialler.toJson()["requests"].toObject();
    EXPECT_EQ(requests["received"].toInt(), 2);
    EXPECT_EQ(requests["answered"].toInt(), 0);
}

} // namespace
