#include "VeskoApp/dictionary/TermListModel.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

QString sourceLine(DictionaryEntry::Source source)
{
    switch (source) {
    case DictionaryEntry::Source::manual:
        return translated(L10N_KEY("Vesko", "Added by you"));
    case DictionaryEntry::Source::learned:
        return translated(L10N_KEY("Vesko", "Learned spelling"));
    case DictionaryEntry::Source::suggestion:
        return translated(L10N_KEY("Vesko", "Suggestion, review before enabling"));
    }
    return {};
}

} // namespace

// The dictionary keeps the order of its terms, so what two states share stands in the same order
// in both.
void TermListModel::setTerms(std::vector<DictionaryEntry> terms)
{
    for (auto row = m_terms.size(); row-- > 0;) {
        if (std::ranges::find(terms, m_terms[row].id, &DictionaryEntry::id) != terms.end())
            continue;
        const auto index = static_cast<int>(row);
        beginRemoveRows({}, index, index);
        m_terms.erase(m_terms.begin() + index);
        endRemoveRows();
    }
    for (std::size_t row = 0; row < terms.size(); ++row) {
        const auto at = static_cast<int>(row);
        if (row == m_terms.size() || m_terms[row].id != terms[row].id) {
            beginInsertRows({}, at, at);
            m_terms.insert(m_terms.begin() + at, std::move(terms[row]));
            endInsertRows();
        } else if (m_terms[row] != terms[row]) {
            m_terms[row] = std::move(terms[row]);
            Q_EMIT dataChanged(index(at), index(at));
        }
    }
}

const DictionaryEntry* TermListModel::find(const QString& id) const
{
    const auto found = std::ranges::find_if(m_terms,
        [&](const DictionaryEntry& term) { return QString::fromStdString(term.id.text()) == id; });
    return found == m_terms.end() ? nullptr : &*found;
}

int TermListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_terms.size());
}

QVariant TermListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto& term = m_terms[static_cast<std::size_t>(index.row())];
    switch (role) {
    case idRole:
        return QString::fromStdString(term.id.text());
    case originalRole:
        return QString::fromStdString(term.original);
    case replacementRole:
        return QString::fromStdString(term.replacement);
    case sourceRole:
        return sourceLine(term.source);
    case enabledRole:
        return term.enabled;
    default:
        return {};
    }
}

QHash<int, QByteArray> TermListModel::roleNames() const
{
    return { { idRole, "termID" }, { originalRole, "original" }, { replacementRole, "replacement" },
        { sourceRole, "source" }, { enabledRole, "termEnabled" } };
}

} // namespace vesko
