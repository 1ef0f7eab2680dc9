#include "VeskoCore/library/LibraryReader.h"

#include "VeskoCore/base/JsonReader.h"
#include "VeskoCore/library/VeskoError.h"

#include <memory>
#include <optional>
#include <string_view>
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

// The texts of the notes, the first of which begins there; `at` is then behind the last. Nothing
// if they aren't laid out as the store does it.
std::optional<std::vector<std::string_view>> notesIn(std::string_view text, std::size_t& at)
{
    std::vector<std::string_view> notes;
    while (text.substr(at).starts_with(noteBegin)) {
        const auto end = text.find(noteEnd, at + noteBegin.size() - 1);
        if (end == text.npos)
            return std::nullopt;
        notes.push_back(text.substr(at, end + noteEnd.size() - at));
        at = end + noteEnd.size();
        if (!text.substr(at).starts_with(separator))
            break;
        at += separator.size();
        if (!text.substr(at).starts_with(noteBegin))
            return std::nullopt;
    }
    if (!text.substr(at).starts_with(listEnd))
        return std::nullopt;
    return notes;
}

// Nothing if the text isn't laid out as the store does it, or is damaged: then a look at the whole
// tells which.
std::optional<Library> readInPieces(std::string_view text)
{
    const auto begin = text.find(listBegin);
    if (begin == text.npos)
        return std::nullopt;
    const auto before = begin + listBegin.size();
    auto behind = before;
    const auto pieces = notesIn(text, behind);
    if (!pieces)
        return std::nullopt;
    const auto rest = [&](const std::string& notes) {
        return std::string(text.substr(0, before)) + notes + std::string(text.substr(behind));
    };
    try {
        // Another place of that name would not hold what no one can foresee.
        const auto mark = Uuid::random().text();
        const JsonDocument marked(rest('"' + mark + '"'));
        if (!isKnownSchema(marked) || !hasForNotes(marked, mark))
            return std::nullopt;
        auto library = JsonDocument(rest("")).as<Library>();
        std::vector<std::shared_ptr<const Note>> notes;
        notes.reserve(pieces->size());
        JsonDocument document;
        for (const auto piece : *pieces) {
            document.parse(piece);
            notes.push_back(std::make_shared<Note>(document.as<Note>()));
        }
        library.notes = SharedArray<Note>(std::move(notes));
        return library;
    } catch (const JsonError&) {
        return std::nullopt;
    }
}

} // namespace

Library readLibrary(std::string text)
{
    text.reserve(text.size() + JsonDocument::spare);
    if (auto library = readInPieces(text))
        return std::move(*library);
    const JsonDocument document(std::move(text));
    if (!isKnownSchema(document))
        throw VeskoError(VeskoError::unsupportedSchema);
    return document.as<Library>();
}

} // namespace vesko
