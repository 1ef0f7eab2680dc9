#include "VeskoApp/notes/NoteListModel.h"

#include "VeskoApp/notes/NoteWords.h"

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

// The rows in which two states of a list differ: those between what they begin and end with alike.
struct Difference {
    std::size_t begin = 0;
    std::size_t oldEnd = 0;
    std::size_t newEnd = 0;
};

bool sameNote(const SharedArray<Note>& a, std::size_t i, const SharedArray<Note>& b, std::size_t j)
{
    return a.shared(i) == b.shared(j) || a[i].id == b[j].id;
}

Difference difference(const SharedArray<Note>& before, const SharedArray<Note>& after)
{
    Difference found{ .oldEnd = before.size(), .newEnd = after.size() };
    const auto shorter = std::min(before.size(), after.size());
    while (found.begin < shorter && sameNote(before, found.begin, after, found.begin))
        ++found.begin;
    while (found.oldEnd > found.begin && found.newEnd > found.begin
        && sameNote(before, found.oldEnd - 1, after, found.newEnd - 1)) {
        --found.oldEnd;
        --found.newEnd;
    }
    return found;
}

// Whether the one thing that happened is that the last of the rows came to be the first, as the
// note that was edited last does.
bool lastCameFirst(
    const SharedArray<Note>& before, const SharedArray<Note>& after, const Difference& rows)
{
    if (rows.oldEnd != rows.newEnd || rows.oldEnd - rows.begin < 2
        || !sameNote(before, rows.oldEnd - 1, after, rows.begin))
        return false;
    for (auto row = rows.begin; row + 1 < rows.oldEnd; ++row)
        if (!sameNote(before, row, after, row + 1))
            return false;
    return true;
}

} // namespace

void NoteListModel::setNotes(SharedArray<Note> notes)
{
    const auto rows = difference(m_notes, notes);
    const auto begin = static_cast<int>(rows.begin);
    const auto oldEnd = static_cast<int>(rows.oldEnd);
    const auto newEnd = static_cast<int>(rows.newEnd);
    const auto before = m_notes;
    if (lastCameFirst(before, notes, rows)) {
        beginMoveRows({}, oldEnd - 1, oldEnd - 1, {}, begin);
        m_notes = std::move(notes);
        endMoveRows();
    } else if (before.empty() || notes.empty()) {
        beginResetModel();
        m_notes = std::move(notes);
        endResetModel();
        return;
    } else {
        if (oldEnd > begin) {
            beginRemoveRows({}, begin, oldEnd - 1);
            std::vector<std::shared_ptr<const Note>> left;
            for (std::size_t row = 0; row < before.size(); ++row)
                if (row < rows.begin || row >= rows.oldEnd)
                    left.push_back(before.shared(row));
            m_notes = SharedArray<Note>(std::move(left));
            endRemoveRows();
        }
        if (newEnd > begin)
            beginInsertRows({}, begin, newEnd - 1);
        m_notes = std::move(notes);
        if (newEnd > begin)
            endInsertRows();
    }
    // What stayed in its place may have changed within.
    const auto tell = [this](std::size_t from, std::size_t to, auto old) {
        for (auto row = from; row < to; ++row)
            if (m_notes.shared(row) != old(row)) {
                const auto changed = index(static_cast<int>(row));
                Q_EMIT dataChanged(changed, changed);
            }
    };
    tell(0, rows.begin, [&](std::size_t row) { return before.shared(row); });
    const bool moved
        = rows.oldEnd == rows.newEnd && rows.newEnd > rows.begin && m_notes.size() == before.size();
    if (moved)
        Q_EMIT dataChanged(index(begin), index(newEnd - 1));
    tell(rows.newEnd, m_notes.size(),
        [&](std::size_t row) { return before.shared(row - rows.newEnd + rows.oldEnd); });
}

void NoteListModel::setQuery(const std::string& query)
{
    if (m_query == query)
        return;
    m_query = query;
    m_search.reset();
    if (!query.empty())
        m_search.emplace(query, QLocale().name().section(u'_', 0, 0).toStdString());
    tellOfAll();
}

void NoteListModel::setProjects(std::unordered_map<Uuid, QString> names)
{
    if (m_projects == names)
        return;
    m_projects = std::move(names);
    tellOfAll();
}

void NoteListModel::setChosen(const std::set<Uuid>& ids)
{
    if (m_chosen == ids)
        return;
    m_chosen = ids;
    if (!m_notes.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), { chosenRole });
}

void NoteListModel::tellOfAll()
{
    if (!m_notes.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

QString NoteListModel::words(const Note& note) const
{
    return shownWords(note, m_search ? &*m_search : nullptr);
}

int NoteListModel::rowOf(const Uuid& id) const
{
    const auto found = std::ranges::find(m_notes, id, &Note::id);
    return found == m_notes.end() ? -1 : static_cast<int>(found - m_notes.begin());
}

int NoteListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_notes.size());
}

QVariant NoteListModel::data(const QModelIndex& index, int role) const
{
    const auto& note = m_notes[static_cast<std::size_t>(index.row())];
    switch (role) {
    case idRole:
        return QString::fromStdString(note.id.text());
    case titleRole:
        return shownTitle(note);
    case iconRole:
        return note.kind == NoteKind::text ? QStringLiteral("text") : QStringLiteral("waveform");
    case statusRole:
        return captureStatus(note);
    case momentRole:
        return shownMoment(note.updatedAt, QLocale(), QDate::currentDate());
    case wordsRole:
        return words(note);
    case projectRole: {
        const auto named = note.projectID ? m_projects.find(*note.projectID) : m_projects.end();
        return named == m_projects.end() ? QString() : named->second;
    }
    case markedTitleRole:
        return m_search ? marked(shownTitle(note), *m_search) : shownTitle(note).toHtmlEscaped();
    case markedWordsRole:
        return m_search ? marked(words(note), *m_search) : words(note).toHtmlEscaped();
    case chosenRole:
        return m_chosen.contains(note.id);
    case detailRole: {
        QStringList parts;
        for (const auto part : { statusRole, momentRole, wordsRole, projectRole })
            if (const auto text = data(index, part).toString(); !text.isEmpty())
                parts << text;
        return parts.join(QStringLiteral(" · "));
    }
    default:
        return {};
    }
}

QHash<int, QByteArray> NoteListModel::roleNames() const
{
    return { { idRole, "noteID" }, { titleRole, "title" }, { iconRole, "iconName" },
        { detailRole, "detail" }, { statusRole, "status" }, { momentRole, "moment" },
        { wordsRole, "words" }, { projectRole, "project" }, { markedTitleRole, "markedTitle" },
        { markedWordsRole, "markedWords" }, { chosenRole, "chosen" } };
}

} // namespace vesko
