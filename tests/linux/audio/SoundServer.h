#pragma once

#include "tests/linux/audio/Child.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace vesko {

// A PulseAudio of our own with the microphone `mic`, which hears what is played into the sink
// `vmic`, and the loudspeaker `vout`. From the first use on, this process knows no other server.
class SoundServer {
public:
    enum class Microphone { present, absent };

    explicit SoundServer(Microphone microphone = Microphone::present);

    // Makes this process know the private server's address, whether or not it runs.
    static void keepToOurselves();

    // Plays 440 Hz into the sink of a microphone, at this power, until the server ends.
    void playTone(double decibels, const std::string& sink = "vmic");
    // A second microphone, which isn't the default one; it hears what is played into its sink.
    static void addMicrophone(const std::string& name, const std::string& sink);
    // Unplugs it; its sink's monitor goes only with the sink.
    static void removeMicrophone(const std::string& name);
    // Sends it to sleep, as a headset goes that saves its battery, or wakes it.
    static void suspendMicrophone(const std::string& name, bool suspend);
    static void removeSink(const std::string& name);
    // As pactl prints it.
    static std::string list(const std::string& kind);

    void hang() const { m_server->signal(19 /* SIGSTOP */); }
    void goOn() const { m_server->signal(18 /* SIGCONT */); }
    void kill();

private:
    std::unique_ptr<Child> m_server;
    std::unique_ptr<Child> m_tone;
};

} // namespace vesko
