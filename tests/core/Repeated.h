#pragma once

#include <string>

namespace vesko {

inline std::string repeated(const std::string& text, int times)
{
    std::string all;
    for (; times > 0; --times)
        all += text;
    return all;
}

} // namespace vesko
