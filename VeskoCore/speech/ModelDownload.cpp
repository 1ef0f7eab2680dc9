#include "VeskoCore/speech/ModelDownload.h"

#include "VeskoCore/base/Digest.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/speech/Curl.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace vesko {

namespace {

namespace fs = std::filesystem;

constexpr long redirects = 5;
constexpr long idleSeconds = 60;

// A published size is rounded.
std::uintmax_t mostBytes(const PublishedModel& model)
{
    return model.bytes() + model.bytes() / 10 + 4096;
}

// The part of the file that is there already.
class PartialFile {
public:
    explicit PartialFile(const fs::path& path)
        : m_file(::open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0644))
    {
        struct stat status{};
        if (m_file < 0 || ::fstat(m_file, &status) != 0 || !S_ISREG(status.st_mode))
            throw ModelFailure(ModelFailure::storage);
        m_size = static_cast<std::uintmax_t>(status.st_size);
        ::lseek(m_file, 0, SEEK_END);
    }
    PartialFile(const PartialFile&) = delete;
    PartialFile& operator=(const PartialFile&) = delete;
    ~PartialFile() { ::close(m_file); }

    std::uintmax_t size() const { return m_size; }
    bool append(const char* bytes, std::size_t count)
    {
        for (std::size_t done = 0; done < count;) {
            const ssize_t written = ::write(m_file, bytes + done, count - done);
            if (written < 0 && errno == EINTR)
                continue;
            if (written <= 0) {
                m_full = errno == ENOSPC || errno == EDQUOT || errno == EFBIG;
                return false;
            }
            done += static_cast<std::size_t>(written);
            m_size += static_cast<std::uintmax_t>(written);
        }
        return true;
    }
    bool beginAnew()
    {
        m_size = 0;
        return ::ftruncate(m_file, 0) == 0 && ::lseek(m_file, 0, SEEK_SET) == 0;
    }
    bool full() const { return m_full; }
    bool sync() const { return ::fsync(m_file) == 0; }
    std::string sum(const std::stop_token& stop) const
    {
        Sha1 digest;
        std::array<char, 1 << 16> bytes;
        for (off_t at = 0;;) {
            if (stop.stop_requested())
                throw ModelFailure(ModelFailure::stopped);
            const ssize_t count = ::pread(m_file, bytes.data(), bytes.size(), at);
            if (count < 0)
                throw ModelFailure(ModelFailure::storage);
            if (count == 0)
                return hexadecimal(digest.finished());
            digest.add({ bytes.data(), static_cast<std::size_t>(count) });
            at += count;
        }
    }

private:
    int m_file;
    std::uintmax_t m_size = 0;
    bool m_full = false;
};

// One transfer of what is missing.
class Transfer {
public:
    Transfer(PartialFile& file, std::uintmax_t most,
        const std::function<void(std::uintmax_t)>& progress, const std::stop_token& stop)
        : m_file(file)
        , m_most(most)
        , m_progress(progress)
        , m_stop(stop)
        , m_easy(curl().easyInit(), curl().easyCleanup)
    {
        if (!m_easy)
            throw ModelFailure(ModelFailure::unreachable);
    }

