#include "VeskoApp/transcription/AudioBytes.h"

#include "VeskoCore/base/InputFile.h"
#include "VeskoCore/speech/OpenRouterClient.h"

#include <algorithm>
#include <cstdint>
#include <system_error>

namespace vesko {

std::string audioBytes(const std::filesystem::path& file)
{
    const auto audio = InputFile::open(FileSystem::posix(), file, UINT64_MAX);
    if (!audio)
        throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory));
    std::string bytes(
        std::min<std::uint64_t>(audio->size(), OpenRouterClient::audioLimit + 1), '\0');
    bytes.resize(audio->read(bytes, 0));
    return bytes;
}

} // namespace vesko
