#include "VeskoLinux/speech/PreferredLanguages.h"

#include "VeskoLinux/speech/EngineRecognizer.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <optional>

namespace vesko {
namespace {

using Tags = std::vector<std::string>;

// The user's environment, given back at the end.
class PreferredLanguages : public testing::Test {
protected:
    PreferredLanguages()
    {
        for (std::size_t i = 0; i < names.size(); ++i)
            if (const char* value = std::getenv(names[i]))
                m_earlier[i] = value;
    }
    ~PreferredLanguages() override
    {
        for (std::size_t i = 0; i < names.size(); ++i)
            put(names[i], m_earlier[i] ? m_earlier[i]->c_str() : nullptr);
    }

    static void put(const char* name, const char* value)
    {
        value ? ::setenv(name, value, 1) : ::unsetenv(name);
    }

    static constexpr std::array<const char*, 4> names{ "LANGUAGE", "LC_ALL", "LC_MESSAGES",
        "LANG" };

private:
    std::array<std::optional<std::string>, 4> m_earlier;
};

TEST_F(PreferredLanguages, areThoseOfTheMessages)
{
    const struct {
        const char* described;
        const char *list, *all, *messages, *lang;
        Tags tags;
    } table[] = {
        { "nothing set", nullptr, nullptr, nullptr, nullptr, {} },
        { "the usual", nullptr, nullptr, nullptr, "en_US.UTF-8", { "en-US" } },
        { "without an encoding", nullptr, nullptr, nullptr, "pt_BR", { "pt-BR" } },
        { "without a region", nullptr, nullptr, nullptr, "fr", { "fr" } },
        { "with a variant", nullptr, nullptr, nullptr, "ca_ES@valencia", { "ca-ES" } },
        { "with both", nullptr, nullptr, nullptr, "sr_RS.UTF-8@latin", { "sr-RS" } },
        { "messages before the rest", nullptr, nullptr, "de_AT.UTF-8", "en_US.UTF-8", { "de-AT" } },
        { "all before messages", nullptr, "fr_FR.UTF-8", "de_DE.UTF-8", "en_US.UTF-8",
            { "fr-FR" } },
        { "an empty one says nothing", "", "", "", "de_DE.UTF-8", { "de-DE" } },
        { "C", nullptr, nullptr, nullptr, "C", {} },
        { "POSIX", nullptr, nullptr, nullptr, "POSIX", {} },
        { "C with an encoding", nullptr, nullptr, nullptr, "C.UTF-8", {} },
        { "C hides the rest", "de", "C.UTF-8", "de_DE.UTF-8", "de_DE.UTF-8", {} },
        { "a list comes first", "de_AT:fr", nullptr, nullptr, "en_US.UTF-8",
            { "de-AT", "fr", "en-US" } },
        { "each once", "pt_BR:pt:en", nullptr, nullptr, "pt_BR.UTF-8", { "pt-BR", "pt", "en" } },
        { "a list with gaps", ":de::C:de:", nullptr, nullptr, "en_US.UTF-8", { "de", "en-US" } },
    };
    const EngineRecognizer recognizer(nullptr);
    for (const auto& row : table) {
        put("LANGUAGE", row.list);
        put("LC_ALL", row.all);
        put("LC_MESSAGES", row.messages);
        put("LANG", row.lang);
        EXPECT_EQ(preferredLanguages(), row.tags) << row.described;
        EXPECT_EQ(recognizer.systemLanguage(), row.tags.empty() ? "en" : row.tags.front())
            << row.described;
    }
}

} // namespace
} // namespace vesko
