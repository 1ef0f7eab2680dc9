#include "VeskoApp/views/PickerRows.h"

#include <QJSValue>

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

// Without capitals and accents.
QString folded(const QString& text)
{
    QString bare;
    bare.reserve(text.size());
    for (const auto letter : text.normalized(QString::NormalizationForm_KD))
        if (!letter.isMark())
            bare += letter;
    return bare.toCaseFolded();
}

} // namespace

void PickerRows::setChoices(const QVariant& choices)
{
    // An array of the language of the windows, or a list of ours.
    const bool isScripts = choices.metaType() == QMetaType::fromType<QJSValue>();
    auto list = (isScripts ? choices.value<QJSValue>().toVariant() : choices).toList();
    if (m_choices == list)
        return;
    m_choices = std::move(list);
    read();
}

void PickerRows::setTextRole(const QString& role)
{
    if (m_textRole == role)
        return;
    m_textRole = role;
    read();
}

void PickerRows::read()
{
    m_rows.clear();
    m_rows.reserve(static_cast<std::size_t>(m_choices.size()));
    m_widest.clear();
    for (const auto& choice : m_choices) {
        const auto row = choice.toMap();
        const auto text = m_textRole.isEmpty() ? choice.toString() : row[m_textRole].toString();
        m_rows.push_back(
            { text, folded(text + u'\n' + row.value(QStringLiteral("tag")).toString()) });
        if (text.size() > m_widest.size())
            m_widest = text;
    }
    filter();
    Q_EMIT choicesChanged();
}

void PickerRows::setQuery(const QString& query)
{
    if (m_query == query)
        return;
    m_query = query;
    filter();
}

void PickerRows::filter()
{
    const auto words = folded(m_query).split(u' ', Qt::SkipEmptyParts);
    beginResetModel();
    m_shown.clear();
    for (int i = 0; i < total(); ++i)
        if (std::ranges::all_of(words, [&](const QString& word) {
                return m_rows[static_cast<std::size_t>(i)].found.contains(word);
            }))
            m_shown.push_back(i);
    endResetModel();
    Q_EMIT queryChanged();
}

QString PickerRows::text(int place) const
{
    return place < 0 || place >= total() ? QString()
                                         : m_rows[static_cast<std::size_t>(place)].label;
}

int PickerRows::rowOf(int place) const
{
    const auto found = std::ranges::lower_bound(m_shown, place);
    return found != m_shown.end() && *found == place ? static_cast<int>(found - m_shown.begin())
                                                     : -1;
}

int PickerRows::placeOf(int row) const
{
    return row < 0 || row >= count() ? -1 : m_shown[static_cast<std::size_t>(row)];
}

int PickerRows::nextFrom(int place, const QString& beginning) const
{
    for (int step = 1; step <= total(); ++step) {
        const int at = (std::max(place, -1) + step) % total();
        if (m_rows[static_cast<std::size_t>(at)].found.startsWith(folded(beginning)))
            return at;
    }
    return -1;
}

int PickerRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant PickerRows::data(const QModelIndex& index, int role) const
{
    if (role == place)
        return placeOf(index.row());
    return role == label ? QVariant(text(placeOf(index.row()))) : QVariant();
}

QHash<int, QByteArray> PickerRows::roleNames() const
{
    return { { label, "label" }, { place, "place" } };
}

} // namespace vesko
