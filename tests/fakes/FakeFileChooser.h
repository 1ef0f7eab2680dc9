#pragma once

#include "VeskoApp/platform/FileChooser.h"

#include <vector>

namespace vesko {

// Remembers what it was asked; the test answers the last question.
class FakeFileChooser final : public FileChooser {
public:
    std::vector<Saving> asked;
    Eventual<Answer> answer;

    Eventual<Answer> save(const Saving& what, QWindow&) override
    {
        asked.push_back(what);
        answer = {};
        return answer;
    }
};

} // namespace vesko
