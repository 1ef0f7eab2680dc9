#pragma once

#include "VeskoCore/base/Date.h"
#include "VeskoCore/base/Digest.h"
#include "VeskoCore/base/JsonCache.h"
#include "VeskoCore/base/JsonError.h"
#include "VeskoCore/base/JsonFields.h"
#include "VeskoCore/base/SharedArray.h"
#include "VeskoCore/base/Uuid.h"

#include <algorithm>
#include <concepts>
#include <cstring>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace vesko {

// Writes records as JSON text, keys in the order of their tables. The pretty form is the one of
// the files: two blanks a level, " : " after a key, an empty array or object as its two brackets
// around an empty line. The compact form is a single line without blanks. In both a slash is
// written "\/", a control character as its short escape or "\u00xx", and a number in its shortest
// exact form.
class JsonWriter {
public:
    enum class Form : bool { pretty, compact };
    // Takes the next piece of the text; the piece is gone afterwards.
    using Output = std::function<void(std::string_view)>;

    // The whole of one value, piece by piece, so that no large document has to stand in memory.
    // Throws JsonError for what JSON can't hold: a number that is not finite, text that is not
    // UTF-8, a date outside the years 0000 to 9999, more than
    // 64 levels. Some pieces may have gone out by then.
    // With a cache, always the same one for the same kind of document, only what changed is
    // encoded; an element of more than JsonCache::longestText is then a JsonError too.
    template <class T>
    static void write(const T& value, Form form, Output output, JsonCache* cache = nullptr)
    {
        JsonWriter writer(form, std::move(output), cache);
        writer.put(value);
        writer.flush();
        if (cache)
            cache->forgetUnused();
    }
    // As one text, with room for about so many bytes from the beginning: growing a long one takes
    // longer than writing it.
    template <class T>
    static std::string write(const T& value, Form form, std::size_t expected = 0)
    {
        std::string text;
        text.reserve(expected);
        write(value, form, [&](std::string_view piece) { text += piece; });
        return text;
    }

private:
    // What may be appended at one go without asking for room: brackets, blanks, a key, and a value
    // that is no text.
    static constexpr std::size_t shortText = 100;
    static constexpr std::size_t deepest = 64;
    static constexpr std::size_t usualIndent = 32;
    static constexpr std::size_t roomAfterEnd = 2 * deepest + 4 * shortText;

    JsonWriter(Form form, Output output, JsonCache* cache);

    void put(bool value) { append(value ? "true" : "false"); }
    void put(std::int64_t value);
    void put(double value);
    void put(const std::string& value);
    void put(const Base64& value);
    void put(const Uuid& value);
    void put(const Date& value);

    template <std::integral T>
    void put(T value)
    {
        put(static_cast<std::int64_t>(value));
    }
    template <JsonEnumeration T>
    void put(T value)
    {
        static_assert(std::ranges::all_of(
            jsonNames<T>, [](std::string_view name) { return name.size() < shortText; }));
        appendQuoted(jsonNames<T>[static_cast<std::size_t>(value)]);
    }
    template <JsonRecord T>
    void put(const T& record)
    {
        static_assert(jsonKeysAreSorted<T>());
        open('{');
        [&]<std::size_t... index>(std::index_sequence<index...>) {
            (putField<T, index>(record.*std::get<index>(jsonFields<T>).member), ...);
        }(std::make_index_sequence<std::tuple_size_v<decltype(jsonFields<T>)>>());
        close('}');
    }
    template <JsonVariant T>
    void put(const T& value)
    {
        static_assert(std::ranges::all_of(
            jsonCases<T>, [](std::string_view key) { return key.size() < shortText; }));
        open('{');
        putKey(jsonCases<T>[value.index()]);
        open('{');
        putKey(jsonPayloadKey);
        std::visit([&](const auto& held) { put(held); }, value);
        close('}');
        close('}');
    }
    template <class Array>
        requires requires(const Array& array) { array.begin() != array.end(); }
    void put(const Array& array)
    {
        open('[');
        for (const auto& element : array) {
            nextElement();
            put(element);
        }
        close(']');
    }

    template <class T>
    void put(const SharedArray<T>& array)
    {
        open('[');
        for (std::size_t index = 0; index < array.size(); ++index) {
            nextElement();
            if (m_cache)
                putCached(array.shared(index));
            else
                put(array[index]);
        }
        close(']');
    }
    template <class T>
    void putCached(const std::shared_ptr<const T>& element)
    {
        const auto* text = m_cache->find(element);
        if (!text) {
            flush();
            std::string fresh;
            auto output = std::exchange(m_output, [&](std::string_view piece) { fresh += piece; });
            put(*element);
            flush();
            m_output = std::move(output);
            if (fresh.size() > JsonCache::longestText)
                throw JsonError();
            text = &m_cache->add(element, std::move(fresh));
        }
        appendChecked(*text);
    }

    // The key comes as a constant, so that the compiler copies it in a move or two.
    template <class Record, std::size_t index, class T>
    void putField(const T& value)
    {
        constexpr auto key = std::get<index>(jsonFields<Record>).key;
        static_assert(key.size() < shortText);
        putKey(key);
        put(value);
    }
    template <class Record, std::size_t index, class T>
    void putField(const std::optional<T>& value)
    {
        if (value)
            putField<Record, index>(*value);
    }

    [[gnu::always_inline]] void putKey(std::string_view key)
    {
        nextElement();
        appendQuoted(key);
        append(m_pretty ? " : " : ":");
    }
    void open(char bracket)
    {
        if (m_depth == deepest)
            throw JsonError();
        *m_at++ = bracket;
        m_first = true;
        ++m_depth;
    }
    void nextElement()
    {
        if (!m_first)
            *m_at++ = ',';
        m_first = false;
        newLine();
    }
    void close(char bracket)
    {
        --m_depth;
        if (m_first && m_pretty)
            *m_at++ = '\n';
        newLine();
        *m_at++ = bracket;
        m_first = false;
    }

    // Between two of these only short texts are appended, so that it is enough to look for room
    // here and where a user's text begins.
    void newLine()
    {
        makeRoom(0);
        if (!m_pretty)
            return;
        *m_at++ = '\n';
        // Of a constant length, and mostly too long, so that the compiler makes it a move or two.
        std::memset(m_at, ' ', usualIndent);
        if (2 * m_depth > usualIndent)
            std::memset(m_at + usualIndent, ' ', 2 * m_depth - usualIndent);
        m_at += 2 * m_depth;
    }

    void append(std::string_view text)
    {
        std::memcpy(m_at, text.data(), text.size());
        m_at += text.size();
    }
    // For a text in which nothing needs an escape.
    void appendQuoted(std::string_view text)
    {
        *m_at++ = '"';
        append(text);
        *m_at++ = '"';
    }
    // Makes sure of so many bytes besides the short texts that anyone may append.
    void makeRoom(std::size_t bytes)
    {
        if (m_end - m_at < static_cast<std::ptrdiff_t>(bytes))
            nextPiece();
    }
    // For a text of any length that this writer has made.
    void appendChecked(std::string_view text);
    // Makes sure that what was appended is UTF-8.
    void check();
    void flush();
    void nextPiece();
    void startPieces(std::size_t size);

    bool m_pretty;
    Output m_output;
    JsonCache* m_cache;
    std::unique_ptr<char[]> m_piece;
    std::size_t m_size = 0; // of the piece
    char* m_at = nullptr;
    char* m_end = nullptr;
    char* m_unchecked = nullptr; // what was appended since the last check begins here
    bool m_first = true; // nothing stands in the innermost array or object yet
    std::size_t m_depth = 0;
};

} // namespace vesko
