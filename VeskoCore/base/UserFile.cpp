#include "VeskoCore/base/UserFile.h"

#include "VeskoCore/base/Uuid.h"

#include <fcntl.h>
#include <system_error>

namespace vesko {

namespace {

constexpr int mostLinks = 40; // as many as the system itself follows
constexpr mode_t ownerOnly = 0600;
constexpr mode_t asTheUserLikes = 0666; // less the umask

// Only what differs is asked for, since not every file system can change it.
void makeAlike(FileSystem& files, int fresh, const FileStatus& present)
{
    const auto status = files.status(fresh);
    if (status.owner != present.owner || status.group != present.group)
        files.setOwner(fresh, present.owner, present.group);
    // Behind the owner, whose change may take permissions away.
    if (status.permissions != present.permissions)
        files.setPermissions(fresh, present.permissions);
}

} // namespace

std::filesystem::path fileBehindLinks(FileSystem& files, std::filesystem::path path)
{
    for (int links = 0; links < mostLinks; ++links) {
        const auto status = files.status(path);
        if (!status || status->kind != FileStatus::symbolicLink)
            return path;
        path = path.parent_path() / std::filesystem::read_symlink(path);
    }
    throw std::system_error(std::make_error_code(std::errc::too_many_symbolic_link_levels));
}

void replaceUserFile(FileSystem& files, const std::filesystem::path& path,
    const std::function<void(const std::filesystem::path&)>& fill)
{
    const auto target = fileBehindLinks(files, path);
    const auto present = files.status(target);
    if (present && present->kind != FileStatus::regular)
        throw std::system_error(std::make_error_code(std::errc::operation_not_permitted));

    // Short, whatever the length of the file's own name.
    const auto fresh = target.parent_path() / (".vesko-" + Uuid::random().text());
    OpenFile created(files, fresh, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW,
        present ? ownerOnly : asTheUserLikes);
    try {
        created.close();
        fill(fresh);
        const OpenFile file(files, fresh, O_RDONLY | O_NOFOLLOW);
        if (present)
            makeAlike(files, file, *present);
        files.sync(file);
        files.rename(fresh, target);
    } catch (...) {
        try {
            files.unlink(fresh);
        } catch (const std::system_error&) {
            // The failure before it is the one to tell of.
        }
        throw;
    }
    syncFolder(files, target.parent_path());
}

void writeUserFile(FileSystem& files, const std::filesystem::path& path, std::string_view bytes)
{
    replaceUserFile(files, path, [&](const std::filesystem::path& fresh) {
        OpenFile file(files, fresh, O_WRONLY | O_NOFOLLOW);
        writeAll(files, file, bytes);
        file.close();
    });
}

} // namespace vesko
