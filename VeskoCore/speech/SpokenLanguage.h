#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Language tags: what they stand for, what they are called, and whether to ask the user which one
// they speak. A tag is a text such as "en-US" or a bare code such as "en"; "auto" stands for
// automatic detection and is no language. Names are CLDR's, through ICU. Pure functions, any
// thread; any text is taken as a tag, and one that means nothing stands for itself.
namespace vesko::SpokenLanguage {

inline constexpr std::size_t minimumLetters = 12;
inline constexpr double minimumConfidence = 0.8;
inline constexpr std::size_t maximumOptions = 3;

// The part before the first hyphen, in lower case: "en" for "EN-us".
std::string code(std::string_view tag);
// The tag that usually stands for a code: "pt-BR" for "PT". A code without one stays as it is, in
// lower case.
std::string tag(std::string_view code);

// The tags that a list of languages offers, one a language.
std::vector<std::string> offered();

// The English name of the tag's language, without its region; the tag itself if it has none.
std::string name(const std::string& tag);
// The name to show in a language of the interface, "en" unless another is given: with `region` that
// of the whole tag, else that of its language. Begins with an upper-case letter.
std::string displayName(const std::string& tag, bool region = false,
    const std::optional<std::string>& interface = std::nullopt);

// The letters of a text, those that tell a language, in code points: a mark that belongs to a
// letter, such as a vowel sign, counts as one. Bytes that are not UTF-8 are none.
std::size_t letters(std::string_view text);

// What to ask the user.
struct Question {
    std::optional<std::string> detected; // the tag that was found with enough certainty
    std::vector<std::string> options; // the tags to offer, from one to maximumOptions

    bool operator==(const Question&) const = default;
};

// Whether to ask, and what, after a text of so many letters in which a language was detected with
// that confidence (0 to 1). `current` is the language that is set; only "auto" that was never
// `answered` raises a question. A finding is offered first, then what the user's system prefers,
// each language once.
std::optional<Question> question(const std::optional<std::string>& detected, double confidence,
    std::size_t letters, std::string_view current, bool answered,
    const std::vector<std::string>& preferred);

// Whether a text in which `detected` was found has to be recognised again for someone who chose
// that language. The region makes no difference.
bool needsRedo(std::string_view chosen, const std::optional<std::string>& detected);

} // namespace vesko::SpokenLanguage
