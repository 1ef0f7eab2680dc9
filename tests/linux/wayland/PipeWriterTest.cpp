#include "VeskoLinux/wayland/PipeWriter.h"

#include "tests/linux/Desktop.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace vesko {
namespace {

using namespace desktop;

class PipeWriterTest : public testing::Test {
protected:
    PipeWriterTest() { EXPECT_EQ(pipe2(m_ends.data(), O_NONBLOCK), 0); }
    ~PipeWriterTest() override { close(m_ends[0]); }

    PipeWriter writer(const std::string& text) const
    {
        return { m_ends[1], std::make_shared<const std::string>(text) };
    }

    // What is in the pipe now, up to that many bytes.
    std::string read(std::size_t count) const
    {
        std::string text(count, '\0');
        const auto got = ::read(m_ends[0], text.data(), count);
        text.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        return text;
    }
    bool ended() const
    {
        char letter = 0;
        return ::read(m_ends[0], &letter, 1) == 0;
    }

    std::array<int, 2> m_ends{};
};

TEST_F(PipeWriterTest, writesAsFastAsItsReaderReads)
{
    const std::string text(1'000'000, 'x'); // more than a pipe holds
    const PipeWriter writing = writer(text);
    std::string got;
    EXPECT_TRUE(until([&] {
        got += read(50'000);
        return got.size() == text.size();
    }));
    EXPECT_EQ(got, text);
    EXPECT_TRUE(until([&] { return writing.done(); }));
    EXPECT_TRUE(ended());
}

TEST_F(PipeWriterTest, isDoneWhenItsReaderGoes)
{
    const PipeWriter writing = writer(std::string(1'000'000, 'x'));
    close(std::exchange(m_ends[0], -1));
    EXPECT_TRUE(until([&] { return writing.done(); }));
}

TEST_F(PipeWriterTest, endsAtOnceWithoutText)
{
    const PipeWriter writing = writer("");
    EXPECT_TRUE(until([&] { return writing.done(); }));
    EXPECT_TRUE(ended());
}

TEST_F(PipeWriterTest, hangsUpWhenItIsDropped)
{
    {
        const PipeWriter writing = writer("never said");
    }
    EXPECT_TRUE(ended());
}

} // namespace
} // namespace vesko
