#include "VeskoCore/base/Folder.h"

#include <system_error>

namespace vesko {

void eachEntry(const std::filesystem::path& folder,
    const std::function<void(const std::filesystem::path&)>& visit)
{
    // The loop of the language would throw at each step but the first.
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(folder, failure), end; !failure && entry != end;
        entry.increment(failure))
        visit(entry->path());
}

} // namespace vesko
