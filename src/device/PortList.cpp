#include "PortList.h"

#include "VORNAGlobal.h"

int CommPortOf(const LinkState&, const QString&)
{
    return 0;
}
std::vector<PortRow> ListCommPorts(VORNAGlobal&)
{
    return {};
}
