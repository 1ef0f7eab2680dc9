#pragma once

#include <QAccessible>
#include <QObject>

namespace vesko {

// Tells a screen reader that came after a window of ours had the keyboard where it is: what reports
// to it is connected while the program goes on starting, and keeps nothing of what was before.
// Main thread.
class LateListener : public QObject, private QAccessible::ActivationObserver {
public:
    explicit LateListener(QObject* parent);
    ~LateListener() override;

private:
    void accessibilityActiveChanged(bool active) override;
};

} // namespace vesko
