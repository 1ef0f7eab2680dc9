#include "VeskoLinux/wayland/PipeWriter.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace vesko {

PipeWriter::PipeWriter(int descriptor, std::shared_ptr<const std::string> text)
    : m_descriptor(descriptor)
    , m_text(std::move(text))
    , m_writable(descriptor, QSocketNotifier::Write)
{
    // A reader that goes away is a failure of the write, not the end of the program.
    std::signal(SIGPIPE, SIG_IGN);
    fcntl(m_descriptor, F_SETFL, fcntl(m_descriptor, F_GETFL) | O_NONBLOCK);
    QObject::connect(&m_writable, &QSocketNotifier::activated, &m_writable, [this] { write(); });
}

PipeWriter::~PipeWriter()
{
    if (!done())
        finish();
}

void PipeWriter::write()
{
    const auto count
        = ::write(m_descriptor, m_text->data() + m_written, m_text->size() - m_written);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (count >= 0)
        m_written += static_cast<std::size_t>(count);
    if (count < 0 || m_written == m_text->size())
        finish();
}

void PipeWriter::finish()
{
    m_writable.setEnabled(false);
    close(std::exchange(m_descriptor, -1));
    m_text.reset();
}

} // namespace vesko
