#pragma once

#include "tests/app/AppModelTest.h"

namespace vesko {

// "hello world" is dictated into the editor, and the user makes "hello wurld" of it.
class LearningTest : public AppModelTest {
protected:
    void dictateAndEdit()
    {
        machine.focusedField.reading.value = "Dear ";
        machine.focusedField.reading.selection = TextRange{ 5, 0 };
        dictate();
        finish();
        ASSERT_EQ(machine.pasteKeystroke.sent, ++m_pastes);
        machine.focusedField.reading.value = "Dear hello world";
        machine.clock.turn(0.1);
        machine.focusedField.reading.value = "Dear hello wurld";
        machine.clock.turn(0.25);
    }
    void send()
    {
        model->review().armSend();
        machine.focusedField.reading.value = "";
        machine.clock.turn(0.25);
    }
    // The user goes on in another program.
    void leave()
    {
        machine.focusedField.reading.frontmost = 99;
        machine.clock.turn(0.25);
        machine.focusedField.reading.frontmost = FakeFocusedField::editor;
    }

    std::size_t terms() const { return model->library().contents().dictionary.size(); }

private:
    int m_pastes = 0;
};

} // namespace vesko
