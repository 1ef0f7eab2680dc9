#include "VeskoCore/exchange/DictionaryCsv.h"

#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/VeskoError.h"

#include <simdjson.h>

#include <utility>

namespace vesko {

namespace {

constexpr std::string_view mark = "\xef\xbb\xbf";
constexpr std::string_view heading = "original";
constexpr std::size_t mostRows = 100'000;

std::string quotedField(const std::string& text)
{
    if (text.find_first_of(",;\"\r\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"')
            quoted += '"';
        quoted += c;
    }
    return quoted + '"';
}

// Takes one row after the other out of a table.
class Rows {
public:
    Rows(std::string_view text, char separator)
        : m_rest(text)
        , m_separator(separator)
    {
    }
    bool atEnd() const { return m_rest.empty(); }

    std::vector<std::string> next()
    {
        std::vector<std::string> fields;
        do
            fields.push_back(field());
        while (skip(m_separator));
        skip('\r');
        skip('\n');
        return fields;
    }

private:
    bool skip(char c)
    {
        if (m_rest.empty() || m_rest.front() != c)
            return false;
        m_rest.remove_prefix(1);
        return true;
    }
    std::string field()
    {
        std::string text;
        bool isQuoted = skip('"');
        while (!m_rest.empty()) {
            const char c = m_rest.front();
            if (!isQuoted && (c == m_separator || c == '\r' || c == '\n'))
                break;
            m_rest.remove_prefix(1);
            if (!isQuoted || c != '"')
                text += c;
            else if (skip('"'))
                text += '"';
            else
                isQuoted = false; // what may follow before the separator belongs to it
        }
        return text;
    }

    std::string_view m_rest;
    char m_separator;
};

// Which of the two comes first, outside of quotes.
char separatorOf(std::string_view text)
{
    bool isQuoted = false;
    for (const char c : text) {
        if (c == '"')
            isQuoted = !isQuoted;
        else if (!isQuoted && (c == ',' || c == ';'))
            return c;
    }
    return ',';
}

bool saysNo(std::string_view text)
{
    return text == "0" || sameIgnoringCase(text, "false") || sameIgnoringCase(text, "no");
}

} // namespace

std::string dictionaryCsv(const SharedArray<DictionaryEntry>& entries)
{
    std::string table = "original,replacement,enabled\r\n";
    for (const auto& entry : entries) {
        table += quotedField(entry.original) + ',' + quotedField(entry.replacement) + ',';
        table += entry.enabled ? "true\r\n" : "false\r\n";
    }
    return table;
}

std::vector<DictionaryRow> readDictionaryCsv(std::string_view text)
{
    if (text.starts_with(mark))
        text.remove_prefix(mark.size());
    if (!simdjson::validate_utf8(text))
        throw VeskoError(VeskoError::invalidDictionary);
    std::vector<DictionaryRow> found;
    Rows rows(text, separatorOf(text));
    for (std::size_t count = 0; !rows.atEnd(); ++count) {
        if (count > mostRows)
            throw VeskoError(VeskoError::invalidDictionary);
        const auto fields = rows.next();
        if (fields.size() < 2 || (count == 0 && sameIgnoringCase(trimmed(fields[0]), heading)))
            continue;
        DictionaryRow row{ std::string(trimmed(fields[0])), std::string(trimmed(fields[1])),
            fields.size() < 3 || !saysNo(trimmed(fields[2])) };
        if (!row.original.empty() && !row.replacement.empty())
            found.push_back(std::move(row));
    }
    return found;
}

} // namespace vesko
