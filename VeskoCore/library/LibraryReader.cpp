#include "VeskoCore/library/LibraryReader.h"

#include "VeskoCore/base/JsonCache.h"
#include "VeskoCore/base/JsonReader.h"
#include "VeskoCore/library/VeskoError.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace vesko {

namespace {

using namespace std::string_view_literals;

// What the store writes around its notes. Strings have no line end in them, so each of these marks
// stands between values wherever it is found.
constexpr auto listBegin = "\n  \"notes\" : ["sv;
constexpr auto noteBegin = "\n    {\n"sv;
constexpr auto noteEnd = "\n    }"sv;
constexpr auto separator = ","sv;
constexpr auto listEnd = "\n  ]"sv;
constexpr auto schemaBegin = "\n  \"schemaVersion\" : "sv; // behind the notes
constexpr auto knownSchema = "1\n}"sv;

// Bytes of text that are looked at together. The parser may need fifteen times as much memory for
// them.
constexpr std::size_t longestPiece = 48 << 20;
constexpr std::size_t longestFrame = 24 << 20; // what stands around the notes, looked at twice
static_assert(JsonCache::longestText < longestPiece);

// A later schema has to be told apart from damage, so it is looked for before anything is decoded.
bool isKnownSchema(const JsonDocument& document)
{
    std::int64_t version = 0;
    return document.root()["schemaVersion"].get(version) == simdjson::SUCCESS && version == 1;
}

// Whether the document's notes are this one text.
bool hasForNotes(const JsonDocument& document, std::string_view text)
{
    simdjson::dom::array notes;
    std::string_view only;
    return document.root()["notes"].get(notes) == simdjson::SUCCESS && notes.size() == 1
        && notes.at(0).get(only) == simdjson::SUCCESS && only == text;
}

// What is in memory of a file that is read from its beginning to its end: a piece that moves on,
// and is no longer than what has to be seen at once. So a large file costs neither its size in
// memory nor the time to fill that.
class MovingPiece {
public:
    explicit MovingPiece(InputFile& file)
        : m_file(file)
    {
    }

    // Not for longer than until the next call.
    std::string_view text() const { return { m_room.get() + m_begin, m_end - m_begin }; }
    void drop(std::size_t size) { m_begin += size; }

    bool startsWith(std::string_view start)
    {
        while (text().size() < start.size() && extend()) { }
        return text().starts_with(start);
    }
    // Where the mark first ends in the text behind `from`.
    std::optional<std::size_t> endOf(std::string_view mark, std::size_t from)
    {
        for (auto at = from;;) {
            // Its last character is the rarest of all.
            at = text().find(mark.back(), at);
            if (at == std::string_view::npos) {
                at = text().size();
                if (!extend())
                    return std::nullopt;
            } else if (text().substr(from, ++at - from).ends_with(mark)) {
                return at;
            }
        }
    }
    // Nothing if that is too long.
    std::optional<std::string_view> rest()
    {
        while (extend()) { }
        return m_position < m_file.size() ? std::nullopt : std::optional(text());
    }

private:
    static constexpr std::size_t least = 256 << 10; // fits into the processor's memory

    // Lets more be seen, if there is more, and room for it.
    bool extend()
    {
        std::copy(m_room.get() + m_begin, m_room.get() + m_end, m_room.get());
        m_end -= std::exchange(m_begin, 0);
        if (m_end == longestPiece)
            return false;
        if (m_end == m_size)
            grow();
        const auto came = m_file.read({ m_room.get() + m_end, m_size - m_end }, m_position);
        m_position += came;
        m_end += came;
        return came > 0;
    }
    void grow()
    {
        const auto size = std::clamp(2 * m_size, least, longestPiece);
        auto room = std::make_unique_for_overwrite<char[]>(size + spareForJson);
        std::copy(m_room.get(), m_room.get() + m_end, room.get());
        m_room = std::move(room);
        m_size = size;
    }

    InputFile& m_file;
    std::uint64_t m_position = 0; // in the file, behind what is seen
    std::unique_ptr<char[]> m_room; // with the parser's spare bytes
    std::size_t m_size = 0, m_begin = 0, m_end = 0;
};

// The notes from the piece's beginning on, behind the last of which it then stands. Nothing if
// they aren't laid out as the store does it.
std::optional<SharedArray<Note>> notesIn(MovingPiece& piece)
{
    std::vector<std::shared_ptr<const Note>> notes;
    JsonDocument document;
    while (piece.startsWith(noteBegin)) {
        const auto end = piece.endOf(noteEnd, noteBegin.size() - 1);
        if (!end)
            return std::nullopt;
        document.parse(piece.text().substr(0, *end));
        notes.push_back(std::make_shared<Note>(document.as<Note>()));
        piece.drop(*end);
        if (!piece.startsWith(separator))
            break;
        piece.drop(separator.size());
        if (!piece.startsWith(noteBegin))
            return std::nullopt;
    }
    if (!piece.startsWith(listEnd))
        return std::nullopt;
    return SharedArray<Note>(std::move(notes));
}

// Nothing if the text isn't laid out as the store does it, or is damaged: then a look at the whole
// tells which.
std::optional<Library> readInPieces(InputFile& file)
{
    MovingPiece piece(file);
    const auto begin = piece.endOf(listBegin, 0);
    if (!begin)
        return std::nullopt;
    const std::string before(piece.text().substr(0, *begin));
    piece.drop(*begin);
    try {
        auto notes = notesIn(piece);
        if (!notes)
            return std::nullopt;
        const auto behind = piece.rest();
        if (!behind || before.size() + behind->size() > longestFrame)
            return std::nullopt;
        const auto with
            = [&](const std::string& list) { return before + list + std::string(*behind); };
        // Another place of that name would not hold what no one can foresee.
        const auto mark = Uuid::random().text();
        const JsonDocument marked(with('"' + mark + '"'));
        if (!isKnownSchema(marked) || !hasForNotes(marked, mark))
            return std::nullopt;
        auto library = JsonDocument(with("")).as<Library>();
        library.notes = std::move(*notes);
        return library;
    } catch (const JsonError&) {
        return std::nullopt;
    }
}

// Of a document that is too long to be looked at as a whole.
bool endsAsLaterSchema(InputFile& file)
{
    std::array<char, 256> room{};
    const auto size
        = file.read(room, file.size() - std::min<std::uint64_t>(file.size(), room.size()));
    const std::string_view end(room.data(), size);
    const auto at = end.rfind(schemaBegin);
    return at != std::string_view::npos
        && !end.substr(at + schemaBegin.size()).starts_with(knownSchema);
}

} // namespace

Library readLibrary(InputFile& file)
{
    if (auto library = readInPieces(file))
        return std::move(*library);
    if (file.size() > longestPiece) {
        if (endsAsLaterSchema(file))
            throw VeskoError(VeskoError::unsupportedSchema);
        throw JsonError();
    }
    const JsonDocument document(file.text());
    if (!isKnownSchema(document))
        throw VeskoError(VeskoError::unsupportedSchema);
    return document.as<Library>();
}

} // namespace vesko
