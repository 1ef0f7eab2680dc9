#pragma once

#include <gtest/gtest.h>

#include <string>

namespace vesko {

// The text with the first of `what`, which must be there, put otherwise.
inline std::string replaced(std::string text, const std::string& what, const std::string& by)
{
    const auto at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), by);
}

} // namespace vesko
