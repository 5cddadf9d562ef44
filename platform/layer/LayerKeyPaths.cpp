#include "platform/layer/LayerKeyPaths.h"

namespace QVM_NAMESPACE {

namespace {

template <auto member>
AnimatableValue readMember(const PresentedLayer& layer) {
    return layer.*member;
}

template <auto member>
void writeMember(PresentedLayer& layer, const AnimatableValue& value) {
    using Value = std::decay_t<decltype(layer.*member)>;
    if (const auto* typed = std::get_if<Value>(&value)) layer.*member = *typed;
}

// One number inside a point or a transform.
template <auto member, auto part>
AnimatableValue readPart(const PresentedLayer& layer) {
    return layer.*member.*part;
}

template <auto member, auto part>
void writePart(PresentedLayer& layer, const AnimatableValue& value) {
    if (const auto* typed = std::get_if<double>(&value)) layer.*member.*part = *typed;
}

// The scale comes on top of the layer's own transform, so by itself it is 1.
AnimatableValue readScale(const PresentedLayer&) {
    return 1.0;
}

void writeScale(PresentedLayer& layer, const AnimatableValue& value) {
    if (const auto* k = std::get_if<double>(&value))
        layer.transform = AffineTransform::scale(*k, *k).then(layer.transform);
}

using P = PresentedLayer;
using T = AffineTransform;

constexpr LayerKeyPath keyPaths[] = {
    {"opacity", readMember<&P::opacity>, writeMember<&P::opacity>},
    {"position", readMember<&P::position>, writeMember<&P::position>},
    {"position.x", readPart<&P::position, &Point::x>, writePart<&P::position, &Point::x>},
    {"position.y", readPart<&P::position, &Point::y>, writePart<&P::position, &Point::y>},
    {"bounds", readMember<&P::bounds>, writeMember<&P::bounds>},
    {"transform", readMember<&P::transform>, writeMember<&P::transform>},
    {"transform.scale", readScale, writeScale},
    {"transform.translation.x", readPart<&P::transform, &T::tx>, writePart<&P::transform, &T::tx>},
    {"transform.translation.y", readPart<&P::transform, &T::ty>, writePart<&P::transform, &T::ty>},
    {"backgroundColor", readMember<&P::backgroundColor>, writeMember<&P::backgroundColor>},
    {"cornerRadius", readMember<&P::cornerRadius>, writeMember<&P::cornerRadius>},
    {"lineDashPhase", readMember<&P::lineDashPhase>, writeMember<&P::lineDashPhase>},
};

} // namespace

const LayerKeyPath* layerKeyPath(std::string_view name) {
    for (const LayerKeyPath& keyPath : keyPaths) {
        if (keyPath.name == name) return &keyPath;
    }
    return nullptr;
}

} // namespace QVM_NAMESPACE
