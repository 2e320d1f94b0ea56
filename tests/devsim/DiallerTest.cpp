#include <QJsonDocument>

#include <gtest/gtest.h>

#include "Dialler.h"
#include "Frames.h"
#include "Golden.h"
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

// The registers that libmodbus reads and writes as a master are in the Modbus test.
const RegisterCase RegisterCases[] = {
    {"connection probe", {}, {Probe}, "F704020000"},
    {"record address after a record", {}, {PhoneRecord, Probe}, "F70402000E"},
    {"erase phone book", {}, {"F75040FF"}, "F75040FF"},
    {"erase short messages", {}, {"F75050FF"}, "F75050FF"},
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

struct SessionCase
{
    const char* name;
    QStringList options;
    std::vector<QByteArray> frames; // as they go on the line
};

// The record frames of the image builder with their CRC as it computes it: the phone-book
// record, and the alarm text AB of zone 3 to all groups, in Unicode and in 8 bits; then the
// alarm text of zone 65 in the dialler users' code page.
const QByteArray PhoneBookFrame = QByteArray::fromHex("F75043020E00020A02303931323334353637388A65");
const QByteArray UnicodeMessageFrame = QByteArray::fromHex("F7505304084100040000410042B490");
const QByteArray ByteMessageFrame = QByteArray::fromHex("F7505304064000020041422CCB");
const QByteArray ChineseMessageFrame = Sealed("F75053420840000400C4B5B3F8");

// The Unicode form of a text replaces the 8-bit record of the same number; each erase clears its own
// store only; SW2 off answers nothing but counts; a retry sends the same record again and
// keeps its number, so a record struck on its first attempt only differs from one struck on all.
const SessionCase SessionCases[] = {
    {"records of the image builder", {},
        {PhoneBookFrame, ByteMessageFrame, UnicodeMessageFrame, ChineseMessageFrame}},
    {"erases", {},
        {PhoneBookFrame, UnicodeMessageFrame, Sealed("F75050FF"), ChineseMessageFrame, Sealed("F75040FF"),
            Sealed("F75040FF")}},
    {"sw2 off", {"--sw2-off"}, {Sealed(Probe), PhoneBookFrame}},
    {"records named across retries", {"--drop-response", "@record:1x1,record:2"},
        {Sealed("F75040FF"), PhoneBookFrame, PhoneBookFrame, ByteMessageFrame, ByteMessageFrame,
            ByteMessageFrame}},
};

QString Numbers(const std::map<int, StoredRecord>& records)
{
    QStringList numbers;
    for (const auto& [number, record] : records)
        numbers << QStringLiteral("%1/%2").arg(number).arg(record.spare);
    return numbers.join(u' ');
}

// Each request with its answer and the two stores after it (number/spare byte), then the dump.
TEST(DiallerTest, KeepsRecordsAndCountsAsTheDumpShows)
{
    QString text;
    for (const SessionCase& c : SessionCases) {
        Options options;
        QString message;
        ASSERT_EQ(ParseOptions(QStringList {"vorna-devsim"} + c.options, options, message), ParseResult::Run);
        Dialler dialler(options.dialler);
        text += QStringLiteral("== %1\n").arg(QString::fromLatin1(c.name));
        for (const QByteArray& frame : c.frames) {
            const QByteArray answer = Answer(dialler, frame);
            text += QStringLiteral("%1 -> %2 | phone book [%3] messages [%4] %5 bytes\n")
                        .arg(QString::fromLatin1(frame.toHex().toUpper()),
                            QString::fromLatin1(answer.isEmpty() ? "-" : answer.toHex().toUpper()),
                            Numbers(dialler.memory().phoneBook()), Numbers(dialler.memory().shortMessages()))
                        .arg(dialler.memory().usedBytes());
        }
        text += QString::fromUtf8(QJsonDocument(dialler.toJson()).toJson(QJsonDocument::Indented));
    }
    ExpectGolden(QStringLiteral("devsim/golden/dialler-sessions.txt"), text);
}

} // namespace
