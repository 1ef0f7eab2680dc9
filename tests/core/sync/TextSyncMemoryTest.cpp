#include "tests/core/sync/SampleRevisions.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <sanitizer/allocator_interface.h>

using namespace vesko;

namespace {

std::atomic<std::size_t> held = 0, peak = 0;

void count(const volatile void*, std::size_t size)
{
    held += size;
    peak = std::max(peak.load(), held.load());
}

void discount(const volatile void* at)
{
    held -= std::min(held.load(), __sanitizer_get_allocated_size(const_cast<void*>(at)));
}

// The most that was allocated at once during the work, beyond what was before, in bytes.
std::size_t peakOf(const std::function<void()>& work)
{
    [[maybe_unused]] static const int hooks
        = __sanitizer_install_malloc_and_free_hooks(count, discount);
    const auto before = held.load();
    peak = before;
    work();
    return peak - before;
}

struct Peaks {
    std::size_t file, decode, merge, encode;
};

// For a few long histories.
Peaks peaksOf(unsigned count)
{
    constexpr unsigned histories = 10;
    std::vector<TextSyncRevision> revisions;
    for (unsigned number = 1; number <= count; ++number) {
        std::vector<Uuid> parents;
        if (number > histories)
            parents.push_back(idNumber(number - histories));
        revisions.push_back(
            projectRevision(idNumber(number), parents, idNumber(1'000'000 + number % histories)));
    }
    const SharedArray all(std::move(revisions));
    Peaks peaks{};
    TextSyncState state;
    peaks.merge = peakOf([&] { state.journal.merge(all); });
    auto text = textOf(state);
    peaks.encode = peakOf([&] { state.encode([](std::string_view) { }); });
    peaks.file = text.size();
    text.reserve(text.size() + 64);
    peaks.decode = peakOf([&] { TextSyncState::decode(std::move(text)); });
    return peaks;
}

} // namespace

// Five times the revisions may take five times the memory, and not twenty-five times.
TEST(TextSyncMemoryTest, memoryGrowsWithTheFileAndNotWithItsSquare)
{
    const auto few = peaksOf(10'000), many = peaksOf(50'000);
    constexpr double growth = 5.5;
    EXPECT_GT(few.decode, 10'000u * 100);
    EXPECT_LT(static_cast<double>(many.decode), growth * static_cast<double>(few.decode));
    EXPECT_LT(static_cast<double>(many.merge), growth * static_cast<double>(few.merge));
    EXPECT_LT(many.encode, 4'000'000u) << "a file is written piece by piece";
    // What simdjson sets aside for a text of that length is most of it.
    EXPECT_LT(many.decode, 16 * many.file);
    RecordProperty("bytesOfFile", static_cast<int>(many.file));
    RecordProperty("peakOfDecode", static_cast<int>(many.decode));
    RecordProperty("peakOfMerge", static_cast<int>(many.merge));
    RecordProperty("peakOfEncode", static_cast<int>(many.encode));
}
