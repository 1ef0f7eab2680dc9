#include "VeskoCore/sync/TextSyncState.h"

#include "VeskoCore/base/JsonReader.h"

namespace vesko {

namespace {

constexpr std::int64_t knownSchema = 1;

// The revisions are a list to read into, or a view of what there is to write.
template <class Revisions>
struct JournalForm {
    Revisions revisions;
    std::int64_t schema = knownSchema;
};

template <class Revisions>
struct StateForm {
    JournalForm<Revisions> journal;
    std::vector<Uuid> pending; // read in any order, with repeats
    std::int64_t schema = knownSchema;
};

void requireKnown(std::int64_t schema)
{
    if (schema != knownSchema)
        throw TextSyncFailure(TextSyncFailure::unsupportedSchema);
}

} // namespace

template <class Revisions>
inline constexpr std::tuple jsonFields<JournalForm<Revisions>>{
    JsonField{ "revisions", &JournalForm<Revisions>::revisions },
    JsonField{ "schema", &JournalForm<Revisions>::schema },
};

template <class Revisions>
inline constexpr std::tuple jsonFields<StateForm<Revisions>>{
    JsonField{ "journal", &StateForm<Revisions>::journal },
    JsonField{ "pending", &StateForm<Revisions>::pending },
    JsonField{ "schema", &StateForm<Revisions>::schema },
};

TextSyncState TextSyncState::decode(std::string text)
{
    const JsonDocument document(std::move(text));
    // Another schema may have other revisions, so it is looked for before they are decoded.
    std::int64_t schema = 0;
    if (document.root()["journal"]["schema"].get(schema) == simdjson::SUCCESS)
        requireKnown(schema);
    auto form = document.as<StateForm<SharedArray<TextSyncRevision>>>();

    TextSyncState state;
    state.journal.merge(form.journal.revisions);
    requireKnown(form.schema);
    auto& pending = form.pending;
    std::ranges::sort(pending);
    pending.erase(std::ranges::unique(pending).begin(), pending.end());
    for (const auto& id : pending)
        if (!state.journal.find(id))
            throw TextSyncFailure(TextSyncFailure::invalidRevision);
    state.pending.change({}, pending);
    return state;
}

void TextSyncState::encode(const JsonWriter::Output& output) const
{
    auto revisions = journal.inOrder();
    const StateForm<decltype(revisions)> form{ { revisions }, { pending.begin(), pending.end() } };
    std::size_t size = 0;
    JsonWriter::write(form, JsonWriter::Form::pretty, [&](std::string_view piece) {
        size += piece.size();
        if (size > mostBytes)
            throw TextSyncFailure(TextSyncFailure::tooLarge);
        output(piece);
    });
}

} // namespace vesko
