#pragma once

#include <cctype>
#include <string>

// A test name from a case's description: anything but letters and digits becomes '_'.
inline std::string CaseName(const char* name)
{
    std::string n = name;
    for (char& ch : n)
        if (!std::isalnum(static_cast<unsigned char>(ch)))
            ch = '_';
    return n;
}
