#include "VeskoApp/views/FoundText.h"

#include <QLocale>
#include <QTextBlock>

#include <algorithm>

namespace vesko {

class FoundText::Marks : public QSyntaxHighlighter {
public:
    Marks(QTextDocument& document, FoundText& owner)
        : QSyntaxHighlighter(&document)
        , m_owner(owner)
    {
    }

protected:
    void highlightBlock(const QString& text) override
    {
        if (!m_owner.m_search)
            return;
        QTextCharFormat look;
        look.setBackground(m_owner.m_colour);
        for (const auto& [begin, end] : spansIn(*m_owner.m_search, text))
            setFormat(begin, end - begin, look);
    }

private:
    FoundText& m_owner;
};

FoundText::~FoundText()
{
    delete m_marks;
}

void FoundText::setDocument(QQuickTextDocument* document)
{
    m_document = document;
    mark();
}

void FoundText::setQuery(const QString& query)
{
    if (m_query == query)
        return;
    m_query = query;
    m_search.reset();
    if (!query.isEmpty())
        m_search = std::make_unique<TextSearch>(
            query.toStdString(), QLocale().name().section(u'_', 0, 0).toStdString());
    mark();
    Q_EMIT queryChanged();
}

void FoundText::setColour(const QColor& colour)
{
    if (m_colour == colour)
        return;
    m_colour = colour;
    mark();
    Q_EMIT colourChanged();
}

void FoundText::mark()
{
    if (m_marks)
        m_marks->rehighlight();
    else if (m_search && m_document)
        m_marks = new Marks(*m_document->textDocument(), *this);
}

// In characters of the text, as QString counts them.
std::vector<FoundText::Span> FoundText::spansIn(TextSearch& search, const QString& text)
{
    const auto bytes = text.toStdString();
    std::vector<Span> found;
    std::size_t behind = 0;
    int position = 0; // of the byte `behind`
    const auto advance = [&](std::size_t to) {
        position += static_cast<int>(
            QString::fromUtf8(bytes.data() + behind, qsizetype(to - behind)).size());
        behind = to;
        return position;
    };
    while (const auto match = search.next(bytes, behind)) {
        const int begin = advance(match->begin);
        found.push_back({ begin, advance(match->end) });
    }
    return found;
}

std::vector<FoundText::Span> FoundText::spans()
{
    std::vector<Span> all;
    if (!m_search || !m_document)
        return all;
    const auto* const text = m_document->textDocument();
    for (auto block = text->begin(); block.isValid(); block = block.next())
        for (const auto& [begin, end] : spansIn(*m_search, block.text()))
            all.push_back({ block.position() + begin, block.position() + end });
    return all;
}

int FoundText::count()
{
    return static_cast<int>(spans().size());
}

QList<int> FoundText::next(int position)
{
    const auto all = spans();
    if (all.empty())
        return {};
    auto found
        = std::ranges::find_if(all, [&](const Span& span) { return span.begin >= position; });
    if (found == all.end())
        found = all.begin();
    return { found->begin, found->end, static_cast<int>(found - all.begin()) + 1 };
}

QList<int> FoundText::previous(int position)
{
    const auto all = spans();
    if (all.empty())
        return {};
    const auto behind
        = std::ranges::find_if(all, [&](const Span& span) { return span.end > position; });
    const auto found = (behind == all.begin() ? all.end() : behind) - 1;
    return { found->begin, found->end, static_cast<int>(found - all.begin()) + 1 };
}

} // namespace vesko
