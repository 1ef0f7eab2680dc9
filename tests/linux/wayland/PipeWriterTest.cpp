#include "VeskoLinux/wayland/PipeWriter.h"

#include "tests/linux/Desktop.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>

namespace vesko {
namespace {

using namespace desktop;

class PipeWriterTest : public testing::Test {
protected:
    PipeWriterTest() { EXPECT_EQ(pipe(m_ends.data()), 0); }
    ~PipeWriterTest() override { close(m_ends[0]); }

    PipeWriter writer(const std::string& text) const
    {
        return { m_ends[1], std::make_shared<const std::string>(text) };
    }

    // Up to that many bytes; fewer at the end only.
    std::string read(std::size_t count) const
    {
        std::string text(count, '\0');
        text.resize(static_cast<std::size_t>(::read(m_ends[0], text.data(), count)));
        return text;
    }

    std::array<int, 2> m_ends{};
};

TEST_F(PipeWriterTest, writesAsFastAsItsReaderReads)
{
    const std::string text(1'000'000, 'x'); // more than a pipe holds
    const PipeWriter writing = writer(text);
    std::string got;
    EXPECT_TRUE(until([&] {
        if (!writing.done())
            got += read(50'000);
        return writing.done();
    }));
    while (got.size() < text.size())
        got += read(50'000);
    EXPECT_EQ(got, text);
    EXPECT_EQ(read(1), ""); // the end
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
    EXPECT_EQ(read(1), "");
}

TEST_F(PipeWriterTest, hangsUpWhenItIsDropped)
{
    {
        const PipeWriter writing = writer("never said");
    }
    EXPECT_EQ(read(1), "");
}

} // namespace
} // namespace vesko
