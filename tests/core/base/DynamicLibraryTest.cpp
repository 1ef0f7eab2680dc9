#include "VeskoCore/base/DynamicLibrary.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>

namespace vesko {

TEST(DynamicLibraryTest, AFunctionIsCalledAsItsHeaderDeclaresIt)
{
    const DynamicLibrary library("libm.so.6");
    double (*const whole)(double) = library["floor"];
    EXPECT_EQ(whole(27.5), 27);
}

TEST(DynamicLibraryTest, AFunctionOfALibraryThatItNeedsIsFoundToo)
{
    const DynamicLibrary library("libm.so.6");
    std::size_t (*const length)(const char*) = library["strlen"];
    EXPECT_EQ(length("four"), 4U);
}

TEST(DynamicLibraryTest, WhatIsNotThereIsAnError)
{
    EXPECT_THROW(DynamicLibrary("libnosuch.so.1"), std::runtime_error);
    EXPECT_THROW(DynamicLibrary("libm.so.6")["no_such_function"], std::runtime_error);
}

} // namespace vesko
