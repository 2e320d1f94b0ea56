#pragma once

#include <functional>

#include <QByteArray>
#include <QString>

class CommBuffer;
class VORNAGlobal;
struct ProjectImage;

// The steps of a download around the records: the two erases, the size check, and every
// frame of a download built without the line, for a dry run.

// Sub-functions of the erase requests.
inline constexpr quint8 ClearPhoneBookFunction = 0x40;
inline constexpr quint8 ClearShortMsgFunction = 0x50;

// An erase request: station, 0x50, the sub-function, 0xFF. Sizes cmd with room for the CRC
// and returns nCmd.
qint16 SetClearRequest(VORNAGlobal& g, CommBuffer& cmd, quint8 subFunction);
bool ClearPhoneBook(VORNAGlobal& g);
bool ClearShortMessages(VORNAGlobal& g);

// The size check before a download: false, after its box, when the image is larger than the
// model's memory. An image of exactly MaxMemoryByte bytes passes.
bool IsImageSizeAllowed(VORNAGlobal& g);

// Each request of a download of the image in the order sent, built as the download builds
// it and with its CRC: the two erases, the phone-book records, the short-message records.
// dbgFile names the file that would keep the frame without its CRC; empty for the erases.
void ForEachDownloadFrame(VORNAGlobal& g, const ProjectImage& image,
    const std::function<void(const QByteArray& frame, const QString& dbgFile)>& take);
