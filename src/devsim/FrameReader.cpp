#include "FrameReader.h"

#include "Crc16.h"

namespace devsim {

namespace {

// A request longer than this is noise: the largest record frame is 255 + 7 bytes.
constexpr qsizetype MaxBuffered = 1024;

quint8 At(QByteArrayView bytes, qsizetype i)
{
    return static_cast<quint8>(bytes[i]);
}

} // namespace

std::optional<qsizetype> FrameReader::RequestLength(QByteArrayView bytes, qsizetype at)
{
    const qsizetype have = bytes.size() - at;
    if (have < 2)
        return std::nullopt;
    switch (At(bytes, at + 1)) {
    case 0x01:
    case 0x03:
    case 0x04:
        return 8;
    case 0x10:
        if (have < 7)
            return std::nullopt;
        return 9 + At(bytes, at + 6);
    case 0x50:
        if (have < 3)
            return std::nullopt;
        switch (At(bytes, at + 2)) {
        case 0x40:
        case 0x50:
            return 6;
        case 0x43:
        case 0x53:
            if (have < 5)
                return std::nullopt;
            return 7 + At(bytes, at + 4);
        default:
            return std::nullopt;
        }
    default:
        return std::nullopt;
    }
}

std::vector<QByteArray> FrameReader::receive(QByteArrayView bytes, qint64 nowUs)
{
    std::vector<QByteArray> frames = silence(nowUs);
    m_buffer.append(bytes);
    m_lastByteUs = nowUs;

    for (qsizetype at = 0; at < m_buffer.size();) {
        const std::optional<qsizetype> length = RequestLength(m_buffer, at);
        if (length && at + *length <= m_buffer.size()
            && CrcHolds(QByteArrayView(m_buffer).sliced(at, *length))) {
            m_discarded += at;
            frames.push_back(m_buffer.sliced(at, *length));
            m_buffer.remove(0, at + *length);
            at = 0;
        } else {
            ++at;
        }
    }
    if (m_buffer.size() > MaxBuffered) {
        m_discarded += m_buffer.size() - MaxBuffered;
        m_buffer.remove(0, m_buffer.size() - MaxBuffered);
    }
    return frames;
}

std::vector<QByteArray> FrameReader::silence(qint64 nowUs)
{
    std::vector<QByteArray> frames;
    if (m_buffer.isEmpty() || nowUs - m_lastByteUs < m_gapUs)
        return frames;
    if (m_buffer.size() >= 4 && CrcHolds(m_buffer))
        frames.push_back(m_buffer);
    else
        m_discarded += m_buffer.size();
    m_buffer.clear();
    return frames;
}

} // namespace devsim
