#pragma once

#include <array>

#include "UnhandledError.h"

// A fixed array indexed from Low to High, as the tool declares its arrays. An index
// outside the bounds is a "subscript out of range": an unhandled error.
template<typename T, int Low, int High> class VBArray
{
public:
    T& operator()(int i)
    {
        check(i);
        return m_items[i - Low];
    }
    const T& operator()(int i) const
    {
        check(i);
        return m_items[i - Low];
    }
    static constexpr int lbound() { return Low; }
    static constexpr int ubound() { return High; }
    bool operator==(const VBArray&) const = default;

private:
    static void check(int i)
    {
        if (i < Low || i > High)
            throw UnhandledError(QStringLiteral("Subscript out of range"));
    }
    std::array<T, High - Low + 1> m_items {};
};
