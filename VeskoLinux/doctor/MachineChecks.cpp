// What the machine itself has: its sound, its models, its room.

#include "VeskoCore/library/VeskoError.h"
#include "VeskoLinux/audio/Microphone.h"
#include "VeskoLinux/doctor/Checks.h"
#include "VeskoLinux/media/GstPlugins.h"

#include <QString>
#include <QSysInfo>

#include <gst/gst.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <system_error>

namespace vesko {

namespace {

constexpr double silence = -300; // decibels
constexpr double quietest = -70; // decibels; a microphone that is muted is far below

std::string environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value ? value : "";
}

bool hasElement(const char* name)
{
    GstElementFactory* const factory = gst_element_factory_find(name);
    if (factory)
        gst_object_unref(factory);
    return factory != nullptr;
}

std::string roomOf(std::uintmax_t bytes)
{
    constexpr double gigabyte = 1e9;
    return QString::number(static_cast<double>(bytes) / gigabyte, 'f', 1).toStdString() + " GB";
}

} // namespace

Finding lookAtVersions(const std::string& version)
{
    guint major = 0;
    guint minor = 0;
    guint micro = 0;
    guint nano = 0;
    gst_version(&major, &minor, &micro, &nano);
    return Finding::fact("Vesko " + version + ", " + QSysInfo::prettyProductName().toStdString()
        + ", Qt " + qVersion() + ", GStreamer " + std::to_string(major) + "."
        + std::to_string(minor) + "." + std::to_string(micro));
}

Finding lookAtSession(const std::string& kind)
{
    const auto desktop = environment("XDG_CURRENT_DESKTOP");
    if (environment("DISPLAY").empty() && environment("WAYLAND_DISPLAY").empty())
        return Finding::wanting("there is no display", "Start Vesko from within your desktop.");
    return Finding::fact(kind + "; desktop " + (desktop.empty() ? "unknown" : desktop));
}

Finding lookAtMicrophone()
{
    if (!loadGstPlugins({ "pulseaudio" }) || !hasElement("pulsesrc"))
        return Finding::wanting("GStreamer can't reach a sound server",
            "Install the package gstreamer1.0-plugins-good.");
    if (!microphoneExists())
        return Finding::wanting("the sound server has none, or there is no sound server",
            "Connect one; start pipewire-pulse or pulseaudio.");
    const auto level = microphoneLevel();
    if (!level)
        return Finding::wanting(
            "it can't be opened", "Look whether another program has it to itself.");
    // The meter's own way to say nothing at all.
    const bool isSilent = *level < silence;
    const auto heard = isSilent ? std::string("it gave silence")
                                : "its loudest was " + std::to_string(std::lround(*level)) + " dB";
    if (*level < quietest)
        return Finding::wanting(heard, "Unmute it, or choose another one in the sound settings.");
    return Finding::fine(heard);
}

Finding lookAtEncoder()
{
    loadGstPlugins({ "coreelements", "audioconvert", "audioresample", "level", "libav",
        "audioparsers", "isomp4", "faad" });
    const struct {
        const char* element;
        const char* package;
    } parts[] = {
        { "queue", "libgstreamer1.0-0" },
        { "audioconvert", "gstreamer1.0-plugins-base" },
        { "audioresample", "gstreamer1.0-plugins-base" },
        { "level", "gstreamer1.0-plugins-good" },
        { "aacparse", "gstreamer1.0-plugins-good" },
        { "mp4mux", "gstreamer1.0-plugins-good" },
        { "avenc_aac", "gstreamer1.0-libav" },
        { "faad", "gstreamer1.0-plugins-bad" },
    };
    for (const auto& part : parts)
        if (!hasElement(part.element))
            return Finding::wanting(std::string("GStreamer lacks ") + part.element,
                std::string("Install the package ") + part.package + ".");
    return Finding::fine("recordings can be written and read");
}

Finding lookAtService(const OpenRouterClient& client)
{
    try {
        const auto models = client.models(true, {});
        return Finding::fine(
            "the speech service answers, with " + std::to_string(models.size()) + " models");
    } catch (const VeskoError& error) {
        return error.status() != 0
            ? Finding::wanting(
                  "the speech service answers with status " + std::to_string(error.status()),
                  "Try again later; a proxy or a sign-in page of the network may answer instead.")
            : Finding::wanting("what answers is not the speech service",
                  "A proxy or a sign-in page of the network may answer in its place.");
    } catch (const URLError&) {
        return Finding::wanting("the speech service can't be reached",
            "Look at the network and at its proxy settings.");
    }
}

Finding lookAtData(const std::filesystem::path& dataFolder)
{
    std::error_code error;
    auto place = dataFolder;
    while (!std::filesystem::exists(place, error) && place.has_relative_path())
        place = place.parent_path();
    if (!std::filesystem::is_directory(place, error) || ::access(place.c_str(), W_OK | X_OK) != 0)
        return Finding::wanting("the data folder can't be written to",
            "Look at its owner and permissions, and at VESKO_DATA_ROOT if you set it.");
    const auto space = std::filesystem::space(place, error);
    constexpr std::uintmax_t little = 200'000'000; // bytes: some hours of speech
    const auto room = error ? std::string("unknown") : roomOf(space.available);
    if (!error && space.available < little)
        return Finding::wanting(room + " are free", "Make room on the disk of the data folder.");
    return Finding::fine(room + " are free"
        + (place == dataFolder ? "" : "; the folder is made at the first start"));
}

} // namespace vesko
