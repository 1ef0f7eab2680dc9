// The engine that is always there: PocketSphinx behind the contract of docs/engines.md. It ends
// with a failure's words wherever the library does, such as behind a damaged model.

#include "VeskoLinux/speech/SpeechModel.h"

#include <pocketsphinx.h>
#include <sphinxbase/err.h>

#include <cstdint>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t longestPiece = std::size_t{ 60 } * 16'000 * sizeof(std::int16_t); // bytes

struct Free {
    void operator()(cmd_ln_t* config) const { cmd_ln_free_r(config); }
    void operator()(ps_decoder_t* decoder) const { ps_free(decoder); }
};
using Decoder = std::unique_ptr<ps_decoder_t, Free>;

Decoder decoderFor(const vesko::SpeechModel& model)
{
    const std::unique_ptr<cmd_ln_t, Free> config(
        cmd_ln_init(nullptr, ps_args(), TRUE, "-hmm", model.acoustic.c_str(), "-lm",
            model.language.c_str(), "-dict", model.dictionary.c_str(), nullptr));
    return Decoder(config ? ps_init(config.get()) : nullptr);
}

// A piece is decoded as a whole, which takes the level of all of it into account.
std::optional<std::string> heard(ps_decoder_t* decoder, const std::vector<std::int16_t>& piece)
{
    if (ps_start_utt(decoder) < 0
        || ps_process_raw(decoder, piece.data(), piece.size(), FALSE, TRUE) < 0
        || ps_end_utt(decoder) < 0)
        return std::nullopt;
    const char* words = ps_get_hyp(decoder, nullptr);
    return words ? words : "";
}

int failed(const char* why)
{
    std::cout << "failed " << why << std::endl;
    return 1;
}

int serve(const std::filesystem::path& models)
{
    std::cout << "vesko-engine 1\nname pocketsphinx\nversion 5prealpha\nlicence BSD-2-Clause\n"
              << "languages";
    for (const auto& tag : vesko::SpeechModel::installed(models))
        std::cout << ' ' << tag;
    std::cout << "\nready" << std::endl;

    std::optional<vesko::SpeechModel> model;
    Decoder decoder;
    std::vector<std::int16_t> piece;
    for (std::string line; std::getline(std::cin, line);) {
        const auto blank = line.find(' ');
        const auto word = line.substr(0, blank);
        const auto rest = blank == std::string::npos ? "" : line.substr(blank + 1);
        if (word == "language") {
            model = vesko::SpeechModel::find(models, rest);
            decoder = model ? decoderFor(*model) : nullptr; // while the user still speaks
        } else if (word == "piece") {
            const auto bytes = std::stoul(rest);
            if (bytes > longestPiece)
                return failed("the piece is too long");
            piece.resize(bytes / sizeof(std::int16_t));
            if (!std::cin.read(
                    reinterpret_cast<char*>(piece.data()), static_cast<std::streamsize>(bytes)))
                return 0; // nobody wants it any more
            if (!model)
                return failed("there is no model for this language");
            if (!decoder)
                return failed("the model can't be loaded");
            const auto words = heard(decoder.get(), piece);
            if (!words)
                return failed("the decoder failed");
            std::cout << "model " << model->name() << "\ntext " << *words << std::endl;
        }
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    // The library's log tells what it heard.
    err_set_logfp(nullptr);
    try {
        const bool elsewhere = argc == 3 && std::string_view(argv[1]) == "--models";
        return serve(elsewhere ? argv[2] : VESKO_SPEECH_MODELS);
    } catch (const std::exception&) {
        return failed("the sound is none");
    }
}
