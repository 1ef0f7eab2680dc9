#include "VeskoLinux/desktop/XwaylandClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <optional>

namespace vesko {

namespace {

constexpr double patience = 1; // seconds

// Tells when its forms are asked for.
class Offer final : public QMimeData {
public:
    explicit Offer(const std::string& text) { setText(QString::fromStdString(text)); }

    // From now on: our own windows have asked before.
    void tell(Eventual<bool> asked) { m_asked = std::move(asked); }

    QStringList formats() const override
    {
        // Not before the answer is on its way.
        if (m_asked)
            QMetaObject::invokeMethod(
                qGuiApp, [asked = *m_asked] { asked.set(true); }, Qt::QueuedConnection);
        m_asked.reset();
        return QMimeData::formats();
    }

private:
    mutable std::optional<Eventual<bool>> m_asked;
};

} // namespace

bool XwaylandClipboard::setText(const std::string& text)
{
    auto* const offer = new Offer(text);
    QClipboard* const clipboard = QGuiApplication::clipboard();
    clipboard->setMimeData(offer);
    const bool owns = clipboard->ownsClipboard();
    m_taken = {};
    m_patience.start(patience, [taken = m_taken] { taken.set(false); });
    offer->tell(m_taken);
    return owns;
}

} // namespace vesko
