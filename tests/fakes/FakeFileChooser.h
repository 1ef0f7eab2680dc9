#pragma once

#include "VeskoApp/platform/FileChooser.h"

#include <vector>

namespace vesko {

// Remembers what it was asked; the test answers the last question.
class FakeFileChooser final : public FileChooser {
public:
    std::vector<Question> asked;
    Eventual<Answer> answer;

    Eventual<Answer> save(const Question& what, QWindow&) override { return ask(what); }
    Eventual<Answer> open(const Question& what, QWindow&) override { return ask(what); }
    Eventual<Answer> folder(const Question& what, QWindow&) override { return ask(what); }

private:
    Eventual<Answer> ask(const Question& what)
    {
        asked.push_back(what);
        answer = {};
        return answer;
    }
};

} // namespace vesko
