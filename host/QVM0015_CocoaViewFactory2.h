// What a host asks for the editor of an audio unit. Stateless.
#pragma once

#include "geometry/Geometry.h"
#include "platform/audiounit/AudioUnit.h"

#include <cstdint>
#include <memory>

namespace QVM_NAMESPACE {

class QVM0015_CocoaView2;

class QVM0015_CocoaViewFactory2 {
public:
    std::uint32_t interfaceVersion() const;
    // Names the factory to a host that shows a choice; the text lives as long as the process.
    const char* description() const;

    // A view that is bound to the unit and owned by the caller. Its size is the editor's own; the requested one, in
    // points, is ignored. The unit is borrowed and must outlive the view; null gives a view that shows initial values.
    // Main thread.
    std::unique_ptr<QVM0015_CocoaView2> uiViewForAudioUnitWithSize(AudioUnit unit, Size requested) const;
};

} // namespace QVM_NAMESPACE
