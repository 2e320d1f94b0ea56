#include <atomic>
#include <cstdlib>
#include <fcntl.h>
#include <thread>

#include <modbus/modbus.h>

#include "DeviceRegisters.h"
#include "PtyLinkFixture.h"

namespace {

// libmodbus as an independent device at station 247, on the master side of a pseudo-terminal;
// the link opens the slave side through the real QSerialPort line.
class ModbusDevice
{
public:
    ModbusDevice()
    {
        m_master = posix_openpt(O_RDWR | O_NOCTTY);
        grantpt(m_master);
        unlockpt(m_master);
        path = QString::fromLatin1(ptsname(m_master));
        m_ctx = modbus_new_rtu("/dev/null", 9600, 'N', 8, 1);
        modbus_set_slave(m_ctx, 247);
        modbus_set_socket(m_ctx, m_master);
        modbus_set_indication_timeout(m_ctx, 0, 100000);
        m_map = modbus_mapping_new(0, 0, 0x90, 0x10);
        m_map->tab_input_registers[0] = 0x4006;
        m_map->tab_input_registers[1] = 0x0301;
        for (int k = 0; k < 4; ++k)
            m_map->tab_input_registers[2 + k] = quint16(((2 * k + 1) << 8) | (2 * k + 2));
        m_map->tab_registers[0x80] = 0x0005;
        m_map->tab_registers[0x81] = 0x00C3;
        m_thread = std::thread([this] { serve(); });
    }
    ~ModbusDevice()
    {
        m_stop = true;
        m_thread.join();
        modbus_mapping_free(m_map);
        modbus_set_socket(m_ctx, -1);
        modbus_free(m_ctx);
        ::close(m_master);
    }
    QString path;
    std::atomic<int> requests {0};

private:
    void serve()
    {
        uint8_t query[MODBUS_RTU_MAX_ADU_LENGTH];
        while (!m_stop) {
            const int n = modbus_receive(m_ctx, query);
            if (n > 0) {
                ++requests;
                modbus_reply(m_ctx, query, n, m_map);
            }
        }
    }
    int m_master = -1;
    modbus_t* m_ctx = nullptr;
    modbus_mapping_t* m_map = nullptr;
    std::atomic<bool> m_stop {false};
    std::thread m_thread;
};

class ModbusPtyTest : public PtyLinkTest
{
protected:
    ModbusPtyTest() { EXPECT_TRUE(openLine(device.path)); }
    ModbusDevice device;
};

} // namespace

// The model and serial number by function 04, the settings by function 03.
TEST_F(ModbusPtyTest, ReadsTheIdentityFromAnIndependentDevice)
{
    QString version;
    EXPECT_TRUE(ReadFirmwareVersion(g, version));
    EXPECT_EQ(version, QStringLiteral("0301"));
    DeviceInfo info;
    EXPECT_TRUE(ReadDeviceComm(g, info, false));
    EXPECT_EQ(info, (DeviceInfo {"RM64T", "", "07-08-0506-030401-02", "9600", "E", "5"}));
    EXPECT_EQ(device.requests.load(), 4);
}
