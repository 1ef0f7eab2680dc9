#pragma once

#include <type_traits>

namespace vesko {

// A shared library of the system that is loaded when it is first needed. Vesko waits for a key
// press most of its life; what only a dictation needs is to cost it no memory until then, and no
// time at its start. Stays loaded.
class DynamicLibrary {
public:
    // A function of the library, as the header declares it; the two have to agree.
    class Symbol {
    public:
        template <class Function>
            requires std::is_function_v<Function>
        operator Function*() const // NOLINT(google-explicit-constructor): takes the type asked for
        {
            return reinterpret_cast<Function*>(m_address);
        }

    private:
        friend DynamicLibrary;
        explicit Symbol(void* address)
            : m_address(address)
        {
        }
        void* m_address;
    };

    // By its file name, such as "libcurl.so.4". Throws std::runtime_error if it isn't installed.
    explicit DynamicLibrary(const char* name);

    // Throws std::runtime_error if neither the library nor one that it needs has such a function.
    Symbol operator[](const char* function) const;

private:
    void* m_handle;
};

} // namespace vesko
