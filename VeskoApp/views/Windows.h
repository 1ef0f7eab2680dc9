#pragma once

#include "VeskoApp/shell/AppDelegate.h"

#include <memory>

class QQmlEngine;

namespace vesko {

// Prepares an engine for the program's windows, once in a process, and begins to load the floating
// control beside the caller. None of the others is loaded by it.
void prepareViews(QQmlEngine& engine);
// Makes the floating control, hidden. Throws std::runtime_error when the installation is broken.
std::unique_ptr<QWindow> makeCapturePanel(
    QQmlEngine& engine, Platform& platform, AppModel& model, AppDelegate& delegate);
// Makes a window, hidden; null for one that does not exist.
std::unique_ptr<QWindow> makeWindow(
    QQmlEngine& engine, AppWindow kind, Platform& platform, AppModel& model, AppDelegate& delegate);
// Makes a window that tells one sentence, hidden. Throws as makeCapturePanel().
std::unique_ptr<QWindow> makeNotice(QQmlEngine& engine, const QString& text);

} // namespace vesko
