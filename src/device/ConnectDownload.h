#pragma once

#include <array>

#include <QString>

struct TextKey;
class VORNAGlobal;

// The two procedures of the Device menu: a connect that proves a dialler answers and shows
// who it is, and a download that erases it and sends it the open project.

// The link state as the user sees it, set together with IsDeviceConnected: the status panel
// "ConnectStatus" reads " Online" with the picture "Connect", or " Offline" with "DisConnect".
void SetOnlineState(VORNAGlobal& g);
void SetOfflineState(VORNAGlobal& g);

// The check list that closes every failure box that may have to do with the line: its four
// lines, each box with keys of its own, joined by CR LF.
QString CheckList(const VORNAGlobal& g, const std::array<TextKey, 4>& keys);

// Both return whether they succeeded; the caller may ignore it, as the boxes have told the
// user and IsDeviceConnected holds the outcome.
bool ConnectDevice(VORNAGlobal& g);
bool DownloadProject(VORNAGlobal& g);
