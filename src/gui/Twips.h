#pragma once

#include <QtGlobal>

// The forms measure in twips, as they were drawn: 15 to the pixel of a 96 dots-an-inch screen.
namespace Twips {

inline int toPixels(double twips)
{
    return qRound(twips / 15.0);
}

inline double fromPixels(int pixels)
{
    return pixels * 15.0;
}

} // namespace Twips
