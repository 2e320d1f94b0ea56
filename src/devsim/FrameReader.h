#pragma once

#include <optional>
#include <vector>

#include <QByteArray>
#include <QByteArrayView>

namespace devsim {

// Cuts the bytes of the line into request frames. A frame is taken as soon as it is complete
// and its checksum holds, wherever it starts in what has arrived, so garbage before it is
// skipped and a frame split over several reads is joined. Bytes that make no frame are
// dropped once the line has been silent for the frame gap.
class FrameReader
{
public:
    explicit FrameReader(qint64 gapUs)
        : m_gapUs(gapUs)
    { }

    // The bytes that arrived at nowUs; returns the frames that they complete, in order.
    std::vector<QByteArray> receive(QByteArrayView bytes, qint64 nowUs);

    // The line has been quiet until nowUs. After a full gap whatever is left is one frame of
    // a layout the device doesn't know if its checksum holds, and noise otherwise.
    std::vector<QByteArray> silence(qint64 nowUs);

    qint64 discardedBytes() const { return m_discarded; }
    bool pending() const { return !m_buffer.isEmpty(); }

    // Length of the request that starts at `at`, CRC included, once enough of its head is
    // there to tell; nothing for a head that is too short or of an unknown function.
    static std::optional<qsizetype> RequestLength(QByteArrayView bytes, qsizetype at);

private:
    qint64 m_gapUs;
    QByteArray m_buffer;
    qint64 m_lastByteUs = 0;
    qint64 m_discarded = 0;
};

} // namespace devsim
