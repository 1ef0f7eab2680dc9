#pragma once

#include "VeskoApp/platform/SoundListener.h"

#include <condition_variable>
#include <memory>
#include <mutex>

using GstAppSink = struct _GstAppSink;
using GstBuffer = struct _GstBuffer;
using GstElement = struct _GstElement;
using GstPad = struct _GstPad;

namespace vesko {

// Gives a listener what an encoder makes, decoded again: the same sound as the file's, to the
// sample. A graph of its own, so that no trouble in it reaches the recording.
class SoundTap {
public:
    // On what leaves this pad, which outlives this object or loses its stream before. Throws
    // std::runtime_error where a part isn't installed.
    SoundTap(GstPad* encoded, std::shared_ptr<SoundListener> listener);
    SoundTap(const SoundTap&) = delete;
    SoundTap& operator=(const SoundTap&) = delete;
    // Waits until the listener has all that has come, for a while.
    ~SoundTap();

private:
    void enter(GstBuffer* buffer);
    void close();
    void leave();
    void finish(bool whole);

    std::shared_ptr<SoundListener> m_listener;
    GstElement* m_pipeline = nullptr;
    GstElement* m_source = nullptr;
    GstElement* m_sink = nullptr;
    GstPad* m_encoded;
    unsigned long m_probe = 0;
    bool m_began = false; // touched by the encoder's thread only

    std::mutex m_mutex; // for what follows
    std::condition_variable m_noted;
    bool m_closed = false; // all has come in
    bool m_finished = false; // the listener knows the end
};

} // namespace vesko
