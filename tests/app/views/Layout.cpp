#include "tests/app/views/Layout.h"

#include <QQuickItem>

namespace vesko {

namespace {

// Fractions of a pixel are nobody's business.
constexpr double slack = 1;
constexpr double endless = 1e5;

struct Shown {
    QString text;
    QRectF area; // of the letters, in the window
};

bool isA(const QQuickItem& item, const char* name)
{
    return item.inherits(name);
}

QQuickItem* overlayOf(QQuickItem& root)
{
    const auto children = root.childItems();
    for (auto* child : children)
        if (isA(*child, "QQuickOverlay") && child->isVisible() && !child->childItems().isEmpty())
            return child;
    return nullptr;
}

class Look {
public:
    std::vector<std::string> flaws;

    explicit Look(QQuickWindow& window)
    {
        auto& root = *window.contentItem();
        auto* const overlay = overlayOf(root);
        auto& top = overlay ? *overlay : root;
        const QRectF all(0, 0, window.width(), window.height());
        walk(top, all, all);
        for (auto one = m_shown.begin(); one != m_shown.end(); ++one)
            for (auto other = one + 1; other != m_shown.end(); ++other) {
                const auto common = one->area & other->area;
                if (common.width() > 2 && common.height() > 4)
                    add(one->text, QStringLiteral("stands in \"%1\"").arg(other->text));
            }
    }

private:
    void add(const QString& text, const QString& what)
    {
        flaws.push_back(QStringLiteral("\"%1\" %2").arg(text, what).toStdString());
    }

    // An item belongs into `room`, which is endless where a user can scroll; `sight` is what can be
    // seen of it now.
    void walk(const QQuickItem& item, QRectF room, QRectF sight)
    {
        if (!item.isVisible() || item.opacity() == 0)
            return;
        if (isA(item, "QQuickText"))
            look(item, room, sight);
        const auto own = item.mapRectToScene(item.boundingRect());
        if (item.clip())
            sight = sight & own;
        if (isA(item, "QQuickFlickable"))
            room = own.adjusted(0, -endless, 0, endless);
        const auto children = item.childItems();
        for (const auto* child : children)
            walk(*child, room, sight);
    }

    void look(const QQuickItem& item, const QRectF& room, const QRectF& sight)
    {
        const auto text = item.property("text").toString();
        if (text.isEmpty())
            return;
        const QSizeF content(
            item.property("contentWidth").toDouble(), item.property("contentHeight").toDouble());
        if (item.property("truncated").toBool() && !item.property("mayBeCut").toBool())
            add(text, QStringLiteral("is elided"));
        if (content.width() > item.width() + slack)
            add(text,
                QStringLiteral("is wider than its place by %1")
                    .arg(content.width() - item.width()));
        if (content.height() > item.height() + slack)
            add(text, QStringLiteral("is higher than its place"));
        const auto area = item.mapRectToScene(item.boundingRect());
        if (!room.adjusted(-slack, -slack, slack, slack).contains(area))
            add(text, QStringLiteral("sticks out"));
        m_shown.push_back({ text, area & sight });
    }

    std::vector<Shown> m_shown;
};

} // namespace

std::vector<std::string> flawsOf(QQuickWindow& window)
{
    return Look(window).flaws;
}

} // namespace vesko
