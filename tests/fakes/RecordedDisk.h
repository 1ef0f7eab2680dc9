#pragma once

#include "VeskoCore/base/FileSystem.h"
#include "tests/fakes/Files.h"

#include <algorithm>
#include <fcntl.h>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace vesko {

// The machine's file system, which remembers what was changed below a folder and what was brought
// to the disk, and says what a loss of power at any moment may leave there. Of what was not synced
// any part may be on the disk and any other not, in any order: a file's content up to half a
// write, a folder's entries each by itself. It relies on this alone: a synced file has its
// content, a synced folder has its entries, and each change of an entry happens whole or not at
// all, in a rename the new name and the content it had.
class RecordedDisk final : public FileSystem {
public:
    using State = std::map<std::string, std::string>; // paths below the folder and contents

    explicit RecordedDisk(std::filesystem::path folder)
        : m_folder(std::move(folder))
    {
    }

    bool syncs = true; // else nothing ever reaches the disk for sure

    // From now on; all that stands there now is on the disk.
    void begin()
    {
        m_steps.clear();
        m_contents.clear();
        m_names.clear();
        for (const auto& [path, bytes] : contentOf(m_folder))
            if (std::filesystem::is_regular_file(m_folder / path))
                m_names[path] = newContent(bytes);
        m_atFirst = m_names;
        m_before = m_contents;
    }

    // What may be found after a loss of power at any moment since the beginning.
    std::set<State> afterPowerLoss() const
    {
        std::set<State> states;
        for (std::size_t moment = 0; moment <= m_steps.size(); ++moment)
            addStates(moment, states);
        return states;
    }

    // At this moment.
    std::set<State> afterPowerLossNow() const
    {
        std::set<State> states;
        addStates(m_steps.size(), states);
        return states;
    }

    int open(const std::filesystem::path& path, int flags, mode_t permissions) override
    {
        const bool isNew = (flags & O_CREAT) != 0 && !m_real.status(path);
        const int file = m_real.open(path, flags, permissions);
        m_open[file] = path;
        if (isNew)
            addStep({ .entries = { { nameOf(path), newContent("") } } });
        return file;
    }
    std::size_t read(int file, std::span<char> into, std::uint64_t from) override
    {
        return m_real.read(file, into, from);
    }
    std::size_t write(int file, std::string_view bytes) override
    {
        const auto written = m_real.write(file, bytes);
        addStep({ .content = contentBehind(file), .bytes = std::string(bytes.substr(0, written)) });
        return written;
    }
    void setPermissions(int file, mode_t permissions) override
    {
        m_real.setPermissions(file, permissions);
    }
    void setOwner(int file, uid_t owner, gid_t group) override
    {
        m_real.setOwner(file, owner, group);
    }
    void sync(int file) override
    {
        m_real.sync(file);
        if (!syncs)
            return;
        if (m_real.status(file).kind == FileStatus::folder)
            addStep({ .syncedFolder = nameOf(m_open.at(file)) });
        else
            addStep({ .syncedContent = contentBehind(file) });
    }
    void close(int file) override { m_real.close(file); }
    std::optional<FileStatus> status(const std::filesystem::path& path) override
    {
        return m_real.status(path);
    }
    FileStatus status(int file) override { return m_real.status(file); }
    void rename(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        m_real.rename(from, to);
        const auto content = m_names.at(nameOf(from));
        // Nothing happens where both are one file.
        if (const auto there = m_names.find(nameOf(to));
            there == m_names.end() || there->second != content)
            addStep({ .entries = { { nameOf(to), content }, { nameOf(from), none } } });
    }
    void link(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        m_real.link(from, to);
        addStep({ .entries = { { nameOf(to), m_names.at(nameOf(from)) } } });
    }
    void unlink(const std::filesystem::path& path) override
    {
        m_real.unlink(path);
        addStep({ .entries = { { nameOf(path), none } } });
    }
    void makeFolder(const std::filesystem::path& path, mode_t permissions) override
    {
        m_real.makeFolder(path, permissions); // folders are there whatever happens
    }

private:
    static constexpr int none = -1;
    using Entry = std::pair<std::string, int>; // a name and the content it stands for

