#pragma once

#include "VeskoApp/platform/SettingsStore.h"
#include "VeskoCore/base/FileSystem.h"

#include <QCborMap>

#include <filesystem>
#include <optional>

#include <sys/stat.h>

namespace vesko {

// Settings in the file vesko/settings.cbor of the user's configuration folder: one CBOR map from
// names to values, which keeps the kinds of values apart. Readable by the user alone.
//
// Several processes may use one file: each reads it anew when another has written it, and a write
// keeps what others have stored meanwhile. What could not be written stays in memory, is told in
// the log without its value, and goes with the next write.
//
// A file that is no such map (damaged, larger than 1 MiB, no file at all) reads as empty and stays
// as it is until the first write, which renames it to settings.damaged-N.cbor; the last five of
// these are kept. A file that can't be read for another reason is never replaced.
class CborSettings final : public SettingsStore {
public:
    // The folder need not exist.
    explicit CborSettings(
        const std::filesystem::path& configurationFolder, FileSystem& files = FileSystem::posix());

    std::optional<SettingValue> value(const std::string& key) const override;
    void set(const std::string& key, const SettingValue& value) override;
    void remove(const std::string& key) override;
    bool saved() const override { return m_unwritten.isEmpty(); }
    // A damaged or unreadable file is not empty: something was stored there.
    bool empty() const override;

private:
    enum class State { absent, readable, damaged, unreadable };

    void read() const;
    void readIfChanged() const;
    void keep(const QString& name, const QCborValue& value);
    void write();
    void setAside() const;

    FileSystem& m_files;
    std::filesystem::path m_folder;
    std::filesystem::path m_file;
    QCborMap m_unwritten; // changes; one to undefined is a removal

    // What the file held when it looked like this.
    mutable std::optional<struct stat> m_seen;
    mutable State m_state = State::absent;
    mutable QCborMap m_stored;
};

} // namespace vesko
