#pragma once

#include "VeskoLinux/accessibility/AtspiElement.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace vesko {

// A program with one active window and some fields in it, three elements deep, which tells what the
// test says.
class ToldProgram final : public QDBusVirtualObject {
public:
    static constexpr int fields = 3;

    int focused = -1; // the number of a field
    uint role; // of the fields
    QString written = QStringLiteral("written"); // in each field
    bool hesitates = false; // to say what its fields are, until it is told to go on
    // Which questions never get an answer.
    std::function<bool(const QDBusMessage&)> silent = [](const QDBusMessage&) { return false; };

    ToldProgram();
    ~ToldProgram() override;

    // Among the programs that whoever looks for one finds.
    void join();
    AtspiAddress field(int number) const;
    // As events do, this comes before whatever is answered later.
    void tellFocus(int number, bool gained);
    // How often it was asked for the states of a field.
    int asked() const { return m_asked; }
    void goOn();

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override;

private:
    QStringList childrenOf(const QString& path) const;
    std::optional<QVariant> answer(const QDBusMessage& call) const;
    QVariant property(const QString& name) const;
    QVariant states(const QString& path) const;
    bool isField(const QString& path) const;

    QDBusConnection m_bus;
    int m_asked = 0;
    std::vector<QDBusMessage> m_open; // questions that are not answered
};

} // namespace vesko
