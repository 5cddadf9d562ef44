// Layer trees as text: what a test compares and a developer reads.
#pragma once

#include "platform/layer/Layer.h"

#include <string>

namespace QVM_NAMESPACE {

// The tree as indented text, a line a layer: kind, name, frame, opacity and what else is not at its default. Main
// thread.
std::string dumpLayerTree(const Layer& root);

} // namespace QVM_NAMESPACE
