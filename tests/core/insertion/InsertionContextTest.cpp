#include "VeskoCore/insertion/InsertionContext.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vesko {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

InsertionContext untouchedField()
{
    return { .sameApplication = true,
        .sameElement = true,
        .sameSelection = true,
        .unchangedValue = true,
        .writable = true,
        .secure = false,
        .trusted = true,
        .elapsed = 3 };
}

TEST(InsertionContext, AnUntouchedFieldTakesThePaste)
{
    const InsertionContext context = untouchedField();
    EXPECT_TRUE(context.permitsPaste());
    EXPECT_THAT(context.blockers(), IsEmpty());
    EXPECT_THAT(context.notes(), IsEmpty());
}

TEST(InsertionContext, NothingKnownForbidsThePaste)
{
    EXPECT_THAT(InsertionContext{}.blockers(),
        ElementsAre("accessibility", "app_changed", "field_changed", "not_writable"));
    EXPECT_FALSE(InsertionContext{}.permitsPaste());
}

TEST(InsertionContext, ChangesInsideTheFieldAreOnlyNoted)
{
    InsertionContext context = untouchedField();
    context.sameSelection = false;
    EXPECT_THAT(context.notes(), ElementsAre("cursor_moved"));
    EXPECT_TRUE(context.permitsPaste());

    context.unchangedValue = false;
    EXPECT_THAT(context.notes(), ElementsAre("cursor_moved", "text_changed"));
    EXPECT_TRUE(context.permitsPaste());

    context.sameSelection = true;
    EXPECT_THAT(context.notes(), ElementsAre("text_changed"));
    EXPECT_TRUE(context.permitsPaste());
}

TEST(InsertionContext, ThePasteWaitsTwoMinutesAtMost)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    const struct {
        const char* what;
        double elapsed;
        bool permitted;
    } rows[] = {
        { "at once", 0, true },
        { "at once, with a negative zero", -0.0, true },
        { "after two minutes", 120, true },
        { "a little later", 120.001, false },
        { "the very next number", std::nextafter(120.0, 121.0), false },
        { "the clock was set back a little", -0.001, false },
        { "the clock was set back a day", -86400, false },
        { "never", infinite, false },
        { "no number", nan, false },
    };
    for (const auto& row : rows) {
        InsertionContext context = untouchedField();
        context.elapsed = row.elapsed;
        EXPECT_EQ(context.permitsPaste(), row.permitted) << row.what;
        if (!row.permitted)
            EXPECT_THAT(context.blockers(), ElementsAre("too_late")) << row.what;
    }
}

// Every combination of the eight facts: each token stands exactly when its own fact asks for it,
// whatever the others say, and always in the same order.
TEST(InsertionContext, EveryCombinationListsItsReasonsInTheFixedOrder)
{
    for (unsigned bits = 0; bits < 256; ++bits) {
        const auto bit = [bits](unsigned index) { return ((bits >> index) & 1U) != 0; };
        const InsertionContext context{ .sameApplication = !bit(1),
            .sameElement = !bit(2),
            .sameSelection = !bit(6),
            .unchangedValue = !bit(7),
            .writable = !bit(3),
            .secure = bit(4),
            .trusted = !bit(0),
            .elapsed = bit(5) ? 121.0 : 5.0 };

        const char* blockers[] = { "accessibility", "app_changed", "field_changed", "not_writable",
            "secure_field", "too_late" };
        std::vector<std::string> expectedBlockers;
        for (unsigned index = 0; index < 6; ++index) {
            if (bit(index))
                expectedBlockers.emplace_back(blockers[index]);
        }
        std::vector<std::string> expectedNotes;
        if (bit(6))
            expectedNotes.emplace_back("cursor_moved");
        if (bit(7))
            expectedNotes.emplace_back("text_changed");

        EXPECT_EQ(context.blockers(), expectedBlockers) << bits;
        EXPECT_EQ(context.notes(), expectedNotes) << bits;
        EXPECT_EQ(context.permitsPaste(), expectedBlockers.empty()) << bits;
    }
}

} // namespace
} // namespace vesko
