#pragma once

// The XKB part of xcb, in which a struct has a member that is named after a keyword of C++.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wkeyword-macro"
#define explicit explicitly
#include <xcb/xkb.h>
#undef explicit
#pragma GCC diagnostic pop
