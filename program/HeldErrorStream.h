// Keeps back what is written to the error stream: libraries that decode sound files speak to the user's terminal, of
// their own sources and in words of their own.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE {

// As long as it lives, and of the whole process: for where no other thread has anything to say. Where the system has no
// room to keep the text, it goes to the error stream as ever.
class HeldErrorStream {
public:
    HeldErrorStream();
    ~HeldErrorStream();
    HeldErrorStream(const HeldErrorStream&) = delete;
    HeldErrorStream& operator=(const HeldErrorStream&) = delete;

    // The stream that everybody else is kept from, for who holds it: a descriptor, which lives as long as this object.
    int realStream() const;
    // Whether anything was kept back so far.
    bool heldAnything() const;

private:
    // Descriptors, -1 for none.
    int kept_ = -1;
    int real_ = -1;
};

} // namespace QVM_NAMESPACE
