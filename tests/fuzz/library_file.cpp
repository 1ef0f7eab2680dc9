// Bytes stand as a library's file. Reading it in pieces and looking at it as a whole come to the
// same, and what was read reads the same when it is written again.

#include "VeskoCore/base/JsonReader.h"
#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/library/LibraryReader.h"
#include "VeskoCore/library/VeskoError.h"

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

using namespace vesko;

namespace {

void require(bool kept)
{
    if (!kept)
        std::abort();
}

// What is read, or why nothing is.
template <class Read>
std::string outcome(Read read)
{
    try {
        return JsonWriter::write(read(), JsonWriter::Form::pretty);
    } catch (const VeskoError& error) {
        require(error == VeskoError(VeskoError::unsupportedSchema));
        return "later";
    } catch (const JsonError&) {
        return "damaged";
    }
}

// A file that is filled anew for each input.
class InputInFile {
public:
    InputInFile() { require(m_file >= 0); }
    InputInFile(const InputInFile&) = delete;
    InputInFile& operator=(const InputInFile&) = delete;
    ~InputInFile() { ::unlink(m_path.c_str()); }

    const std::string& filledWith(std::string_view bytes) const
    {
        require(::ftruncate(m_file, 0) == 0);
        require(
            ::pwrite(m_file, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()));
        return m_path;
    }

private:
    std::string m_path = "/dev/shm/vesko-fuzz-" + std::to_string(::getpid());
    int m_file = ::open(m_path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
};

std::string readFrom(std::string_view bytes)
{
    static const InputInFile input;
    const auto& path = input.filledWith(bytes);
    return outcome(
        [&] { return readLibrary(*InputFile::open(FileSystem::posix(), path, bytes.size())); });
}

std::string readAsAWhole(std::string_view bytes)
{
    return outcome([&] {
        const JsonDocument document{ std::string(bytes) };
        std::int64_t version = 0;
        if (document.root()["schemaVersion"].get(version) != simdjson::SUCCESS || version != 1)
            throw VeskoError(VeskoError::unsupportedSchema);
        return document.as<Library>();
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto read = readFrom(bytes);
    require(read == readAsAWhole(bytes));
    if (read.starts_with('{'))
        require(readFrom(read) == read);
    return 0;
}
