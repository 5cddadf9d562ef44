// The library of a VST3 bundle, loaded as hosts do, and what it exports. Unloaded with the object.
#pragma once

#include <juce_core/juce_core.h>

#include <pluginterfaces/base/ipluginbase.h>
#include <pluginterfaces/base/smartpointer.h>

#include <stdexcept>
#include <string>

namespace slantwise_tests {

class Vst3Module {
public:
    // Throws where there is no such library.
    explicit Vst3Module(const std::string& path = SLANTWISE_VST3_LIBRARY) {
        if (!library_.open(path)) throw std::runtime_error("no library " + path);
        call<bool (*)(void*)>("ModuleEntry")(library_.getNativeHandle());
        factory_ = Steinberg::owned(call<Steinberg::IPluginFactory* (*)()>("GetPluginFactory")());
    }
    Vst3Module(const Vst3Module&) = delete;
    Vst3Module& operator=(const Vst3Module&) = delete;
    ~Vst3Module() {
        factory_ = nullptr;
        call<bool (*)()>("ModuleExit")();
    }

    Steinberg::IPluginFactory& factory() const { return *factory_; }

    // The first class of this category; throws where there is none.
    template <class Interface>
    Steinberg::IPtr<Interface> create(const char* category) {
        for (Steinberg::int32 i = 0; i < factory_->countClasses(); ++i) {
            Steinberg::PClassInfo info;
            factory_->getClassInfo(i, &info);
            void* object = nullptr;
            if (std::string(info.category) == category &&
                factory_->createInstance(info.cid, Interface::iid, &object) == Steinberg::kResultOk)
                return Steinberg::owned(static_cast<Interface*>(object));
        }
        throw std::runtime_error(category);
    }

private:
    template <class Function>
    Function call(const char* name) {
        return reinterpret_cast<Function>(library_.getFunction(name));
    }

    juce::DynamicLibrary library_;
    Steinberg::IPtr<Steinberg::IPluginFactory> factory_;
};

} // namespace slantwise_tests
