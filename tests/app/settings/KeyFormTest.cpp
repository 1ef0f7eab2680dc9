// The form of the user's own key.

#include "VeskoApp/settings/KeyForm.h"
#include "tests/app/AppModelTest.h"

namespace vesko {
namespace {

class KeyFormTest : public AppModelTest {
protected:
    void open()
    {
        AppModelTest::open();
        form = std::make_unique<KeyForm>(
            model->preferences(), model->status(), [this](const QString& told) { notice = told; });
    }
    void waitForNotice()
    {
        ASSERT_TRUE(eventually([&] { return !notice.isEmpty(); }));
    }

    QString notice;
    std::unique_ptr<KeyForm> form; // ends before the model
};

TEST_F(KeyFormTest, aKeyIsTrimmedSavedAndForgotten)
{
    open();
    EXPECT_EQ(form->status(), QStringLiteral("No key saved"));
    EXPECT_EQ(form->prompt(), QStringLiteral("Your personal API key"));
    form->setProperty("draft", QStringLiteral(" sk-1\n"));
    form->save();
    waitForNotice();
    EXPECT_EQ(notice, QStringLiteral("Key saved in Keychain"));
    EXPECT_EQ(form->property("draft").toString(), QString());
    EXPECT_EQ(machine.secrets.items().at("personal"), "sk-1");
    EXPECT_EQ(model->preferences().keySource.get(), "personal");
    EXPECT_EQ(form->status(), QStringLiteral("Saved in Keychain"));
    EXPECT_EQ(form->prompt(), QStringLiteral("Enter a replacement key"));
    EXPECT_TRUE(form->hasKey());
}

TEST_F(KeyFormTest, aKeyThatCannotBeSavedStaysInTheForm)
{
    open();
    const struct {
        const char* what;
        const char* draft;
        bool locked;
        const char* error;
    } rows[] = {
        { "nothing", "  ", false, VeskoError(VeskoError::missingKey).errorDescription() },
        { "a line break inside", "sk\n1", false,
            VeskoError(VeskoError::missingKey).errorDescription() },
        { "a locked store", "sk-1", true, KeychainFailure().errorDescription() },
    };
    for (const auto& [what, draft, locked, error] : rows) {
        SCOPED_TRACE(what);
        model->status().dismissError();
        if (locked)
            machine.secrets.lock();
        form->setProperty("draft", QString::fromUtf8(draft));
        form->save();
        ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
        EXPECT_EQ(model->status().errorMessage(), error);
        EXPECT_EQ(notice, QString()); // it is said once
        EXPECT_EQ(form->property("draft").toString(), QString::fromUtf8(draft));
        machine.secrets.unlock();
        EXPECT_TRUE(machine.secrets.items().empty());
    }
    EXPECT_EQ(model->preferences().keySource.get(), "vesko");
}

TEST_F(KeyFormTest, aKeyIsRemovedAndTheSourceStays)
{
    choose("keySource", std::string("personal"));
    machine.secrets.put("personal", "sk-1");
    open();
    model->preferences().refresh();
    ASSERT_TRUE(eventually([&] { return form->hasKey(); }));
    form->setProperty("draft", QStringLiteral("half"));
    machine.secrets.lock();
    form->remove();
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_EQ(notice, QString());
    EXPECT_TRUE(form->hasKey());
    machine.secrets.unlock();
    form->remove();
    waitForNotice();
    EXPECT_EQ(notice, QStringLiteral("Key removed"));
    EXPECT_FALSE(form->hasKey());
    EXPECT_EQ(form->property("draft").toString(), QString());
    EXPECT_EQ(model->preferences().keySource.get(), "personal");
}

TEST_F(KeyFormTest, anErrorAboutTheKeyGoesWhenOneIsSaved)
{
    open();
    for (const char* error : { KeychainFailure().errorDescription(),
             VeskoError(VeskoError::missingKey).errorDescription() }) {
        model->status().setErrorMessage(error);
        form->setProperty("draft", QStringLiteral("sk-1"));
        form->save();
        EXPECT_TRUE(eventually([&] { return model->status().errorMessage().empty(); })) << error;
    }
    model->status().setErrorMessage("about something else");
    form->setProperty("draft", QStringLiteral("sk-2"));
    form->save();
    ASSERT_TRUE(eventually([&] { return machine.secrets.items().at("personal") == "sk-2"; }));
    waitForNotice();
    EXPECT_EQ(model->status().errorMessage(), "about something else");
}

} // namespace
} // namespace vesko
