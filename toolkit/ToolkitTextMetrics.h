// Measures text with the outlines that it is drawn with.
#pragma once

#include "platform/layer/TextMetrics.h"
#include "toolkit/FaceLibrary.h"

namespace QVM_NAMESPACE {

class ToolkitTextMetrics final : public TextMetrics {
public:
    // The library is borrowed.
    explicit ToolkitTextMetrics(FaceLibrary& faces) : faces_(faces) {}

    double width(const AttributedString& text) const override;
    double ascent(const Font& font) const override;
    double descent(const Font& font) const override;
    bool hasFace(const std::string& face) const override;

private:
    FaceLibrary& faces_;
};

} // namespace QVM_NAMESPACE
