#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

using GstBuffer = struct _GstBuffer;
using GstEvent = struct _GstEvent;
using GstPad = struct _GstPad;

namespace vesko {

class FileSystem;

// Makes a recording's file an ordinary one in one step, which no kill and no loss of power can cut
// in two. To make it one, mp4mux overwrites the beginning, by which the file was playable until
// then, and only then writes what makes it playable afterwards. Here all that is held back, and
// goes into a new file that takes the place of the first.
class OrderlyFinish {
public:
    // On the pad by which the sink takes what is to be written; to be gone before it.
    explicit OrderlyFinish(GstPad* sink);
    OrderlyFinish(const OrderlyFinish&) = delete;
    OrderlyFinish& operator=(const OrderlyFinish&) = delete;
    ~OrderlyFinish();

    // Once the stream has reached its end: returns when the file is an ordinary one, all of which
    // is on the disk. A loss of power in the moments after may leave the one that grew in its
    // place: nobody waits for the folder. Throws std::system_error; then it is as playable as it
    // was while it grew.
    void complete(FileSystem& files, const std::filesystem::path& file);

private:
    // Whether it goes on to the sink.
    bool pass(GstBuffer* buffer);
    void follow(GstEvent* event);

    GstPad* m_sink;
    unsigned long m_probe;

    // Touched by the stream's thread, and by complete() after its end.
    std::uint64_t m_at = 0; // where the next bytes go
    std::uint64_t m_end = 0; // of the file
    std::uint64_t m_lastChange = 0; // where it was last overwritten; each fragment's is further on
    struct Piece {
        std::uint64_t at;
        std::string bytes;
    };
    std::vector<Piece> m_held; // all from the first change of what was done with
};

} // namespace vesko