    // One of these.
    struct Step {
        std::vector<Entry> entries{};
        int content = none;
        std::string bytes{};
        int syncedContent = none;
        std::optional<std::string> syncedFolder{};
    };

    std::string nameOf(const std::filesystem::path& path) const
    {
        return path.lexically_relative(m_folder);
    }
    int contentBehind(int file) const { return m_names.at(nameOf(m_open.at(file))); }
    int newContent(const std::string& bytes)
    {
        m_contents.push_back(bytes);
        return static_cast<int>(m_contents.size()) - 1;
    }
    void addStep(Step step)
    {
        for (const auto& [name, content] : step.entries) {
            if (content == none)
                m_names.erase(name);
            else
                m_names[name] = content;
        }
        m_steps.push_back(std::move(step));
    }

    // Whether the step is on the disk for sure at that moment.
    bool isSynced(std::size_t at, std::size_t moment) const
    {
        const auto& step = m_steps[at];
        for (auto later = at + 1; later < moment; ++later) {
            const auto& sync = m_steps[later];
            if (step.content != none && sync.syncedContent == step.content)
                return true;
            if (!step.entries.empty() && sync.syncedFolder) {
                const auto folder = std::filesystem::path(step.entries[0].first).parent_path();
                if (*sync.syncedFolder == (folder.empty() ? "." : folder.string()))
                    return true;
            }
        }
        return false;
    }

    void addStates(std::size_t moment, std::set<State>& states) const
    {
        std::vector<std::size_t> loose; // what may be there or not
        std::vector<int> shares(moment, whole);
        for (std::size_t at = 0; at < moment; ++at) {
            const auto& step = m_steps[at];
            if ((step.content != none || !step.entries.empty()) && !isSynced(at, moment))
                loose.push_back(at);
        }
        // Each loose step counts through what of it is there, like the digits of a number.
        for (const auto at : loose)
            shares[at] = nothing;
        while (true) {
            states.insert(stateOf(shares));
            auto digit = loose.begin();
            for (; digit != loose.end(); ++digit) {
                // Half an entry is none.
                shares[*digit] += m_steps[*digit].content == none ? whole : half;
                if (shares[*digit] <= whole)
                    break;
                shares[*digit] = nothing;
            }
            if (digit == loose.end())
                return;
        }
    }

    static constexpr int nothing = 0;
    static constexpr int half = 1; // of a write
    static constexpr int whole = 2;

    State stateOf(const std::vector<int>& shares) const
    {
        auto names = m_atFirst;
        auto contents = m_before;
        contents.resize(m_contents.size());
        std::vector<std::size_t> lengths(contents.size());
        for (std::size_t at = 0; at < shares.size(); ++at) {
            const auto& step = m_steps[at];
            if (step.content != none) {
                const auto file = static_cast<std::size_t>(step.content);
                // A later write may be there without one before it.
                const auto begin = lengths[file];
                lengths[file] += step.bytes.size();
                const auto size = shares[at] == whole ? step.bytes.size()
                    : shares[at] == half              ? step.bytes.size() / 2
                                                      : 0;
                if (size > 0) {
                    contents[file].resize(std::max(contents[file].size(), begin + size));
                    contents[file].replace(begin, size, step.bytes, 0, size);
                }
            }
            if (shares[at] == nothing)
                continue;
            for (const auto& [name, content] : step.entries) {
                if (content == none)
                    names.erase(name);
                else
                    names[name] = content;
            }
        }
        State state;
        for (const auto& [name, content] : names)
            state[name] = contents[static_cast<std::size_t>(content)];
        return state;
    }

    FileSystem& m_real = FileSystem::posix();
    std::filesystem::path m_folder;
    std::map<int, std::filesystem::path> m_open; // as of the last opening
    std::vector<std::string> m_contents; // as they were at first; empty for later ones
    std::vector<std::string> m_before;
    std::map<std::string, int> m_names, m_atFirst;
    std::vector<Step> m_steps;
};

} // namespace vesko
