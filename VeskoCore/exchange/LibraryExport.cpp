#include "VeskoCore/exchange/LibraryExport.h"

#include "VeskoCore/base/FileSystem.h"
#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/base/UserFile.h"
#include "VeskoCore/exchange/Zip.h"

#include <algorithm>
#include <cerrno>
#include <deque>
#include <map>
#include <set>
#include <system_error>
#include <utility>

namespace vesko {

namespace {

constexpr std::size_t longestName = 60; // characters

// A name that any system takes for a file.
std::string safeName(std::string_view text)
{
    std::string name;
    for (const char c : firstCharacters(trimmed(firstLine(text)), longestName)) {
        const bool isForbidden = static_cast<unsigned char>(c) < 0x20 || c == 0x7f
            || std::string_view("/\\:*?\"<>|").contains(c);
        name += isForbidden ? '-' : c;
    }
    while (name.ends_with('.') || name.ends_with(' '))
        name.pop_back();
    while (name.starts_with('.'))
        name.erase(0, 1);
    return name.empty() ? "untitled" : name;
}

class Export {
public:
    explicit Export(const std::filesystem::path& file)
    {
        int code = 0;
        m_archive.reset(m_zip.open(file.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code));
        if (!m_archive)
            throw std::system_error(errno, std::generic_category(), "zip_open");
    }

    void addText(const std::string& name, std::string text)
    {
        const auto& kept = m_texts.emplace_back(std::move(text));
        add(name, m_zip.sourceBuffer(m_archive.get(), kept.data(), kept.size(), 0), ZIP_CM_DEFLATE);
    }
    void addAudio(const std::string& name, const std::filesystem::path& file)
    {
        // Sound is as small as it gets.
        add(name, m_zip.sourceFile(m_archive.get(), file.c_str(), 0, -1), ZIP_CM_STORE);
    }

    // The name, or another where that one is taken; case counts as one, as on some disks.
    std::string unusedName(const std::string& name, const char* suffix, const Uuid& id)
    {
        if (m_names.insert(lowercased(name + suffix)).second)
            return name + suffix;
        return name + " (" + id.text() + ")" + suffix;
    }

    void write(const ExchangeWatch& watch)
    {
        auto* const state = const_cast<ExchangeWatch*>(&watch);
        constexpr double steps = 0.005;
        m_zip.onProgress(
            m_archive.get(), steps,
            [](zip_t*, double done, void* to) {
                static_cast<const ExchangeWatch*>(to)->progress(done);
            },
            nullptr, state);
        m_zip.onCancel(
            m_archive.get(),
            [](zip_t*, void* to) {
                return static_cast<const ExchangeWatch*>(to)->isCancelled() ? 1 : 0;
            },
            nullptr, state);
        if (m_zip.close(m_archive.get()) != 0)
            fail();
        std::ignore = m_archive.release();
    }

private:
    void add(const std::string& name, zip_source_t* source, zip_int32_t method)
    {
        const auto index
            = source ? m_zip.fileAdd(m_archive.get(), name.c_str(), source, ZIP_FL_ENC_UTF_8) : -1;
        if (index < 0) {
            m_zip.sourceFree(source);
            fail();
        }
        m_zip.setCompression(m_archive.get(), static_cast<zip_uint64_t>(index), method, 1);
    }
    [[noreturn]] void fail() const
    {
        auto* const error = m_zip.getError(m_archive.get());
        if (m_zip.errorCode(error) == ZIP_ER_CANCELLED)
            throw ExchangeFailure(ExchangeFailure::cancelled);
        const int code = m_zip.systemCode(error);
        throw std::system_error(code != 0 ? code : EIO, std::generic_category(), "zip_close");
    }

    const LibZip& m_zip = LibZip::get();
    std::deque<std::string> m_texts; // goes after the archive that reads them
    std::set<std::string> m_names;
    ZipArchive m_archive;
};

void fill(Export& archive, const Library& library, const std::filesystem::path& recordings)
{
    auto& files = FileSystem::posix();
    std::map<Uuid, const Project*> projects;
    for (const auto& project : library.projects)
        projects.emplace(project.id, &project);
    archive.addText("library.json", JsonWriter::write(library, JsonWriter::Form::pretty));
    for (const auto& note : library.notes) {
        const auto project = note.projectID ? projects.find(*note.projectID) : projects.end();
        const auto name = project == projects.end() ? std::optional<std::string>()
                                                    : std::optional(project->second->name);
        const auto folder = "notes/" + (name ? safeName(*name) + '/' : std::string());
        if (!note.deletedAt)
            archive.addText(
                archive.unusedName(folder + safeName(note.displayTitle()), ".md", note.id),
                note.markdown(name));
        for (const auto& recording : note.recordings) {
            if (recording.audioRemovedAt || recording.status == RecordingStatus::recording)
                continue; // it is about to go, or still grows
            const auto file = Recording::fileNameFor(recording.id);
            const auto status = files.status(recordings / file);
            if (status && status->kind == FileStatus::regular)
                archive.addAudio("recordings/" + file, recordings / file);
        }
    }
}

} // namespace

void exportLibrary(const Library& library, const std::filesystem::path& recordings,
    const std::filesystem::path& file, const ExchangeWatch& watch)
{
    replaceUserFile(FileSystem::posix(), file, [&](const std::filesystem::path& fresh) {
        Export archive(fresh);
        fill(archive, library, recordings);
        archive.write(watch);
    });
}

} // namespace vesko
