#include "VeskoLinux/audio/OrderlyFinish.h"

#include "VeskoCore/base/FileSystem.h"
#include "VeskoCore/base/InputFile.h"
#include "VeskoCore/library/UnfinishedAudio.h"

#include <gst/gst.h>

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

namespace vesko {

OrderlyFinish::OrderlyFinish(GstPad* sink)
    : m_sink(GST_PAD(gst_object_ref(sink)))
{
    constexpr auto both = static_cast<GstPadProbeType>(
        GST_PAD_PROBE_TYPE_BUFFER | GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM);
    m_probe = gst_pad_add_probe(
        m_sink, both,
        [](GstPad*, GstPadProbeInfo* info, gpointer self) {
            auto& finish = *static_cast<OrderlyFinish*>(self);
            if ((GST_PAD_PROBE_INFO_TYPE(info) & GST_PAD_PROBE_TYPE_BUFFER) != 0)
                return finish.pass(GST_PAD_PROBE_INFO_BUFFER(info)) ? GST_PAD_PROBE_OK
                                                                    : GST_PAD_PROBE_DROP;
            finish.follow(GST_PAD_PROBE_INFO_EVENT(info));
            return GST_PAD_PROBE_OK;
        },
        this, nullptr);
}

OrderlyFinish::~OrderlyFinish()
{
    gst_pad_remove_probe(m_sink, m_probe);
    gst_object_unref(m_sink);
}

void OrderlyFinish::follow(GstEvent* event)
{
    if (GST_EVENT_TYPE(event) != GST_EVENT_SEGMENT)
        return;
    const GstSegment* segment = nullptr;
    gst_event_parse_segment(event, &segment);
    if (segment->format == GST_FORMAT_BYTES)
        m_at = segment->start;
}

bool OrderlyFinish::pass(GstBuffer* buffer)
{
    const auto at = m_at;
    const auto size = gst_buffer_get_size(buffer);
    m_at += size;
    if (m_held.empty() && at >= m_lastChange) {
        if (at < m_end)
            m_lastChange = at;
        m_end = std::max(m_end, m_at);
        return true;
    }
    std::string bytes(size, '\0');
    gst_buffer_extract(buffer, 0, bytes.data(), size);
    m_held.push_back({ at, std::move(bytes) });
    return false;
}

void OrderlyFinish::complete(FileSystem& files, const std::filesystem::path& file)
{
    const auto grown = InputFile::open(files, file, UINT64_MAX);
    if (!grown)
        throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory));
    std::string bytes(grown->size(), '\0');
    bytes.resize(grown->read(bytes, 0));
    for (const auto& piece : m_held) {
        bytes.resize(std::max<std::size_t>(bytes.size(), piece.at + piece.bytes.size()));
        bytes.replace(piece.at, piece.bytes.size(), piece.bytes);
    }
    const auto fresh = unfinishedAudio(file);
    try {
        OpenFile whole(files, fresh, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, S_IRUSR | S_IWUSR);
        writeAll(files, whole, bytes);
        files.sync(whole);
        whole.close();
        files.rename(fresh, file);
    } catch (...) {
        std::error_code ignored;
        std::filesystem::remove(fresh, ignored);
        throw;
    }
}

} // namespace vesko
