#include "VeskoApp/transcription/LanguageInquiry.h"

#include "VeskoApp/base/Observed.h"
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

LanguageInquiry::LanguageInquiry(const TextLanguageRecognizer& recognizer,
    const std::vector<std::string>& preferredLanguages, Preferences& preferences,
    StatusLine& status)
    : m_recognizer(recognizer)
    , m_preferredLanguages(preferredLanguages)
    , m_preferences(preferences)
    , m_status(status)
{
}

void LanguageInquiry::consider(const std::string& text, const Recording& recording)
{
    const auto unknown = [this](const std::string& language) {
        return speaks && !speaks(SpokenLanguage::tag(SpokenLanguage::code(language)));
    };
    auto guess = LanguageDetector::detect(m_recognizer, text);
    if (guess && unknown(guess->language))
        guess.reset();
    auto preferred = m_preferredLanguages;
    std::erase_if(preferred, unknown);
    auto question = SpokenLanguage::question(guess ? std::optional(guess->language) : std::nullopt,
        guess ? guess->confidence : 0, guess ? guess->letters : 0, m_preferences.language.get(),
        m_preferences.languageAnswered.get(), preferred);
    std::optional<LanguageQuestion> asked;
    if (question)
        asked = { std::move(question->detected), std::move(question->options), recording };
    setQuestion(std::move(asked));
}

void LanguageInquiry::choose(const QString& code)
{
    if (!m_question)
        return;
    const LanguageQuestion question = *m_question;
    const std::string chosen = code.toStdString();
    m_preferences.language.set(chosen);
    m_preferences.languageAnswered.set(true);
    setQuestion(std::nullopt);
    if (SpokenLanguage::needsRedo(chosen, question.detected) && redo(question.recording))
        return;
    m_status.setMessage(translated(L10N_KEY("Vesko", "%1 will be used for dictation"))
            .arg(shownLanguage(chosen, m_preferredLanguages))
            .toStdString());
}

void LanguageInquiry::keepAutomatic()
{
    if (!m_question)
        return;
    m_preferences.languageAnswered.set(true);
    setQuestion(std::nullopt);
}

QVariant LanguageInquiry::shownQuestion() const
{
    if (!m_question)
        return {};
    QVariantList options;
    for (const auto& tag : m_question->options)
        options << QVariantMap{ { QStringLiteral("tag"), QString::fromStdString(tag) },
            { QStringLiteral("name"), shownLanguage(tag, m_preferredLanguages) } };
    const bool redoes = std::ranges::any_of(m_question->options, [this](const std::string& tag) {
        return SpokenLanguage::needsRedo(tag, m_question->detected);
    });
    const char* note = redoes
        ? L10N_KEY("Vesko",
              "Vesko will use it for dictation. Another language transcribes the last recording "
              "again.")
        : L10N_KEY("Vesko", "Vesko will use it for dictation.");
    return QVariantMap{ { QStringLiteral("options"), options },
        { QStringLiteral("note"), translated(note) } };
}

void LanguageInquiry::setQuestion(std::optional<LanguageQuestion> question)
{
    assign(*this, m_question, std::move(question), &LanguageInquiry::questionChanged);
}

} // namespace vesko
