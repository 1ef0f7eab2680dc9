#pragma once

#include "VeskoLinux/speech/engines/CommandEngine.h"

#include <filesystem>
#include <vector>

namespace vesko {

// A model of whisper.cpp's, in its own format.
struct WhisperModel {
    std::filesystem::path file;
    std::string name; // "base" of ggml-base.bin
    std::uintmax_t size = 0; // bytes
    bool multilingual = false;

    // Those named ggml-*.bin in the folders, smallest first, each name once, from the first folder
    // that has it. What isn't a plain file of that format is passed over.
    static std::vector<WhisperModel> in(const std::vector<std::filesystem::path>& folders);
};

// whisper.cpp by its command-line program, with one of its models.
class WhisperEngine final : public CommandEngine {
public:
    // Where the program usually is, and where models usually are, in the order of preference: of
    // this user's home and path.
    static std::vector<std::filesystem::path> usualPrograms();
    static std::vector<std::filesystem::path> usualModelFolders();
    // The languages that a multilingual model knows, as tags.
    static const std::vector<std::string>& languages();

    WhisperEngine(const std::filesystem::path& program, const WhisperModel& model);

    bool speaks(const std::string& language) const override;

private:
    bool m_multilingual;
};

// The processor's cores, each counted once however many threads it runs; at most 4, at least 1.
int recognitionThreads();

} // namespace vesko
