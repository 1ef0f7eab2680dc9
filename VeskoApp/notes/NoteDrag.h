#pragma once

#include "VeskoCore/library/Library.h"

#include <QMimeData>
#include <QTemporaryDir>
#include <QVariantList>

#include <functional>
#include <memory>
#include <set>

namespace vesko {

// What notes are while they are dragged: something for our own places, and Markdown files for other
// programs. The files are written into `folder` when a program asks for them first: who is dragged
// over hardly does, who is dropped on does. Main thread.
class NoteDrag : public QMimeData {
    Q_OBJECT

public:
    static const QString ours; // the format of our own places
    static constexpr std::size_t mostFiles = 200; // whoever drags more at once exports them

    // `onFailure` is called within the handling of what failed.
    NoteDrag(Library library, std::set<Uuid> ids, std::shared_ptr<const QTemporaryDir> folder,
        std::function<void(std::exception_ptr)> onFailure);

    QStringList formats() const override;
    bool hasFormat(const QString& format) const override { return formats().contains(format); }

protected:
    QVariant retrieveData(const QString& format, QMetaType type) const override;

private:
    const Library m_library;
    const std::set<Uuid> m_ids;
    const std::shared_ptr<const QTemporaryDir> m_folder;
    const std::function<void(std::exception_ptr)> m_onFailure;
    mutable QVariantList m_addresses; // a list alone is understood by each Qt
};

} // namespace vesko