    void perform(const std::string& url)
    {
        const char* schemes = url.starts_with("https:") ? "https" : "http,https";
        set(CURLOPT_URL, url.c_str());
        set(CURLOPT_PROTOCOLS_STR, schemes);
        set(CURLOPT_REDIR_PROTOCOLS_STR, schemes);
        set(CURLOPT_FOLLOWLOCATION, 1L);
        set(CURLOPT_MAXREDIRS, redirects);
        set(CURLOPT_NOSIGNAL, 1L);
        set(CURLOPT_CONNECTTIMEOUT, idleSeconds);
        set(CURLOPT_LOW_SPEED_LIMIT, 1L);
        set(CURLOPT_LOW_SPEED_TIME, idleSeconds);
        // Not by libcurl's own way to resume, which gives up where a server gives all of it again.
        const auto rest = std::to_string(m_file.size()) + "-";
        if (m_file.size() > 0)
            set(CURLOPT_RANGE, rest.c_str());
        set(CURLOPT_WRITEFUNCTION, &Transfer::take);
        set(CURLOPT_WRITEDATA, this);
        set(CURLOPT_NOPROGRESS, 0L);
        set(CURLOPT_XFERINFOFUNCTION, &Transfer::goOn);
        set(CURLOPT_XFERINFODATA, this);
        const CURLcode code = curl().easyPerform(m_easy.get());
        if (m_stop.stop_requested())
            throw ModelFailure(ModelFailure::stopped);
        if (m_failure)
            throw *m_failure;
        const long status = number(CURLINFO_RESPONSE_CODE);
        if (status >= 300)
            throw ModelFailure(ModelFailure::refused);
        if (code != CURLE_OK)
            throw ModelFailure(ModelFailure::unreachable);
    }
    // The server knows no such part of the file: it is whole, or another one.
    bool hasNoMore() { return number(CURLINFO_RESPONSE_CODE) == 416; }

private:
    template <typename Value>
    void set(CURLoption option, Value value)
    {
        if (curl().easySetopt(m_easy.get(), option, value) != CURLE_OK)
            throw ModelFailure(ModelFailure::unreachable);
    }
    long number(CURLINFO info)
    {
        long value = 0;
        curl().easyGetinfo(m_easy.get(), info, &value);
        return value;
    }
    static std::size_t take(const char* data, std::size_t, std::size_t size, void* self) noexcept
    {
        return static_cast<Transfer*>(self)->taken(data, size) ? size : CURL_WRITEFUNC_ERROR;
    }
    bool taken(const char* data, std::size_t size)
    {
        constexpr long whole = 200, part = 206;
        const long status = number(CURLINFO_RESPONSE_CODE);
        if (status != whole && status != part)
            return status >= 300; // words about the failure
        // Some servers give all of it again.
        if (!m_began && status == whole && m_file.size() > 0 && !m_file.beginAnew())
            return failed(ModelFailure::storage);
        m_began = true;
        if (m_file.size() + size > m_most)
            return failed(ModelFailure::wrongSum);
        if (!m_file.append(data, size))
            return failed(m_file.full() ? ModelFailure::noRoom : ModelFailure::storage);
        m_progress(m_file.size());
        return true;
    }
    bool failed(ModelFailure::Kind kind)
    {
        m_failure = ModelFailure(kind);
        return false;
    }
    static int goOn(void* self, curl_off_t, curl_off_t, curl_off_t, curl_off_t) noexcept
    {
        return static_cast<Transfer*>(self)->m_stop.stop_requested() ? 1 : 0;
    }

    PartialFile& m_file;
    std::uintmax_t m_most;
    const std::function<void(std::uintmax_t)>& m_progress;
    const std::stop_token& m_stop;
    std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> m_easy;
    bool m_began = false;
    std::optional<ModelFailure> m_failure;
};

void requireRoom(const PublishedModel& model, const fs::path& folder, std::uintmax_t there)
{
    std::error_code error;
    const auto space = fs::space(folder, error);
    if (!error && model.bytes() > there && space.available < model.bytes() - there)
        throw ModelFailure(ModelFailure::noRoom);
}

} // namespace

const char* ModelFailure::errorDescription() const
{
    switch (m_kind) {
    case unreachable:
        return L10N_KEY("Vesko",
            "The model can't be reached. What has arrived is kept. Check the connection and try "
            "again.");
    case refused:
        return L10N_KEY("Vesko", "The server doesn't have this model. Try again later.");
    case noRoom:
        return L10N_KEY("Vesko", "There isn't enough room on the disk for this model.");
    case storage:
        return L10N_KEY("Vesko", "The model can't be saved.");
    case wrongSum:
        return L10N_KEY("Vesko", "The model arrived damaged and was removed. Try again.");
    case stopped:
        break;
    }
    return L10N_KEY("Vesko", "The download was paused. What has arrived is kept.");
}

fs::path downloadModel(const PublishedModel& model, const std::string& address,
    const fs::path& folder, const std::function<void(std::uintmax_t)>& progress,
    const std::stop_token& stop)
{
    const auto place = folder / model.file();
    const fs::path partial = place.string() + ".part";
    std::error_code error;
    fs::create_directories(folder, error);
    PartialFile file(partial);
    requireRoom(model, folder, file.size());
    // A rest that is whole already, since only its renaming was missing, needs no server.
    const bool whole = file.size() > 0 && file.sum(stop) == model.sha1;
    if (!whole) {
        Transfer transfer(file, mostBytes(model), progress, stop);
        try {
            transfer.perform(address + model.file());
        } catch (const ModelFailure& failure) {
            if (failure.kind() == ModelFailure::wrongSum || transfer.hasNoMore()) {
                fs::remove(partial, error);
                throw ModelFailure(ModelFailure::wrongSum);
            }
            throw;
        }
        if (file.sum(stop) != model.sha1) {
            fs::remove(partial, error);
            throw ModelFailure(ModelFailure::wrongSum);
        }
    }
    if (!file.sync())
        throw ModelFailure(ModelFailure::storage);
    fs::rename(partial, place, error);
    if (error)
        throw ModelFailure(ModelFailure::storage);
    return place;
}

} // namespace vesko
