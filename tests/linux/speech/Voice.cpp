#include "tests/linux/speech/Voice.h"

#include "tests/linux/audio/Child.h"

namespace vesko::voice {

void speak(
    const std::vector<std::string>& sentences, const std::filesystem::path& file, double margin)
{
    const auto seconds = std::to_string(margin);
    std::vector<std::string> arguments;
    std::string padded, joined;
    for (std::size_t i = 0; i < sentences.size(); ++i) {
        const auto index = std::to_string(i);
        const std::string wave = file.string() + index + ".wav";
        Child::run({ "espeak-ng", "-v", "en-us+f2", "-s", "140", "-w", wave, sentences[i] });
        arguments.insert(arguments.end(), { "-i", wave });
        padded += "[" + index + "]adelay=" + seconds + "s:all=1,apad=pad_dur=" + seconds + "[p"
            + index + "];";
        joined += "[p" + index + "]";
    }
    arguments.insert(arguments.end(),
        { "-filter_complex",
            padded + joined + "concat=n=" + std::to_string(sentences.size()) + ":v=0:a=1", "-ar",
            "44100", "-ac", "1", "-c:a", "aac", "-b:a", "96k" });
    convert(arguments, file);
}

void keepSilent(int seconds, const std::filesystem::path& file)
{
    convert({ "-f", "lavfi", "-i", "anullsrc=r=16000:cl=mono", "-t", std::to_string(seconds),
                "-c:a", "aac", "-b:a", "16k" },
        file);
}

void repeat(const std::filesystem::path& recording, int seconds, const std::filesystem::path& file)
{
    convert({ "-stream_loop", "-1", "-i", recording, "-c", "copy", "-t", std::to_string(seconds) },
        file);
}

void convert(const std::vector<std::string>& arguments, const std::filesystem::path& file)
{
    std::vector<std::string> command{ "ffmpeg", "-nostdin", "-v", "error", "-y" };
    command.insert(command.end(), arguments.begin(), arguments.end());
    command.push_back(file);
    Child::run(command);
}

} // namespace vesko::voice
