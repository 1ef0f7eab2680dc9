#include "VeskoApp/shell/DiagnosisView.h"

#include "tests/fakes/FakeDoctor.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

TEST(DiagnosisView, showsEachReportAnew)
{
    FakeDoctor doctor;
    DiagnosisView view(doctor);
    EXPECT_EQ(view.report(), QString());
    EXPECT_FALSE(view.looking());
    for (const char* said : { "    first", "second" }) {
        view.look();
        EXPECT_TRUE(view.looking());
        EXPECT_EQ(view.report(), QString());
        doctor.answer.set(std::string(said) + "\n");
        EXPECT_FALSE(view.looking());
        EXPECT_EQ(view.report(), QString::fromLatin1(said));
    }
    EXPECT_EQ(doctor.asked, 2);
}

TEST(DiagnosisView, looksOnceAtATime)
{
    FakeDoctor doctor;
    DiagnosisView view(doctor);
    view.look();
    view.look();
    EXPECT_EQ(doctor.asked, 1);
}

TEST(DiagnosisView, saysThatThereIsNone)
{
    FakeDoctor doctor;
    DiagnosisView view(doctor);
    view.look();
    doctor.answer.set(std::nullopt);
    EXPECT_EQ(view.report(), QStringLiteral("This computer could not be looked at."));
}

} // namespace
} // namespace vesko
