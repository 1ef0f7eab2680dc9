#include "VeskoCore/base/Secret.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace vesko {

class Secret::Pages {
public:
    explicit Pages(std::string_view text)
        : m_size(text.size())
        , m_room((text.size() / page() + 1) * page())
        , m_begin(
              ::mmap(nullptr, m_room, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))
    {
        if (m_begin == MAP_FAILED)
            throw std::bad_alloc();
        // Each of these may fail: an old kernel, or a user who may lock no more memory.
        ::madvise(m_begin, m_room, MADV_DONTDUMP);
        ::madvise(m_begin, m_room, MADV_WIPEONFORK);
        ::mlock(m_begin, m_room);
        std::memcpy(m_begin, text.data(), text.size());
    }
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;
    ~Pages()
    {
        ::explicit_bzero(m_begin, m_room);
        ::munmap(m_begin, m_room);
    }

    std::string_view text() const { return { static_cast<const char*>(m_begin), m_size }; }

private:
    static std::size_t page() { return static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)); }

    std::size_t m_size;
    std::size_t m_room;
    void* m_begin;
};

Secret::Secret(std::string_view text, Direct)
    : m_pages(text.empty() ? nullptr : std::make_shared<const Pages>(text))
{
}

Secret Secret::taken(std::string& text)
{
    Secret secret(text);
    wipe(text);
    return secret;
}

Secret::operator std::string_view() const
{
    return m_pages ? m_pages->text() : std::string_view();
}

void wipe(std::string& text)
{
    text.resize(text.capacity());
    ::explicit_bzero(text.data(), text.size());
    text.clear();
}

Secret takeFromEnvironment(const char* name)
{
    char* const value = std::getenv(name);
    if (!value)
        return {};
    Secret secret{ std::string_view(value) };
    ::explicit_bzero(value, std::strlen(value));
    ::unsetenv(name);
    return secret;
}

} // namespace vesko
