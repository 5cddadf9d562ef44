// A host and a user who do anything in any order to one unit and its editor: each step is decoded from a few bytes.
//
// Main thread.
#pragma once

#include "ByteSource.h"
#include "HostedUnit.h"

#include <array>
#include <cstdint>
#include <vector>

namespace slantwise_fuzz {

class HostStorm {
public:
    // The host is borrowed and outlives the storm.
    explicit HostStorm(HostedUnit& host) : host_(host) {}

    // One thing that happens, and what must hold after it.
    void step(ByteSource& in);

private:
    // What the host does.
    void automate(ByteSource& in);
    void setAnyNumber(ByteSource& in);
    void playBlock(ByteSource& in);
    void playAnySample(ByteSource& in);
    void prepare(ByteSource& in);
    void chooseProgram(ByteSource& in);
    void saveState(ByteSource& in);
    void restoreState(ByteSource& in);
    void restoreSpoilt(ByteSource& in);
    void openEditor(ByteSource& in);
    void closeEditor(ByteSource& in);
    void nameParameters(ByteSource& in);
    // What the window does.
    void showFrames(ByteSource& in);
    void wait(ByteSource& in);
    void loseThings(ByteSource& in);
    void changeScale(ByteSource& in);
    // What the user does.
    void press(ByteSource& in);
    void drag(ByteSource& in);
    void release(ByteSource& in);
    void openMenu(ByteSource& in);
    void chooseFromMenu(ByteSource& in);
    void scroll(ByteSource& in);
    void typeCharacter(ByteSource& in);
    void pressNamedKey(ByteSource& in);
    void focus(ByteSource& in);
    void useCommand(ByteSource& in);
    void choosePreset(ByteSource& in);
    void paste(ByteSource& in);
    void undoAndRedo(ByteSource& in);

    using Step = void (HostStorm::*)(ByteSource&);
    static const std::array<Step, 29> steps;

    slantwise::Event pointerEvent(slantwise::EventType type, ByteSource& in) const;

    HostedUnit& host_;
    std::array<std::vector<std::uint8_t>, 4> saved_; // states
};

} // namespace slantwise_fuzz
