#include "VeskoCore/base/InputFile.h"

#include <algorithm>
#include <exception>
#include <fcntl.h>
#include <sys/mman.h>
#include <system_error>

namespace vesko {

namespace {

constexpr std::size_t spareForParser = 64;

// A hint, and harmless where it isn't taken. Filling fresh memory page by page costs more than
// reading a large file.
void askForLargePages(std::string& text)
{
#ifdef MADV_HUGEPAGE
    constexpr std::size_t largePage = 2 << 20;
    void* begin = text.data();
    std::size_t room = text.capacity();
    if (std::align(largePage, largePage, begin, room))
        ::madvise(begin, room / largePage * largePage, MADV_HUGEPAGE);
#endif
}

} // namespace

std::unique_ptr<InputFile> InputFile::open(
    FileSystem& files, const std::filesystem::path& path, std::uint64_t limit)
{
    if (!files.status(path))
        return nullptr;
    return std::unique_ptr<InputFile>(new InputFile(files, path, limit));
}

// Without blocking, or a pipe that stands in the file's place would hold us for ever.
InputFile::InputFile(FileSystem& files, const std::filesystem::path& path, std::uint64_t limit)
    : m_files(files)
    , m_file(files, path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK)
{
    const auto status = files.status(m_file);
    if (status.kind != FileStatus::regular)
        throw std::system_error(std::make_error_code(std::errc::invalid_argument));
    if (status.size > limit)
        throw std::system_error(std::make_error_code(std::errc::file_too_large));
    m_size = status.size;
}

std::size_t InputFile::read(std::span<char> into, std::uint64_t from)
{
    into = into.first(std::min<std::uint64_t>(into.size(), m_size - std::min(from, m_size)));
    std::size_t filled = 0;
    while (filled < into.size()) {
        const auto came = m_files.read(m_file, into.subspan(filled), from + filled);
        if (came == 0)
            break;
        filled += came;
    }
    return filled;
}

std::string InputFile::text()
{
    std::string text;
    text.reserve(m_size + spareForParser);
    askForLargePages(text);
    std::exception_ptr failure;
    text.resize_and_overwrite(m_size, [&](char* begin, std::size_t size) noexcept -> std::size_t {
        try {
            return read({ begin, size }, 0);
        } catch (...) {
            failure = std::current_exception();
            return 0;
        }
    });
    if (failure)
        std::rethrow_exception(failure);
    return text;
}

} // namespace vesko
