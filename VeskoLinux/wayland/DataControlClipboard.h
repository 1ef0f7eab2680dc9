#pragma once

#include "VeskoApp/platform/Clipboard.h"
#include "VeskoLinux/wayland/PipeWriter.h"
#include "VeskoLinux/wayland/WaylandConnection.h"

#include <list>
#include <memory>

struct zwlr_data_control_device_v1;
struct zwlr_data_control_manager_v1;
struct zwlr_data_control_offer_v1;
struct zwlr_data_control_source_v1;

namespace vesko {

// The clipboard of a compositor that lets programs without the focus set it. Main thread.
class DataControlClipboard final : public Clipboard {
public:
    static bool offered(const WaylandConnection& connection);
    // The connection outlives this.
    explicit DataControlClipboard(WaylandConnection& connection);
    ~DataControlClipboard() override;

    bool setText(const std::string& text) override;

private:
    void forget();

    static void offer(void*, zwlr_data_control_device_v1*, zwlr_data_control_offer_v1* offer);
    static void selection(void*, zwlr_data_control_device_v1*, zwlr_data_control_offer_v1* offer);
    static void finished(void* self, zwlr_data_control_device_v1*);
    static void send(void* self, zwlr_data_control_source_v1*, const char*, std::int32_t pipe);
    static void cancelled(void* self, zwlr_data_control_source_v1* source);

    WaylandConnection& m_connection;
    zwlr_data_control_manager_v1* m_manager;
    zwlr_data_control_device_v1* m_device; // null: the compositor has taken it back
    zwlr_data_control_source_v1* m_source = nullptr; // while the clipboard is ours
    std::shared_ptr<const std::string> m_text;
    std::list<PipeWriter> m_writers; // the oldest first
};

} // namespace vesko
