#include "VeskoCore/base/DynamicLibrary.h"

#include <dlfcn.h>
#include <stdexcept>
#include <string>

namespace vesko {

DynamicLibrary::DynamicLibrary(const char* name)
    : m_handle(::dlopen(name, RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE))
{
    if (!m_handle)
        throw std::runtime_error(std::string(name) + " can't be loaded");
}

DynamicLibrary::Symbol DynamicLibrary::operator[](const char* function) const
{
    void* const address = ::dlsym(m_handle, function);
    if (!address)
        throw std::runtime_error(std::string("the library lacks ") + function);
    return Symbol(address);
}

} // namespace vesko
