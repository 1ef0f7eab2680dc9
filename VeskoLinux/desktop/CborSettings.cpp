#include "VeskoLinux/desktop/CborSettings.h"

#include "VeskoCore/base/AtomicFile.h"
#include "VeskoCore/base/UserFile.h"

#include <QCborArray>
#include <QCborParserError>
#include <QCborValue>
#include <QFile>
#include <QLoggingCategory>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace vesko {

namespace {

Q_LOGGING_CATEGORY(settingsLog, "app.vesko.settings")

constexpr qint64 sizeLimit = 1 << 20; // bytes
constexpr int damagedFilesKept = 5;

class Descriptor {
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    Descriptor(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (m_number >= 0)
            close(m_number);
    }
    operator int() const { return m_number; }

private:
    int m_number;
};

[[noreturn]] void fail(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

// The time of change, unlike that of modification, can't be set back by who restores a file.
bool sameFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size
        && a.st_ctim.tv_sec == b.st_ctim.tv_sec && a.st_ctim.tv_nsec == b.st_ctim.tv_nsec;
}

QCborValue encoded(const SettingValue& value)
{
    struct Encode {
        QCborValue operator()(bool flag) const { return flag; }
        QCborValue operator()(const std::string& text) const
        {
            return QString::fromStdString(text);
        }
        QCborValue operator()(double number) const { return number; }
        QCborValue operator()(const std::vector<double>& numbers) const
        {
            QCborArray array;
            for (const double number : numbers)
                array.append(number);
            return array;
        }
        QCborValue operator()(const std::vector<std::byte>& bytes) const
        {
            return QByteArray(
                reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
        }
    };
    return std::visit(Encode(), value);
}

std::optional<SettingValue> decoded(const QCborValue& value)
{
    if (value.isBool())
        return value.toBool();
    if (value.isString())
        return value.toString().toStdString();
    if (value.isDouble())
        return value.toDouble();
    if (value.isByteArray()) {
        const auto bytes = value.toByteArray();
        const auto* first = reinterpret_cast<const std::byte*>(bytes.constData());
        return std::vector<std::byte>(first, first + bytes.size());
    }
    if (!value.isArray())
        return std::nullopt;
    std::vector<double> numbers;
    for (const auto& element : value.toArray()) {
        if (!element.isDouble())
            return std::nullopt;
        numbers.push_back(element.toDouble());
    }
    return numbers;
}

// Nothing if the bytes are anything but one whole map.
std::optional<QCborMap> parsed(const QByteArray& bytes)
{
    QCborParserError error;
    const auto document = QCborValue::fromCbor(bytes, &error);
    if (error.error.c != QCborError::NoError || error.offset != bytes.size() || !document.isMap())
        return std::nullopt;
    return document.toMap();
}

} // namespace

CborSettings::CborSettings(const std::filesystem::path& configurationFolder, FileSystem& files)
    : m_files(files)
    , m_folder(configurationFolder / "vesko")
    , m_file(m_folder / "settings.cbor")
{
    read();
    if (m_state == State::damaged)
        qCWarning(settingsLog) << "the settings file is damaged; it will be set aside";
    if (m_state == State::unreadable)
        qCWarning(settingsLog) << "the settings file can't be read";
}

std::optional<SettingValue> CborSettings::value(const std::string& key) const
{
    const auto name = QString::fromStdString(key);
    if (m_unwritten.contains(name))
        return decoded(m_unwritten.value(name));
    readIfChanged();
    return decoded(m_stored.value(name));
}

void CborSettings::set(const std::string& key, const SettingValue& value)
{
    const auto name = QString::fromStdString(key);
    const auto content = encoded(value);
    readIfChanged();
    if (!m_unwritten.isEmpty() || m_stored.value(name) != content)
        keep(name, content);
}

void CborSettings::remove(const std::string& key)
{
    const auto name = QString::fromStdString(key);
    readIfChanged();
    if (m_unwritten.contains(name) || m_stored.contains(name))
        keep(name, {});
}

void CborSettings::keep(const QString& name, const QCborValue& value)
{
    m_unwritten.insert(name, value);
    try {
        write();
    } catch (const std::system_error& error) {
        qCWarning(settingsLog) << "settings not saved:" << error.what();
    }
}

bool CborSettings::empty() const
{
    readIfChanged();
    return m_unwritten.isEmpty() && m_stored.isEmpty()
        && (m_state == State::absent || m_state == State::readable);
}

void CborSettings::readIfChanged() const
{
    struct stat now;
    const bool exists = stat(m_file.c_str(), &now) == 0;
    if (exists ? !m_seen || !sameFile(*m_seen, now) : m_state != State::absent)
        read();
}

void CborSettings::read() const
{
    m_stored = {};
    m_seen.reset();
    // Opening a pipe or a device must not wait for the other end.
    const Descriptor file(open(m_file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat now;
    if (file < 0 || fstat(file, &now) != 0) {
        m_state = errno == ENOENT ? State::absent : State::unreadable;
        return;
    }
    m_seen = now;
    m_state = State::damaged;
    if (!S_ISREG(now.st_mode) || now.st_size > sizeLimit)
        return;
    QFile reader;
    if (!reader.open(file, QIODevice::ReadOnly)) {
        m_state = State::unreadable;
        return;
    }
    const auto bytes = reader.read(sizeLimit + 1);
    if (reader.error() != QFile::NoError)
        m_state = State::unreadable;
    else if (const auto map = parsed(bytes)) {
        m_state = State::readable;
        m_stored = *map;
    }
}

void CborSettings::write()
{
    std::filesystem::create_directories(m_folder.parent_path());
    if (mkdir(m_folder.c_str(), 0700) != 0 && errno != EEXIST)
        fail("folder");
    // Until this closes, no other process stands between reading and writing.
    const Descriptor lock(
        open((m_folder / "settings.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (lock < 0)
        fail("lock");
    while (flock(lock, LOCK_EX) != 0)
        if (errno != EINTR)
            fail("lock");

    read();
    if (m_state == State::unreadable)
        throw std::system_error(std::make_error_code(std::errc::io_error), "unreadable file");
    auto content = m_stored;
    for (const auto& entry : std::as_const(m_unwritten)) {
        if (entry.second.isUndefined())
            content.remove(entry.first);
        else
            content.insert(entry.first, entry.second);
    }
    const auto bytes = QCborValue(content).toCbor();
    if (bytes.size() > sizeLimit)
        throw std::system_error(std::make_error_code(std::errc::file_too_large), "settings");
    if (m_state == State::damaged)
        setAside();

    AtomicFile(m_files, fileBehindLinks(m_files, m_file))
        .write({ bytes.constData(), static_cast<std::size_t>(bytes.size()) });
    m_unwritten = {};
    read();
}

void CborSettings::setAside() const
{
    const std::string prefix = "settings.damaged-";
    std::vector<int> numbers{ 0 };
    for (const auto& entry : std::filesystem::directory_iterator(m_folder)) {
        const auto name = entry.path().filename().string();
        int number = 0;
        if (name.starts_with(prefix) && sscanf(name.c_str() + prefix.size(), "%6d", &number) == 1)
            numbers.push_back(number);
    }
    std::ranges::sort(numbers);
    const auto path
        = [&](int number) { return m_folder / (prefix + std::to_string(number) + ".cbor"); };
    int next = numbers.back() + 1;
    while (std::filesystem::exists(path(next)))
        ++next;
    std::filesystem::rename(m_file, path(next));
    qCWarning(settingsLog) << "the damaged settings file is kept beside the new one";
    while (numbers.size() > damagedFilesKept) { // the first number stands for no file
        std::error_code ignored; // an old file that stays does no harm
        std::filesystem::remove_all(path(numbers[1]), ignored);
        numbers.erase(numbers.begin() + 1);
    }
}

} // namespace vesko
