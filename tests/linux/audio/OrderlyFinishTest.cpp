// What stands in a recording's file at each moment of its finish, whatever of that has reached the
// disk.

#include "VeskoLinux/audio/OrderlyFinish.h"

#include "VeskoLinux/media/GstPlugins.h"
#include "VeskoLinux/media/RecordingSound.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/RecordedDisk.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/linux/audio/AudioFile.h"

#include <gst/gst.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

namespace vesko {
namespace {

class OrderlyFinishTest : public testing::Test {
protected:
    void SetUp() override
    {
        loadGstPlugins({ "coreelements", "audiotestsrc", "audioconvert", "audioresample", "libav",
            "audioparsers", "isomp4", "faad" });
        const auto description
            = "audiotestsrc num-buffers=150 ! audioconvert ! audioresample"
              " ! audio/x-raw,rate=44100,channels=1 ! audioconvert"
              " ! avenc_aac bitrate=96000 ! aacparse"
              " ! mp4mux fragment-duration=200 fragment-mode=first-moov-then-finalise"
              " ! filesink name=sink buffer-mode=unbuffered location="
            + file.string();
        m_pipeline = gst_parse_launch(description.c_str(), nullptr);
        ASSERT_NE(m_pipeline, nullptr);
        GstElement* sink = gst_bin_get_by_name(GST_BIN(m_pipeline), "sink");
        GstPad* pad = gst_element_get_static_pad(sink, "sink");
        finish = std::make_unique<OrderlyFinish>(pad);
        gst_object_unref(pad);
        gst_object_unref(sink);
        gst_element_set_state(m_pipeline, GST_STATE_PLAYING);
        ASSERT_TRUE(comesToItsEnd(m_pipeline));
        before = bytesOf(file);
        disk.begin();
        finish->complete(disk, file);
        after = bytesOf(file);
    }
    ~OrderlyFinishTest() override
    {
        if (m_pipeline) {
            gst_element_set_state(m_pipeline, GST_STATE_NULL);
            gst_object_unref(m_pipeline);
        }
    }
    static bool comesToItsEnd(GstElement* pipeline)
    {
        GstBus* bus = gst_element_get_bus(pipeline);
        GstMessage* end = gst_bus_timed_pop_filtered(bus, GST_CLOCK_TIME_NONE,
            static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR));
        const bool good = GST_MESSAGE_TYPE(end) == GST_MESSAGE_EOS;
        gst_message_unref(end);
        gst_object_unref(bus);
        return good;
    }
    // The seconds of its sound, as others find them, if it can be read here too; else 0.
    double secondsOf(const std::string& bytes) const
    {
        const auto other = folder.path() / "other.m4a";
        putBytes(other, bytes);
        const auto description
            = "filesrc location=" + other.string() + " ! qtdemux ! faad ! fakesink";
        GstElement* pipeline = gst_parse_launch(description.c_str(), nullptr);
        gst_element_set_state(pipeline, GST_STATE_PLAYING);
        const bool read = comesToItsEnd(pipeline);
        gst_element_set_state(pipeline, GST_STATE_NULL);
        gst_object_unref(pipeline);
        return read ? seconds(audiofile::decode(other)) : 0;
    }

    // As this program finds them.
    double secondsHere(const std::string& bytes) const
    {
        const auto other = folder.path() / "other.m4a";
        putBytes(other, bytes);
        std::size_t samples = 0;
        try {
            decodeRecording(other, {}, [&](const auto& sound) { samples += sound.size(); });
        } catch (const std::runtime_error&) {
            return 0;
        }
        return static_cast<double>(samples) / soundRate;
    }
    // Where each part begins by which the file grew.
    std::vector<std::size_t> fragments() const
    {
        std::vector<std::size_t> found;
        for (auto at = before.find("moof"); at != std::string::npos;
            at = before.find("moof", at + 1))
            found.push_back(at - 4);
        return found;
    }

    const TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "recording.m4a";
    std::unique_ptr<OrderlyFinish> finish;
    RecordedDisk disk{ folder.path() };
    std::string before; // the finish, as the file grew
    std::string after;

private:
    GstElement* m_pipeline = nullptr;
};

TEST_F(OrderlyFinishTest, LeavesTheGrownFileOrTheOrdinaryOne)
{
    EXPECT_EQ(audiofile::boxes(file), "ftyp free mdat moov ");
    EXPECT_GT(secondsOf(after), 3.3);
    EXPECT_NEAR(secondsOf(before), secondsOf(after), 0.1);
    std::set<std::string> found;
    for (const auto& state : disk.afterPowerLoss())
        found.insert(state.contains("recording.m4a") ? state.at("recording.m4a") : "none");
    EXPECT_TRUE(found == (std::set{ before, after }));
}

// Which is what mp4mux by itself lets happen.
TEST_F(OrderlyFinishTest, IsNeededSinceTheNewBeginningAloneWouldLoseTheSound)
{
    const auto table = after.rfind("moov") - 4;
    EXPECT_EQ(secondsOf(after.substr(0, table)), 0);
}

TEST_F(OrderlyFinishTest, AGrownFilePlaysAsFarAsItHasReachedTheDisk)
{
    const auto parts = fragments();
    ASSERT_GT(parts.size(), 10U);
    const double whole = secondsHere(before);
    EXPECT_GT(whole, 3.3);
    double least = 0;
    for (std::size_t part = 2; part + 1 < parts.size(); ++part) {
        SCOPED_TRACE(part);
        const auto length = parts[part + 1] - parts[part];
        const auto cut = parts[part] + length / 2;
        const double sound = secondsHere(before.substr(0, cut));
        EXPECT_GE(sound, least);
        least = whole * static_cast<double>(part) / static_cast<double>(parts.size()) - 0.25;
        EXPECT_GT(sound, least);
        // What has a place already, and no content, is nothing but zeros.
        auto hollow = before;
        hollow.replace(cut, hollow.size() - cut, hollow.size() - cut, '\0');
        EXPECT_GE(secondsHere(hollow), least);
        auto gap = before;
        gap.replace(parts[part], length, length, '\0');
        EXPECT_GE(secondsHere(gap), least);
    }
}

TEST_F(OrderlyFinishTest, AFileThatIsGoneIsAFailure)
{
    EXPECT_THROW(
        finish->complete(FileSystem::posix(), folder.path() / "nothing"), std::system_error);
}

} // namespace
} // namespace vesko
