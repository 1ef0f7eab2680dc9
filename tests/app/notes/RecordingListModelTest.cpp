#include "VeskoApp/notes/RecordingListModel.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

namespace vesko {

namespace {

Recording recorded()
{
    return Recording::make(Uuid::random(), {}, *Date::parse("2001-02-03T12:00:00Z"));
}

class RecordingListModelTest : public testing::Test {
protected:
    RecordingListModel model;
    QAbstractItemModelTester tester{ &model };

    QVariant said(int role, int row = 0) const { return model.data(model.index(row), role); }
    QVariantMap attempt() const
    {
        return said(RecordingListModel::attemptsRole).toList().value(0).toMap();
    }
};

TEST_F(RecordingListModelTest, ARecordingWithoutAttemptsOffersToTranscribe)
{
    auto recording = recorded();
    recording.status = RecordingStatus::recorded;
    recording.duration = 61.9;
    recording.errorMessage = "Recording stopped unexpectedly. Your original file was kept.";
    model.setRecordings({ recording });
    EXPECT_EQ(said(RecordingListModel::statusRole), QStringLiteral("Audio saved"));
    EXPECT_EQ(said(RecordingListModel::durationRole), QStringLiteral("1:01"));
    EXPECT_EQ(said(RecordingListModel::retryRole), QStringLiteral("Transcribe"));
    EXPECT_EQ(
        said(RecordingListModel::errorRole).toString().toStdString(), *recording.errorMessage);
    recording.attempts.emplace_back();
    model.setRecordings({ recording });
    EXPECT_EQ(said(RecordingListModel::retryRole), QStringLiteral("Retry…"));
}

TEST_F(RecordingListModelTest, AnAttemptShowsItsTextsAndItsCost)
{
    auto recording = recorded();
    TranscriptionAttempt tried;
    tried.provider = "OpenRouter";
    tried.model = "some/model";
    tried.status = AttemptStatus::ready;
    tried.rawText = "heard";
    tried.text = "Heard.";
    recording.attempts.push_back(tried);
    model.setRecordings({ recording });
    EXPECT_EQ(attempt()[QStringLiteral("original")], QStringLiteral("heard"));
    EXPECT_EQ(attempt()[QStringLiteral("edited")], QStringLiteral("Heard."));
    EXPECT_EQ(attempt()[QStringLiteral("cost")], QStringLiteral("Provider cost not reported"));
    EXPECT_EQ(attempt()[QStringLiteral("failed")], false);

    recording.attempts[0].text = "heard"; // nothing was edited
    recording.attempts[0].status = AttemptStatus::interrupted;
    model.setRecordings({ recording });
    EXPECT_EQ(attempt()[QStringLiteral("edited")], QString());
    EXPECT_EQ(attempt()[QStringLiteral("failed")], true);
}

TEST_F(RecordingListModelTest, AnAttemptNamesItsEngineInWords)
{
    auto recording = recorded();
    TranscriptionAttempt tried;
    tried.provider = onDeviceProvider;
    tried.model = "whisper.cpp/base";
    recording.attempts.push_back(tried);
    model.setRecordings({ recording });
    EXPECT_EQ(attempt()[QStringLiteral("modelName")], QStringLiteral("whisper.cpp, base"));
}

TEST_F(RecordingListModelTest, RowsStayWhileTheirRecordingsDo)
{
    int resets = 0, changes = 0, inserts = 0;
    using Model = QAbstractItemModel;
    QObject::connect(&model, &Model::modelReset, [&] { ++resets; });
    QObject::connect(&model, &Model::dataChanged, [&] { ++changes; });
    QObject::connect(&model, &Model::rowsInserted, [&] { ++inserts; });
    auto first = recorded();
    const auto second = recorded();
    model.setRecordings({ first });
    first.status = RecordingStatus::ready;
    model.setRecordings({ first, second });
    EXPECT_EQ(std::tuple(resets, changes, inserts), std::tuple(0, 1, 2));
    model.setRecordings({ second });
    EXPECT_EQ(resets, 1);
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.find(QString::fromStdString(second.id.text()))->id, second.id);
    EXPECT_EQ(model.find(QString::fromStdString(first.id.text())), nullptr);
    EXPECT_EQ(model.find(QStringLiteral("no id")), nullptr);
}

} // namespace

} // namespace vesko
