#pragma once

#include <QString>

class VORNAGlobal;

// The two procedures of the Device menu: a connect that proves a dialler answers and shows
// who it is, and a download that erases it and sends it the open project.

// The link state as the user sees it, set together with IsDeviceConnected: the status panel
// "ConnectStatus" reads " Online" with the picture "Connect", or " Offline" with "DisConnect".
void SetOnlineState(VORNAGlobal& g);
void SetOfflineState(VORNAGlobal& g);

// The check list that closes every failure box that may have to do with the line: its four
// lines, each looked up by its own key (seq firstSeq to firstSeq + 3 of id in module), joined
// by CR LF.
QString CheckList(const VORNAGlobal& g, const char* module, int id, int firstSeq);

// Both return whether they succeeded; the caller may ignore it, as the boxes have told the
// user and IsDeviceConnected holds the outcome.
bool ConnectDevice(VORNAGlobal& g);
bool DownloadProject(VORNAGlobal& g);
