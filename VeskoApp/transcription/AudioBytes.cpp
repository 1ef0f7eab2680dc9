#include "VeskoApp/transcription/AudioBytes.h"

#include "VeskoCore/speech/OpenRouterClient.h"

#include <cerrno>
#include <fstream>
#include <system_error>

namespace vesko {

std::string audioBytes(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    const auto wanted = std::min<std::uintmax_t>(
        std::filesystem::file_size(file), OpenRouterClient::audioLimit + 1);
    std::string bytes(wanted, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream)
        throw std::system_error(EIO, std::generic_category());
    return bytes;
}

} // namespace vesko
