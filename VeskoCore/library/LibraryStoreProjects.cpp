// The operations on projects. A project is never deleted, so a note's project always exists.

#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/LibraryStore.h"

#include <algorithm>

namespace vesko {

namespace {

constexpr std::size_t mostNameCharacters = 80;

// The name as it is stored. Throws invalidProject.
std::string validName(std::string_view name)
{
    name = trimmed(name);
    if (name.empty() || firstCharacters(name, mostNameCharacters) != name)
        throw VeskoError(VeskoError::invalidProject);
    return std::string(name);
}

void requireUnused(const std::string& name, const Project& other)
{
    if (sameIgnoringCase(other.name, name))
        throw VeskoError(VeskoError::duplicateProject);
}

} // namespace

void LibraryStore::requireProject(const std::optional<Uuid>& id) const
{
    if (id && std::ranges::find(m_library.projects, *id, &Project::id) == m_library.projects.end())
        throw VeskoError(VeskoError::notFound);
}

Project LibraryStore::createProject(const std::string& name)
{
    const Project project{ Uuid::random(), validName(name), m_clock.now() };
    for (const auto& other : m_library.projects)
        requireUnused(project.name, other);
    Library changed = m_library;
    changed.projects.append(project);
    save(std::move(changed));
    return project;
}

void LibraryStore::renameProject(const Uuid& id, const std::string& name)
{
    const auto valid = validName(name);
    requireProject(id);
    Library changed = m_library;
    for (std::size_t index = 0; index < m_library.projects.size(); ++index) {
        if (m_library.projects[index].id != id)
            requireUnused(valid, m_library.projects[index]);
        else
            changed.projects.edit(index, [&](Project& project) { project.name = valid; });
    }
    save(std::move(changed));
}

} // namespace vesko
