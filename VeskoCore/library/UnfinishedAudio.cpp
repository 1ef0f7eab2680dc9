#include "VeskoCore/library/UnfinishedAudio.h"

#include "VeskoCore/base/InputFile.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vesko {

namespace {

constexpr int mostBoxes = 64; // an ordinary file has four

std::uint64_t number(std::string_view bytes)
{
    std::uint64_t value = 0;
    for (const char byte : bytes)
        value = value << 8U | static_cast<unsigned char>(byte);
    return value;
}

// Whether its boxes fill the file, among them the one that is written last: that tells where the
// sound is.
bool isWhole(InputFile& file)
{
    std::uint64_t at = 0;
    bool hasIndex = false;
    for (int count = 0; at < file.size() && count < mostBoxes; ++count) {
        std::array<char, 16> head{};
        const std::string_view bytes(head.data(), file.read(head, at));
        std::uint64_t size = number(bytes.substr(0, 4));
        if (size == 1 && bytes.size() == head.size())
            size = number(bytes.substr(8));
        if (bytes.size() < 8 || size < 8 || size > file.size() - at)
            return false;
        hasIndex = bytes.substr(4, 4) == "moov";
        at += size;
    }
    return at == file.size() && hasIndex;
}

} // namespace

std::filesystem::path unfinishedAudio(const std::filesystem::path& audio)
{
    return std::filesystem::path(audio) += ".tmp";
}

void settleUnfinishedAudio(FileSystem& files, const std::filesystem::path& audio)
{
    const auto beside = unfinishedAudio(audio);
    const auto file = InputFile::open(files, beside, UINT64_MAX);
    if (!file)
        return;
    const auto grown = files.status(audio);
    if (isWhole(*file))
        files.rename(beside, audio);
    else if (grown && grown->size > 0)
        files.unlink(beside);
}

} // namespace vesko
