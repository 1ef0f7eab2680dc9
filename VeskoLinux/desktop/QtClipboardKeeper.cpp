#include "VeskoLinux/desktop/QtClipboardKeeper.h"

#include <QClipboard>
#include <QDataStream>
#include <QDeadlineTimer>
#include <QFile>
#include <QGuiApplication>
#include <QMap>
#include <QMimeData>

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

extern char** environ;

namespace vesko {
namespace {

constexpr int takeOverLimit = 500; // milliseconds

template <class Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply)
{
    return { reply, &std::free };
}

xcb_connection_t* x11()
{
    const auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return native ? native->connection() : nullptr;
}

// Who has the selection of that name now; Qt hears of a change only later.
xcb_window_t ownerOf(xcb_connection_t* connection, std::string_view selection)
{
    const auto atom = owned(xcb_intern_atom_reply(connection,
        xcb_intern_atom(connection, 1, std::uint16_t(selection.size()), selection.data()),
        nullptr));
    if (!atom || atom->atom == XCB_ATOM_NONE)
        return XCB_NONE;
    const auto owner = owned(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return owner ? owner->owner : xcb_window_t(XCB_NONE);
}

bool isOurs(xcb_connection_t* connection, xcb_window_t window)
{
    const auto* const setup = xcb_get_setup(connection);
    return window != XCB_NONE && (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

// The content in all its forms.
QByteArray formsOf(const QMimeData& content)
{
    QMap<QString, QByteArray> forms;
    for (const auto& form : content.formats())
        forms.insert(form, content.data(form));
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << forms;
    return bytes;
}

std::unique_ptr<QMimeData> contentFrom(const QByteArray& bytes)
{
    QMap<QString, QByteArray> forms;
    QDataStream stream(bytes);
    stream >> forms;
    auto content = std::make_unique<QMimeData>();
    for (const auto& [form, value] : forms.asKeyValueRange())
        content->setData(form, value);
    return content;
}

// A file without a name, to be read from its beginning; -1 if there is none.
int fileWith(const std::string& text)
{
    const int file = memfd_create("clipboard", MFD_CLOEXEC);
    for (std::size_t written = 0; file >= 0 && written < text.size();) {
        const auto count = write(file, text.data() + written, text.size() - written);
        if (count <= 0) {
            close(file);
            return -1;
        }
        written += std::size_t(count);
    }
    if (file >= 0)
        lseek(file, 0, SEEK_SET);
    return file;
}

bool startKeeper(int text)
{
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, text, STDIN_FILENO);
    // Whoever waits for the end of this program's output doesn't wait for that one.
    for (const int output : { STDOUT_FILENO, STDERR_FILENO })
        posix_spawn_file_actions_addopen(&files, output, "/dev/null", O_WRONLY, 0);
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
    std::string program = QCoreApplication::applicationFilePath().toStdString();
    std::string argument = keepClipboardArgument;
    const std::array<char*, 3> command{ program.data(), argument.data(), nullptr };
    pid_t process = 0;
    const bool started
        = posix_spawn(&process, program.c_str(), &files, &attributes, command.data(), environ) == 0;
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return started;
}

} // namespace

void leaveClipboardBehind()
{
    xcb_connection_t* const connection = x11();
    if (!connection)
        return;
    const xcb_window_t owner = ownerOf(connection, "CLIPBOARD");
    // Qt itself gives its content to a manager.
    if (!isOurs(connection, owner) || ownerOf(connection, "CLIPBOARD_MANAGER") != XCB_NONE)
        return;
    const QMimeData* const content = QGuiApplication::clipboard()->mimeData();
    if (!content)
        return;
    const int text = fileWith(std::to_string(owner) + "\n" + formsOf(*content).toStdString());
    if (text < 0)
        return;
    if (startKeeper(text)) {
        // Until that one has the clipboard, whoever pastes is still served from here.
        const QDeadlineTimer deadline(takeOverLimit);
        while (ownerOf(connection, "CLIPBOARD") == owner && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }
    close(text);
}

int keepClipboard(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return 1;
    // Whoever copied something meanwhile keeps the clipboard. Nobody has it if the program has
    // ended before this one had begun.
    const auto owner = input.readLine().trimmed().toUInt();
    if (!x11())
        return 0;
    const auto now = ownerOf(x11(), "CLIPBOARD");
    if (now != owner && now != XCB_NONE)
        return 0;
    QClipboard* const clipboard = QGuiApplication::clipboard();
    clipboard->setMimeData(contentFrom(input.readAll()).release());
    QObject::connect(clipboard, &QClipboard::dataChanged, clipboard, [clipboard] {
        if (!clipboard->ownsClipboard())
            QGuiApplication::exit();
    });
    return QGuiApplication::exec();
}

} // namespace vesko
