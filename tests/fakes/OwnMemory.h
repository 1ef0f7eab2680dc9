#pragma once

#include "VeskoCore/base/Secret.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>

namespace vesko {

// How often a text stands in the memory of this process that can be written to. It is given with
// its bits turned over, so that it is not found in the question.
class OwnMemory {
public:
    static std::string turnedOver(std::string_view text)
    {
        std::string turned(text);
        std::ranges::transform(
            turned, turned.begin(), [](char c) { return static_cast<char>(~c); });
        return turned;
    }
    // A key that stands nowhere else in the program, and the same one turned over.
    static std::string freshKey()
    {
        std::string key = "sk-";
        for (int part = 7; part < 15; ++part)
            key += std::to_string(1'000'003 * part);
        return key;
    }
    static std::string turnedKey()
    {
        auto key = freshKey();
        auto turned = turnedOver(key);
        wipe(key);
        return turned;
    }

    static int count(const std::string& turned)
    {
        constexpr std::uint64_t hugest = std::uint64_t{ 1 } << 30; // a sanitizer's own
        int found = 0;
        const int memory = ::open("/proc/self/mem", O_RDONLY | O_CLOEXEC);
        std::ifstream maps("/proc/self/maps");
        for (std::string line; std::getline(maps, line);) {
            std::uint64_t begin = 0, end = 0;
            char rights[5] = {};
            if (std::sscanf(line.c_str(), "%lx-%lx %4s", &begin, &end, rights) == 3
                && std::string_view(rights).starts_with("rw") && end - begin < hugest)
                found += countIn(memory, begin, end, turned);
        }
        ::close(memory);
        return found;
    }

private:
    static int countIn(int memory, std::uint64_t at, std::uint64_t end, const std::string& turned)
    {
        static std::array<char, std::size_t{ 1 } << 20> piece;
        int found = 0;
        while (at + turned.size() <= end) {
            const auto came = ::pread(memory, piece.data(),
                std::min<std::uint64_t>(piece.size(), end - at), static_cast<off_t>(at));
            if (came < static_cast<ssize_t>(turned.size()))
                break;
            // What was read is not to be found again.
            for (ssize_t byte = 0; byte < came; ++byte)
                piece[static_cast<std::size_t>(byte)]
                    = static_cast<char>(~piece[static_cast<std::size_t>(byte)]);
            const std::string_view text(piece.data(), static_cast<std::size_t>(came));
            for (auto from = text.find(turned); from != text.npos;
                from = text.find(turned, from + 1))
                ++found;
            at += static_cast<std::uint64_t>(came) - turned.size() + 1;
        }
        piece.fill(0);
        return found;
    }
};

} // namespace vesko
