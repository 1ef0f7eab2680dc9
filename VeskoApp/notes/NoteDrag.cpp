#include "VeskoApp/notes/NoteDrag.h"

#include "VeskoApp/library/MarkdownFiles.h"

#include <QUrl>

#include <utility>

namespace vesko {

namespace {

const auto addressList = QStringLiteral("text/uri-list");

} // namespace

const QString NoteDrag::ours = QStringLiteral("application/x-vesko-notes");

NoteDrag::NoteDrag(Library library, std::set<Uuid> ids, std::shared_ptr<const QTemporaryDir> folder,
    std::function<void(std::exception_ptr)> onFailure)
    : m_library(std::move(library))
    , m_ids(std::move(ids))
    , m_folder(std::move(folder))
    , m_onFailure(std::move(onFailure))
{
}

QStringList NoteDrag::formats() const
{
    return m_ids.size() > mostFiles ? QStringList{ ours } : QStringList{ ours, addressList };
}

QVariant NoteDrag::retrieveData(const QString& format, QMetaType) const
{
    if (format == ours)
        return QByteArrayLiteral("notes");
    if (format != addressList || m_ids.size() > mostFiles)
        return {};
    if (!m_addresses.isEmpty())
        return m_addresses;
    try {
        for (const auto& file :
            writeMarkdownFiles(m_library, m_ids, m_folder->path().toStdString()))
            m_addresses.append(QUrl::fromLocalFile(QString::fromStdString(file.string())));
    } catch (const std::exception&) {
        m_addresses.clear();
        m_onFailure(std::current_exception());
    }
    return m_addresses;
}

} // namespace vesko
