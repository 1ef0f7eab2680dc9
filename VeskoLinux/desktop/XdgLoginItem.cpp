#include "VeskoLinux/desktop/XdgLoginItem.h"

#include <QFile>
#include <QSaveFile>

#include <system_error>

namespace vesko {

namespace {

constexpr qint64 sizeLimit = 64 << 10; // bytes; more is no desktop entry of ours

// An argument of an Exec line: quoted for the command, and then escaped as every value is.
std::string quoted(const std::string& argument)
{
    std::string inQuotes;
    for (const char c : argument) {
        if (c == '"' || c == '`' || c == '$' || c == '\\')
            inQuotes += '\\';
        if (c == '%')
            inQuotes += '%';
        inQuotes += c;
    }
    std::string value = "\"";
    for (const char c : inQuotes) {
        if (c == '\\')
            value += "\\\\";
        else if (c == '\n')
            value += "\\n";
        else if (c == '\r')
            value += "\\r";
        else if (c == '\t')
            value += "\\t";
        else
            value += c;
    }
    return value + '"';
}

bool switchedOff(const QByteArray& line)
{
    const auto equals = line.indexOf('=');
    if (equals < 0)
        return false;
    const auto key = line.left(equals).trimmed();
    const auto value = line.mid(equals + 1).trimmed();
    return (key == "Hidden" && value == "true")
        || (key == "X-GNOME-Autostart-enabled" && value == "false");
}

} // namespace

XdgLoginItem::XdgLoginItem(
    const std::filesystem::path& configurationFolder, std::filesystem::path program)
    : m_entry(configurationFolder / "autostart" / "vesko.desktop")
    , m_program(std::move(program))
{
}

LoginStatus XdgLoginItem::status() const
{
    std::error_code ignored; // what can't be looked at doesn't start the program either
    if (!std::filesystem::is_regular_file(m_entry, ignored))
        return LoginStatus::notRegistered;
    QFile file(QFile::decodeName(m_entry.c_str()));
    if (!file.open(QIODevice::ReadOnly))
        return LoginStatus::notRegistered;
    bool inEntry = false;
    for (const auto& line : file.read(sizeLimit).split('\n')) {
        if (line.startsWith('['))
            inEntry = line.trimmed() == "[Desktop Entry]";
        else if (inEntry && switchedOff(line))
            return LoginStatus::notRegistered;
    }
    return LoginStatus::enabled;
}

void XdgLoginItem::enable()
{
    const auto content = "[Desktop Entry]\n"
                         "Type=Application\n"
                         "Name=Vesko\n"
                         "Icon=app.vesko.Vesko\n"
                         "Exec="
        + quoted(m_program.string()) + " --background\n";
    std::filesystem::create_directories(m_entry.parent_path());
    // With a buffer, a short write at a full disk would be committed as if it were whole.
    QSaveFile file(QFile::decodeName(m_entry.c_str()));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
        || file.write(content.data(), qint64(content.size())) != qint64(content.size())
        || !file.commit())
        throw std::system_error(
            std::make_error_code(std::errc::io_error), file.errorString().toStdString());
}

void XdgLoginItem::disable()
{
    std::filesystem::remove(m_entry);
}

} // namespace vesko
