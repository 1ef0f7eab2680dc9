#include "VeskoApp/exchange/DictionaryExchange.h"

#include "tests/app/AppModelTest.h"
#include "tests/fakes/Files.h"

#include <QFile>

namespace vesko {
namespace {

struct DictionaryExchangeTest : AppModelTest {
    std::unique_ptr<DictionaryExchange> exchange;
    const std::filesystem::path table = folder.path() / "terms.csv";

    void open()
    {
        AppModelTest::open();
        exchange = std::make_unique<DictionaryExchange>(
            machine.clock, machine.fileChooser, model->library(), model->terms(), nullptr);
    }
    ~DictionaryExchangeTest() override { exchange.reset(); }
    QString path() const { return QFile::decodeName(table.c_str()); }
    [[nodiscard]] bool says(const char* words)
    {
        return eventually([&] { return model->terms().message() == QString::fromUtf8(words); });
    }
    const SharedArray<DictionaryEntry>& terms() { return model->library().contents().dictionary; }
};

TEST_F(DictionaryExchangeTest, TermsComeInOnceAndGoOut)
{
    open();
    putBytes(table, "original;replacement\r\nseeder;cedar\r\nlong\nteh;the\r\n");
    exchange->importFrom(path());
    ASSERT_TRUE(says("Terms imported: 2"));
    ASSERT_EQ(terms().size(), 2U);
    EXPECT_EQ(terms()[0].original, "seeder");
    EXPECT_EQ(terms()[0].source, DictionaryEntry::Source::manual);
    exchange->importFrom(path());
    ASSERT_TRUE(says("Terms imported: 0"));

    exchange->exportTo(path());
    ASSERT_TRUE(says("Dictionary exported"));
    EXPECT_EQ(
        bytesOf(table), "original,replacement,enabled\r\nseeder,cedar,true\r\nteh,the,true\r\n");
}

TEST_F(DictionaryExchangeTest, WhatIsNoTableIsRefusedInWords)
{
    open();
    putBytes(table, "\xff\xfe\x01");
    exchange->importFrom(path());
    EXPECT_TRUE(says("This file is no table of terms."));
    exchange->importFrom(QStringLiteral("/dev/zero"));
    EXPECT_TRUE(says("Vesko could not complete this operation. Your saved files were preserved. "
                     "Check the data folder and try again."));
    EXPECT_TRUE(terms().empty());
}

} // namespace
} // namespace vesko
