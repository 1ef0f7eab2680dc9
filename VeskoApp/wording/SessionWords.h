#pragma once

#include "VeskoApp/platform/SessionOffer.h"

#include <QString>

namespace vesko {

// What the user is told of a session that does not offer everything, in words that name the
// desktop; empty where there is nothing to tell.

// How to get a shortcut, if the program can't take one itself.
QString shortcutAdvice(const SessionOffer& session);
// Why the keyboard can't be watched.
QString keysAdvice(const SessionOffer& session);
// What that means for the learning of corrections.
QString learningAdvice(const SessionOffer& session);
// Why nothing is pasted.
QString pasteAdvice(const SessionOffer& session);

} // namespace vesko
