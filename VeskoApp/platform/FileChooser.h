#pragma once

#include "VeskoApp/async/Eventual.h"

#include <filesystem>
#include <string>

class QWindow;

namespace vesko {

// The desktop's own dialog in which a user chooses a file. Main thread only; nothing here waits.
class FileChooser {
public:
    virtual ~FileChooser() = default;

    // What the dialog says and offers, in the user's words.
    struct Question {
        std::string title;
        std::string agree; // on the button that saves or opens
        std::filesystem::path file; // the folder that is shown first, and the name in it
        std::string kind; // what such files are called
        std::string pattern; // of their names, such as "*.txt"
    };
    struct Answer {
        enum Outcome { chosen, cancelled, unavailable } outcome;
        std::filesystem::path file; // if chosen: absolute, in UTF-8

        bool operator==(const Answer&) const = default;
    };

    // Asks where to save a file, above that window. It is `unavailable` if the desktop has no such
    // dialog, or gave an answer that is no file of this machine. The user may take any time; asking
    // again cancels the dialog that is open.
    virtual Eventual<Answer> save(const Question& what, QWindow& above) = 0;
    // The same for a file that is there, which is to be opened: no name is offered.
    virtual Eventual<Answer> open(const Question& what, QWindow& above) = 0;
    // The same for a folder that is there; `kind` and `pattern` are not asked for.
    virtual Eventual<Answer> folder(const Question& what, QWindow& above) = 0;
};

} // namespace vesko
