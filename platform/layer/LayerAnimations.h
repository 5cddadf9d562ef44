// What moves in a layer: its animations, by key, and the glides that a transaction asks for.
#pragma once

#include "platform/layer/Animation.h"
#include "platform/layer/PresentedLayer.h"

#include <optional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

class Layer;

// Belongs to its layer. They change what is presented, never the layer's own values. Times are seconds on the run
// loop's clock. A completion may change the animations, or drop the layer. Main thread only.
class LayerAnimations {
public:
    explicit LayerAnimations(Layer& layer) : layer_(layer) {}
    LayerAnimations(const LayerAnimations&) = delete;
    LayerAnimations& operator=(const LayerAnimations&) = delete;

    // Adding under a key that is in use replaces it (its completion gets false).
    void add(BasicAnimation animation, const std::string& key);
    void remove(const std::string& key);
    void removeAll();
    const BasicAnimation* find(const std::string& key) const; // null when there is none
    bool isEmpty() const { return running_.empty(); }
    // Whether one has still to end (one that stays for its end value has not). Null: on any key path.
    bool isRunning(const char* keyPath = nullptr) const;
    // Whether one of them will end by itself.
    bool hasEnding() const;
    // The layer's own values with what is presented of the animations at `time`.
    PresentedLayer applied(const PresentedLayer& own, double time) const;
    // Ends what is over at `time` and runs completions. The renderer calls it once a frame.
    void finish(double time);

    // For the layer's setters: stores an animatable value, which glides there from what is presented when a transaction
    // asks for it, and ends such a glide when the change is to be immediate. False, with nothing done, when the value
    // is there already and nothing glides elsewhere.
    template <class T>
    bool assign(const char* keyPath, T& member, const T& value) {
        if (member == value && !endsGlide(keyPath)) return false;
        willSet(keyPath, value);
        member = value;
        return true;
    }

private:
    struct Running {
        std::string key;
        BasicAnimation animation;
        double addedAt = 0;
        bool isGlide = false; // of a transaction
        bool isOver = false;  // its completion was called; it stays for its end value
    };
    std::optional<Running> take(const std::string& key);
    void start(BasicAnimation animation, const std::string& key, bool isGlide);
    bool endsGlide(const char* keyPath) const;
    void willSet(const char* keyPath, const AnimatableValue& newValue);

    Layer& layer_;
    std::vector<Running> running_; // in the order in which they were added and are applied
};

} // namespace QVM_NAMESPACE
