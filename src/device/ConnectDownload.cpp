#include "ConnectDownload.h"

#include "VORNAGlobal.h"

void SetOnlineState(VORNAGlobal&) { }
void SetOfflineState(VORNAGlobal&) { }
QString CheckList(const VORNAGlobal&, const char*, int, int)
{
    return {};
}
bool ConnectDevice(VORNAGlobal&)
{
    return false;
}
bool DownloadProject(VORNAGlobal&)
{
    return false;
}
