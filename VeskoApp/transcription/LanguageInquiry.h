#pragma once

#include "VeskoApp/platform/TextLanguageRecognizer.h"
#include "VeskoApp/preferences/Preferences.h"
#include "VeskoApp/status/StatusLine.h"
#include "VeskoApp/transcription/LanguageQuestion.h"

#include <QObject>
#include <QVariant>

#include <functional>

namespace vesko {

// Asks which language the user speaks, after a dictation that was left to automatic detection. It
// is answered once. Main thread.
class LanguageInquiry : public QObject {
    Q_OBJECT
    // "options", each with its "tag" and "name", and a "note"; undefined if there is none.
    Q_PROPERTY(QVariant question READ shownQuestion NOTIFY questionChanged)

public:
    LanguageInquiry(const TextLanguageRecognizer& recognizer,
        const std::vector<std::string>& preferredLanguages, Preferences& preferences,
        StatusLine& status);

    // A transcript has come: raises the question, or takes back an older one.
    void consider(const std::string& text, const Recording& recording);
    // The answer. If another language than what was detected, the recording wants to be transcribed
    // again.
    Q_INVOKABLE void choose(const QString& code);
    // The other answer: the language stays to be detected, and nobody asks again.
    Q_INVOKABLE void keepAutomatic();

    const std::optional<LanguageQuestion>& question() const { return m_question; }
    QVariant shownQuestion() const;

    // Whether what recognises speech could be asked for a language; every one if empty.
    std::function<bool(const std::string&)> speaks;
    // Transcribes again in the language now chosen; false if something else is under way.
    std::function<bool(const Recording&)> redo;

Q_SIGNALS:
    void questionChanged();

private:
    void setQuestion(std::optional<LanguageQuestion> question);

    const TextLanguageRecognizer& m_recognizer;
    const std::vector<std::string>& m_preferredLanguages;
    Preferences& m_preferences;
    StatusLine& m_status;
    std::optional<LanguageQuestion> m_question;
};

} // namespace vesko
