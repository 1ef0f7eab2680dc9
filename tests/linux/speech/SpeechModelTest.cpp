#include "VeskoLinux/speech/SpeechModel.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

class WithModels : public testing::Test {
private:
    TemporaryFolder folder;

protected:
    const std::filesystem::path models = folder.path() / "models";

    // A folder with files named as those of an installed model are.
    void install(const std::string& name, const std::string& without = "") const
    {
        const auto place = models / name;
        std::filesystem::create_directories(place / "acoustic");
        for (const std::string file : { "acoustic/mdef", "words.dict", "words.lm.bin" })
            if (file != without)
                putBytes(place / file, "");
    }
    // The name of the folder whose model is taken.
    std::string found(const std::string& tag) const
    {
        const auto model = SpeechModel::find(models, tag);
        return model ? model->dictionary.parent_path().filename().string() : "";
    }
};

TEST_F(WithModels, takesALanguageInEveryFormOfItsTag)
{
    install("en-us");
    install("pt-br");
    for (const char* tag : { "en", "EN", "en-US", "en_US", "en_GB.UTF-8", "en_US@euro", "en-AU" })
        EXPECT_EQ(found(tag), "en-us") << tag;
    for (const char* tag : { "pt", "pt-BR", "pt_PT.ISO8859-1" })
        EXPECT_EQ(found(tag), "pt-br") << tag;
}

TEST_F(WithModels, takesNoOtherLanguage)
{
    install("en-us");
    install(".hidden");
    for (const char* tag : { "de", "de-DE", "eng", "e", "enm-US", "", "-", "_US", ".UTF-8", "..",
             "../en-us", "us", "auto" })
        EXPECT_EQ(found(tag), "") << tag;
}

TEST_F(WithModels, prefersTheRegionThatIsAskedFor)
{
    install("en-us");
    install("en-gb");
    install("en");
    EXPECT_EQ(found("en-US"), "en-us");
    EXPECT_EQ(found("en_GB.UTF-8"), "en-gb");
    EXPECT_EQ(found("en"), "en");
    EXPECT_EQ(found("en-AU"), "en");
}

TEST_F(WithModels, passesOverAModelThatLacksAPart)
{
    for (const char* part : { "acoustic/mdef", "words.dict", "words.lm.bin" }) {
        std::filesystem::remove_all(models);
        install("en-us", part);
        EXPECT_EQ(found("en-US"), "") << part;
        install("en-gb");
        EXPECT_EQ(found("en-US"), "en-gb") << part;
    }
}

TEST_F(WithModels, passesOverALanguageModelOfSounds)
{
    install("en-us", "words.lm.bin");
    putBytes(models / "en-us" / "words-phone.lm.bin", "");
    EXPECT_EQ(found("en"), "");
}

TEST_F(WithModels, findsNothingWhereNothingIsInstalled)
{
    EXPECT_EQ(found("en"), "") << "no folder";
    putBytes(models, "a file");
    EXPECT_EQ(found("en"), "") << "a file instead";
}

} // namespace
} // namespace vesko
