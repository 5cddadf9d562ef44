// A preset's name as it is set on screen: what is typed as "->" in it is an arrow there.
#pragma once

#include "platform/layer/AttributedString.h"

namespace QVM_NAMESPACE {

// The name in a font and a colour. The faces for text have no arrow, the icon font has one. Main thread.
AttributedString presetNameText(const std::string& name, const Font& font, Color color);

} // namespace QVM_NAMESPACE
