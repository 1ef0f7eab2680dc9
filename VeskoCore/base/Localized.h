#pragma once

#include <string>

// Marks an English text as a key of the translation catalogues and leaves it as it is: the core
// speaks in keys, and the application translates what it shows. "Vesko" is the context of all
// texts, so that one sentence has one translation wherever it is said.
#define L10N_KEY(context, text) text
