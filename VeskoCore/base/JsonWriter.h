#pragma once

#include "VeskoCore/base/Date.h"
#include "VeskoCore/base/JsonError.h"
#include "VeskoCore/base/JsonFields.h"
#include "VeskoCore/base/Uuid.h"

#include <concepts>
#include <optional>
#include <string>

namespace vesko {

// Writes records as JSON text, keys in the order of their tables. The pretty form is the one of
// the files: two blanks a level, " : " after a key, an empty array or object as its two brackets
// around an empty line. The compact form is a single line without blanks. In both a slash is
// written "\/", a control character as its short escape or "\u00xx", and a number in its shortest
// exact form.
class JsonWriter {
public:
    enum class Form : bool { pretty, compact };

    // The whole of one value. Throws JsonError for what JSON can't hold: a number that is not
    // finite, text that is not UTF-8, a date outside the years 0000 to 9999.
    template <class T>
    static std::string write(const T& value, Form form)
    {
        JsonWriter writer(form);
        writer.put(value);
        return writer.finished();
    }

private:
    explicit JsonWriter(Form form)
        : m_pretty(form == Form::pretty)
    {
    }
    std::string finished();

    void put(bool value) { m_text += value ? "true" : "false"; }
    void put(std::int64_t value);
    void put(double value);
    void put(const std::string& value);
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
        m_text += '"';
        m_text += jsonNames<T>[static_cast<std::size_t>(value)];
        m_text += '"';
    }
    template <JsonRecord T>
    void put(const T& record)
    {
        static_assert(jsonKeysAreSorted<T>());
        open('{');
        std::apply([&](const auto&... field) { (putField(field.key, record.*field.member), ...); },
            jsonFields<T>);
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
    void putField(std::string_view key, const T& value)
    {
        nextElement();
        putKey(key);
        put(value);
    }
    template <class T>
    void putField(std::string_view key, const std::optional<T>& value)
    {
        if (value)
            putField(key, *value);
    }

    void putKey(std::string_view key);
    void open(char bracket);
    void nextElement();
    void close(char bracket);
    void newLine();

    std::string m_text;
    bool m_pretty;
    bool m_first = true; // nothing stands in the innermost array or object yet
    std::size_t m_depth = 0;
};

} // namespace vesko
