// What the toolkit asks the desktop by starting a program and waiting for what it prints. Each such question takes an
// opening some fifteen milliseconds, and the fork a copy of the host's page tables, so one whose answer goes nowhere is
// not asked: the theme's name is never read here, and a scale counts in a program but not in a plug-in, where it is the
// host's.
#pragma once

#include <juce_events/juce_events.h>

namespace juce {

// In the place of the toolkit's own class. Main thread.
class DesktopQuestion : public ChildProcess {
public:
    // True when the program was started.
    bool start(const String& command, int streamsToRead = wantStdOut | wantStdErr) {
        return isAnswerUsed(command) && ChildProcess::start(command, streamsToRead);
    }
    bool start(const StringArray& command, int streamsToRead = wantStdOut | wantStdErr) {
        return ChildProcess::start(command, streamsToRead);
    }

private:
    static bool isAnswerUsed(const String& command) {
        return JUCEApplicationBase::isStandaloneApp() && !command.contains("gtk-theme");
    }
};

} // namespace juce
