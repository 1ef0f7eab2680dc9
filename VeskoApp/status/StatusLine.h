#pragma once

#include <QObject>
#include <QString>

#include <exception>
#include <string>

namespace vesko {

// What the user is told: the status line, the error line, and the line about the shortcut. Each is
// a key of the catalogues, or a text that is translated already; an empty one is none. The last
// word of whoever has something to say stands. Main thread.
class StatusLine : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString message READ messageText NOTIFY messageChanged)
    Q_PROPERTY(QString errorMessage READ errorText NOTIFY errorMessageChanged)
    Q_PROPERTY(QString shortcutMessage READ shortcutText NOTIFY shortcutMessageChanged)

public:
    StatusLine();

    const std::string& message() const { return m_message; }
    const std::string& errorMessage() const { return m_errorMessage; }
    const std::string& shortcutMessage() const { return m_shortcutMessage; }
    void setMessage(std::string message);
    void setErrorMessage(std::string message);
    void setShortcutMessage(std::string message);
    // Says in the error line what went wrong.
    void report(const std::exception_ptr& failure);
    // That error is none any more: the line goes if this is what it still says.
    void withdraw(const std::string& errorMessage);
    // The user has read the error line.
    Q_INVOKABLE void dismissError() { setErrorMessage({}); }

    // As the user reads them.
    QString messageText() const;
    QString errorText() const;
    QString shortcutText() const;

Q_SIGNALS:
    void messageChanged();
    void errorMessageChanged();
    void shortcutMessageChanged();

private:
    std::string m_message;
    std::string m_errorMessage;
    std::string m_shortcutMessage;
};

} // namespace vesko
