#include "VeskoCore/account/QueryItems.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

TEST(QueryItems, EncodeAllButUnreservedCharacters)
{
    EXPECT_EQ(encodedQuery({}), "");
    EXPECT_EQ(encodedQuery({ { "a", "1" }, { "b", std::nullopt }, { "c", "" } }), "a=1&b&c=");
    EXPECT_EQ(
        encodedQuery({ { "code", "4/0Ab+c=&d %#?" } }), "code=4%2F0Ab%2Bc%3D%26d%20%25%23%3F");
    EXPECT_EQ(encodedQuery({ { "t", "AZaz09-._~" } }), "t=AZaz09-._~");
    EXPECT_EQ(encodedQuery({ { "t", "\u00E4\n" } }), "t=%C3%A4%0A");
}

TEST(QueryItems, AreReadInTheirOrderAndDecoded)
{
    const struct {
        const char* what;
        const char* url;
        std::optional<QueryItems> items;
    } rows[] = {
        { "no query", "scheme:/path", std::nullopt },
        { "an empty query", "scheme:/path?", QueryItems{} },
        { "one item", "scheme:/path?a=1", QueryItems{ { "a", "1" } } },
        { "the same name twice", "s:?a=1&a=2", QueryItems{ { "a", "1" }, { "a", "2" } } },
        { "no value, and an empty one",
            "s:?a&b=", QueryItems{ { "a", std::nullopt }, { "b", "" } } },
        { "an item of nothing", "s:?a=1&&b=2",
            QueryItems{ { "a", "1" }, { "", std::nullopt }, { "b", "2" } } },
        { "a second equals sign", "s:?a=b=c", QueryItems{ { "a", "b=c" } } },
        { "escapes", "s:?a%20b=4%2F0%26x&c=%C3%A4",
            QueryItems{ { "a b", "4/0&x" }, { "c", "ä" } } },
        { "a plus, which is one", "s:?a=b+c", QueryItems{ { "a", "b+c" } } },
        { "broken escapes", "s:?a=%&b=%2&c=%G1&d=%-1",
            QueryItems{ { "a", "%" }, { "b", "%2" }, { "c", "%G1" }, { "d", "%-1" } } },
        { "a fragment", "s:?a=1#b?c=2", QueryItems{ { "a", "1" } } },
        { "a query in the fragment only", "s:/x#?a=1", std::nullopt },
    };
    for (const auto& [what, url, items] : rows)
        EXPECT_EQ(queryItems(url), items) << what;
}

TEST(QueryItems, ReadBackWhatTheyWrite)
{
    std::string every;
    for (int byte = 0; byte < 256; ++byte)
        every += static_cast<char>(byte);
    const QueryItems items{ { every, every } };
    EXPECT_EQ(queryItems("s:?" + encodedQuery(items)), items);
}

TEST(QueryItems, TheFirstItemOfANameCounts)
{
    const QueryItems items{ { "a", "1" }, { "b", "2" }, { "a", "3" } };
    EXPECT_EQ(firstItem(items, "a")->second, "1");
    EXPECT_EQ(firstItem(items, "A"), nullptr);
}

} // namespace
} // namespace vesko
