// An editor whose history is looked at.
#pragma once

#include "editor/EditorFixture.h"

namespace QVM_NAMESPACE {

class QVMGenericUIHistory : public EditorFixture {
protected:
    void change(std::uint32_t pid, float value) {
        userSets(pid, value);
        frame();
        time_.advance(1);
    }
};

} // namespace QVM_NAMESPACE
