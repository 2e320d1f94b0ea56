#include <cerrno>
#include <vector>

#include <modbus.h>

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "DevsimProcess.h"

namespace {

// libmodbus, an independent Modbus stack, as the master: if it takes the dialler's answers,
// their framing, lengths and checksums agree with the standard's.
class ModbusTest : public testing::Test
{
protected:
    void TearDown() override
    {
        if (m_modbus) {
            modbus_close(m_modbus);
            modbus_free(m_modbus);
        }
    }

    void connect(const QString& path)
    {
        ASSERT_FALSE(path.isEmpty());
        m_modbus = modbus_new_rtu(path.toLocal8Bit().constData(), 9600, 'N', 8, 1);
        ASSERT_NE(m_modbus, nullptr);
        modbus_set_slave(m_modbus, 247);
        modbus_set_response_timeout(m_modbus, 1, 0);
        ASSERT_EQ(modbus_connect(m_modbus), 0) << modbus_strerror(errno);
    }

    modbus_t* m_modbus = nullptr;
};

TEST_F(ModbusTest, ReadsAndWritesTheRegisters)
{
    DevsimProcess devsim {{"--baud", "9600", "--model-id", "4106", "--firmware", "0412", "--serial",
        "A1B2C3D4E5F60718", "--slave-id", "9", "--setting-byte", "0x81", "--alarm-bits", "8000000000000005"}};
    connect(devsim.path());
    ASSERT_FALSE(HasFatalFailure());
    uint16_t input[12] = {};
    ASSERT_EQ(modbus_read_input_registers(m_modbus, 0x0000, 6, input), 6) << modbus_strerror(errno);
    EXPECT_EQ(std::vector(input, input + 6),
        (std::vector<uint16_t> {0x4106, 0x0412, 0xA1B2, 0xC3D4, 0xE5F6, 0x0718}));
    ASSERT_EQ(modbus_read_input_registers(m_modbus, 0x0006, 6, input + 6), 6) << modbus_strerror(errno);

    uint16_t holding[3] = {};
    ASSERT_EQ(modbus_read_registers(m_modbus, 0x0080, 3, holding), 3) << modbus_strerror(errno);
    EXPECT_EQ(std::vector(holding, holding + 3), (std::vector<uint16_t> {9, 0x81, 0xFFFF}));
    const uint16_t settings[2] = {5, 0xC3};
    ASSERT_EQ(modbus_write_registers(m_modbus, 0x0080, 2, settings), 2) << modbus_strerror(errno);
    ASSERT_EQ(modbus_read_registers(m_modbus, 0x0080, 2, holding), 2) << modbus_strerror(errno);
    EXPECT_EQ(std::vector(holding, holding + 2), (std::vector<uint16_t> {5, 0xC3}));

    uint8_t bits[64] = {};
    ASSERT_EQ(modbus_read_bits(m_modbus, 0, 64, bits), 64) << modbus_strerror(errno);
    std::vector<uint8_t> alarms(64, 0);
    alarms[0] = alarms[2] = alarms[63] = 1;
    EXPECT_EQ(std::vector(bits, bits + 64), alarms);

    // An address outside the map comes back as libmodbus's own exception.
    EXPECT_EQ(modbus_read_input_registers(m_modbus, 0x000C, 1, input), -1);
    EXPECT_EQ(errno, EMBXILADD);
}

// The link names the terminal while the dialler runs; SIGTERM ends it cleanly, with the link
// gone and the dump written.
TEST_F(ModbusTest, AnswersThroughItsLinkAndDumpsOnTermination)
{
    QTemporaryDir dir;
    const QString link = dir.filePath("ttyDialler");
    const QString dump = dir.filePath("dump.json");
    DevsimProcess devsim({"--baud", "0", "--link", link, "--dump", dump});
    ASSERT_TRUE(devsim.path().startsWith("/dev/pts/")) << devsim.path().toStdString();
    connect(link);
    ASSERT_FALSE(HasFatalFailure());
    uint16_t model = 0;
    ASSERT_EQ(modbus_read_input_registers(m_modbus, 0x0000, 1, &model), 1) << modbus_strerror(errno);
    EXPECT_EQ(model, 0x4006);
    EXPECT_EQ(devsim.stop(), 0);
    EXPECT_FALSE(QFile::exists(link));
    EXPECT_EQ(ReadDump(dump)["requests"].toObject()["received"].toInt(), 1);
}

} // namespace
