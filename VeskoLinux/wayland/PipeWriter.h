#pragma once

#include <QSocketNotifier>

#include <memory>
#include <string>

namespace vesko {

// Writes a text into a pipe as fast as its reader takes it. Main thread; nothing waits.
class PipeWriter {
public:
    // Takes over the descriptor, which is closed when all is written or the reader has gone. A
    // writer that is destroyed before leaves the rest unsaid.
    PipeWriter(int descriptor, std::shared_ptr<const std::string> text);
    PipeWriter(const PipeWriter&) = delete;
    PipeWriter& operator=(const PipeWriter&) = delete;
    ~PipeWriter();

    bool done() const { return m_descriptor < 0; }

private:
    void write();
    void finish();

    int m_descriptor;
    std::shared_ptr<const std::string> m_text;
    std::size_t m_written = 0;
    QSocketNotifier m_writable;
};

} // namespace vesko
