#include "VeskoLinux/wayland/DataControlClipboard.h"

#include <array>
#include <wayland-client.h>
#include <wlr-data-control-unstable-v1.h>

namespace vesko {

namespace {

// All that programs ask for plain text by; each means UTF-8 today.
constexpr std::array textTypes{ "text/plain;charset=utf-8", "text/plain", "UTF8_STRING", "TEXT",
    "STRING" };
// Whoever asks and never reads costs no more than this many pipes.
constexpr std::size_t writerLimit = 32;

} // namespace

bool DataControlClipboard::offered(const WaylandConnection& connection)
{
    return connection.seat() && connection.offers(zwlr_data_control_manager_v1_interface);
}

DataControlClipboard::DataControlClipboard(WaylandConnection& connection)
    : m_connection(connection)
    , m_manager(
          connection.bind<zwlr_data_control_manager_v1>(zwlr_data_control_manager_v1_interface))
    , m_device(zwlr_data_control_manager_v1_get_data_device(m_manager, connection.seat()))
{
    static constexpr zwlr_data_control_device_v1_listener listener{ &offer, &selection, &finished };
    zwlr_data_control_device_v1_add_listener(m_device, &listener, this);
    m_connection.flush();
}

DataControlClipboard::~DataControlClipboard()
{
    forget();
    if (m_device)
        zwlr_data_control_device_v1_destroy(m_device);
    zwlr_data_control_manager_v1_destroy(m_manager);
    m_connection.flush();
}

// A compositor that has this protocol refuses no selection, so that to be connected is to be heard.
bool DataControlClipboard::setText(const std::string& text)
{
    if (!m_device || !m_connection.works())
        return false;
    zwlr_data_control_source_v1* const source
        = zwlr_data_control_manager_v1_create_data_source(m_manager);
    static constexpr zwlr_data_control_source_v1_listener listener{ &send, &cancelled };
    zwlr_data_control_source_v1_add_listener(source, &listener, this);
    for (const char* type : textTypes)
        zwlr_data_control_source_v1_offer(source, type);
    zwlr_data_control_device_v1_set_selection(m_device, source);
    forget();
    m_source = source;
    m_text = std::make_shared<const std::string>(text);
    m_connection.flush();
    return m_connection.works();
}

void DataControlClipboard::forget()
{
    if (m_source)
        zwlr_data_control_source_v1_destroy(std::exchange(m_source, nullptr));
    m_text.reset();
}

void DataControlClipboard::offer(void*, zwlr_data_control_device_v1*, zwlr_data_control_offer_v1*)
{
}

// What others copy is none of our business. Each offer ends here, where it is told of for the last
// time: libwayland loses the memory of one that is destroyed before.
void DataControlClipboard::selection(
    void*, zwlr_data_control_device_v1*, zwlr_data_control_offer_v1* offer)
{
    if (offer)
        zwlr_data_control_offer_v1_destroy(offer);
}

void DataControlClipboard::finished(void* self, zwlr_data_control_device_v1*)
{
    auto& clipboard = *static_cast<DataControlClipboard*>(self);
    zwlr_data_control_device_v1_destroy(std::exchange(clipboard.m_device, nullptr));
    clipboard.forget();
}

void DataControlClipboard::send(
    void* self, zwlr_data_control_source_v1*, const char*, std::int32_t pipe)
{
    auto& clipboard = *static_cast<DataControlClipboard*>(self);
    auto& writers = clipboard.m_writers;
    std::erase_if(writers, [](const PipeWriter& writer) { return writer.done(); });
    if (writers.size() == writerLimit)
        writers.pop_front();
    writers.emplace_back(pipe, clipboard.m_text);
}

void DataControlClipboard::cancelled(void* self, zwlr_data_control_source_v1* source)
{
    auto& clipboard = *static_cast<DataControlClipboard*>(self);
    if (source == clipboard.m_source)
        clipboard.forget();
    else
        zwlr_data_control_source_v1_destroy(source);
}

} // namespace vesko
