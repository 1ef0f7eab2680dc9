#pragma once

#include <initializer_list>

namespace vesko {

// Runs GStreamer with those of its plugins that a graph is made of. Its own way is a description of
// every plugin of the machine, which costs an idle program megabytes, and a new machine's first
// start seconds.

// Starts GStreamer. Changes the environment for a moment: before there are other threads.
void startGStreamer();

// Loads these, by the names of their files without "libgst" and ".so", and starts GStreamer if
// nothing has. Nothing happens to one that is loaded already. What isn't installed is left out;
// then the graph lacks a part. False if GStreamer can't start. Any thread.
bool loadGstPlugins(std::initializer_list<const char*> names);

} // namespace vesko
