// The question which language the user speaks: raised after a dictation that was left to automatic
// detection, answered once.

#include "VeskoApp/capture/AppModel.h"

#include "VeskoApp/wording/InterfaceLanguage.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/speech/SpokenLanguage.h"

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

namespace LanguageDetector {

struct Guess {
    std::string language;
    double confidence = 0;
    std::size_t letters = 0;
};

std::optional<Guess> detect(const TextLanguageRecognizer& recognizer, const std::string& text)
{
    auto finding = recognizer.recognize(text);
    if (!finding)
        return std::nullopt;
    return Guess{ .language = std::move(finding->language),
        .confidence = finding->confidence,
        .letters = SpokenLanguage::letters(text) };
}

} // namespace LanguageDetector

} // namespace

void AppModel::askLanguage(const std::string& text, const Recording& recording)
{
    const auto guess = LanguageDetector::detect(m_platform.textLanguage, text);
    auto question = SpokenLanguage::question(guess ? std::optional(guess->language) : std::nullopt,
        guess ? guess->confidence : 0, guess ? guess->letters : 0, m_preferences.language.get(),
        m_preferences.languageAnswered.get(), m_platform.preferredLanguages);
    std::optional<LanguageQuestion> asked;
    if (question)
        asked = { std::move(question->detected), std::move(question->options), recording };
    setLanguageQuestion(std::move(asked));
}

void AppModel::chooseLanguage(const QString& code)
{
    if (!m_languageQuestion)
        return;
    const LanguageQuestion question = *m_languageQuestion;
    const std::string chosen = code.toStdString();
    m_preferences.language.set(chosen);
    m_preferences.languageAnswered.set(true);
    setLanguageQuestion(std::nullopt);
    if (SpokenLanguage::needsRedo(chosen, question.detected) && m_phase == Phase::idle) {
        retry(question.recording, true);
        return;
    }
    setMessage(translated(L10N_KEY("Vesko", "%1 will be used for dictation"))
            .arg(shownLanguage(chosen, m_platform.preferredLanguages))
            .toStdString());
}

void AppModel::keepAutomaticLanguage()
{
    if (!m_languageQuestion)
        return;
    m_preferences.languageAnswered.set(true);
    setLanguageQuestion(std::nullopt);
}

QVariant AppModel::shownLanguageQuestion() const
{
    if (!m_languageQuestion)
        return {};
    const LanguageQuestion& question = *m_languageQuestion;
    QVariantList options;
    for (const auto& tag : question.options)
        options << QVariantMap{ { QStringLiteral("tag"), QString::fromStdString(tag) },
            { QStringLiteral("name"), shownLanguage(tag, m_platform.preferredLanguages) } };
    const bool redoes = std::ranges::any_of(question.options,
        [&](const std::string& tag) { return SpokenLanguage::needsRedo(tag, question.detected); });
    const char* note = redoes
        ? L10N_KEY("Vesko",
              "Vesko will use it for dictation. Another language transcribes the last recording "
              "again.")
        : L10N_KEY("Vesko", "Vesko will use it for dictation.");
    return QVariantMap{ { QStringLiteral("options"), options },
        { QStringLiteral("note"), translated(note) } };
}

void AppModel::setLanguageQuestion(std::optional<LanguageQuestion> question)
{
    assign(m_languageQuestion, std::move(question), &AppModel::languageQuestionChanged);
}

} // namespace vesko
