#include <tuple>

#include "CommUtil.h"
#include "DeviceFixture.h"
#include "DeviceRegisters.h"

// Class 64 is T and 65 MT, exponent 0 gives 1; class 128 is BQ whatever the exponent, and
// any other class is unknown. The firmware text chooses the model's prefix.
TEST(IdentityTest, NamesTheModelFromItsRegisters)
{
    const std::tuple<int, int, const char*> models[]
        = {{64, 6, "RM64T"}, {65, 6, "RM64MT"}, {65, 0, "RM1MT"}, {128, 9, "BQ"}, {66, 6, "UnKnown"}};
    for (const auto& [high, low, code] : models)
        EXPECT_EQ(ModelCodeText(high, low).toStdString(), code) << high << " " << low;
    const std::tuple<int, int, const char*> firmwares[]
        = {{0x03, 0x01, "KV570-"}, {0x04, 0x01, "KV470-"}, {0x30, 0x03, "KV470-"}, {0xAB, 0x0C, "KV470-"}};
    for (const auto& [high, low, prefix] : firmwares)
        EXPECT_EQ(ModelPrefix(FirmwareText(high, low)).toStdString(), prefix) << high << " " << low;
    EXPECT_EQ(FirmwareText(0xAB, 0x0C), QStringLiteral("AB0C"));
}

// Read: the byte taken apart; write: the byte that the settings dialog's values make again.
TEST_F(DeviceTest, TheSettingByteHoldsParityAndBaudIDBothWays)
{
    const std::tuple<int, const char*, int> bytes[]
        = {{0x81, "O", 1}, {0xC1, "E", 1}, {0x01, "N", 1}, {0x7F, "N", 127}, {0xBF, "O", 63}};
    for (const auto& [byte, parity, baudID] : bytes) {
        SCOPED_TRACE(byte);
        EXPECT_EQ(DecodeSettingByte(byte), (SettingByte {parity, baudID}));
        const QString rate = QString::number(100000 + baudID); // a row of its own for each id
        AddRow(g.system.rsCommBaudList, {{"ModelName", "RM64T"}, {"BaudRate", rate}, {"BaudID", baudID}});
        platform.serial.answer(WithCrc("F71000800002"));
        EXPECT_TRUE(WriteDeviceComm(
            g, QStringLiteral("KV470-rm64t"), QStringLiteral("5"), rate, QString::fromLatin1(parity), false));
        QByteArray frame = QByteArray::fromHex("F7100080000204000500");
        frame.append(char(byte));
        EXPECT_EQ(Hex(platform.serial.written.back().left(11)), Hex(frame));
    }
}

// The model, the serial number in its odd order and the settings, under the busy box when
// asked for. A baud id without a row is shown by the settings dialog's test.
TEST_F(DeviceTest, ReadDeviceCommFillsTheRecord)
{
    ASSERT_TRUE(EnsureCommOpen(g, comm));
    for (const char* answer : {"F704024006", "F704080102030405060708", "F70304000500C3"})
        platform.serial.answer(WithCrc(answer));
    DeviceInfo info;
    EXPECT_TRUE(ReadDeviceComm(g, info, true));
    EXPECT_EQ(info, (DeviceInfo {"RM64T", "", "07-08-0506-030401-02", "9600", "E", "5"}));
    EXPECT_EQ(Hex(platform.serial.written.at(2)), Hex(WithCrc("F70300800002")));
    EXPECT_EQ(message.Caption, QStringLiteral("裝置通訊設定"));
    EXPECT_EQ(message.lblMessage.Caption, QStringLiteral("讀取裝置通訊設定中..."));
    EXPECT_FALSE(message.Visible);
    EXPECT_EQ(message.MousePointer, Pointer::Default);
}

// Model codes are compared exactly: a lower-case model has no rows.
TEST_F(DeviceTest, TheBaudRateIsLookedUpByTheExactModel)
{
    DeviceInfo info;
    info.Model = QStringLiteral("rm64mt");
    EXPECT_EQ(LookupBaudRate(g, info, QStringLiteral("3")), QStringLiteral("UnKnown"));
    info.Model = QStringLiteral("RM64MT");
    EXPECT_EQ(LookupBaudRate(g, info, QStringLiteral("3")), QStringLiteral("9600"));
}

TEST_F(DeviceTest, AFailedIdentityReadLeavesTheTextEmpty)
{
    ASSERT_TRUE(EnsureCommOpen(g, comm));
    g.link.Retry = 0;
    platform.serial.answer(WithCrc("F784020000"));
    QString version = QStringLiteral("stale");
    EXPECT_FALSE(ReadFirmwareVersion(g, version));
    EXPECT_TRUE(version.isEmpty());
}

TEST_F(DeviceTest, ABaudRateWithoutARowIsNoNumberForNoParityAndZeroForOdd)
{
    ASSERT_TRUE(EnsureCommOpen(g, comm));
    EXPECT_THROW(WriteDeviceComm(g, QStringLiteral("KV470-RM64T"), QStringLiteral("1"), QStringLiteral("110"),
                     QStringLiteral("N"), false),
        UnhandledError);
    platform.serial.answer(WithCrc("F71000800002"));
    EXPECT_TRUE(WriteDeviceComm(g, QStringLiteral("KV470-RM64T"), QStringLiteral("1"), QStringLiteral("110"),
        QStringLiteral("ODD"), false));
    EXPECT_EQ(quint8(platform.serial.written.back().at(10)), 0x80);
}
