#pragma once

#include <vector>

#include <QByteArray>

#include "UnhandledError.h"

// A byte buffer of the protocol, indexed from 1 as every frame position is counted. An
// index outside the bounds is a subscript out of range, an unhandled error.
class CommBuffer
{
public:
    CommBuffer() = default;
    explicit CommBuffer(int upper)
        : m_bytes(upper > 0 ? upper : 0, 0)
    { }

    quint8& operator()(int i)
    {
        check(i);
        return m_bytes[i - 1];
    }
    quint8 operator()(int i) const
    {
        check(i);
        return m_bytes[i - 1];
    }
    int ubound() const { return int(m_bytes.size()); }
    // New upper bound, keeping the content (new bytes are 0).
    void resize(int upper) { m_bytes.resize(upper > 0 ? upper : 0, 0); }
    const quint8* data() const { return m_bytes.data(); }

    // Positions first to first + count - 1.
    QByteArray bytes(int first, int count) const
    {
        if (count <= 0)
            return {};
        check(first);
        check(first + count - 1);
        return QByteArray(reinterpret_cast<const char*>(m_bytes.data()) + first - 1, count);
    }

private:
    void check(int i) const
    {
        if (i < 1 || i > int(m_bytes.size()))
            throw UnhandledError(QStringLiteral("Subscript out of range"));
    }
    std::vector<quint8> m_bytes;
};
