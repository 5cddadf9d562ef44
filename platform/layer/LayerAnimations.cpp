#include "platform/layer/LayerAnimations.h"

#include "platform/layer/Layer.h"
#include "platform/layer/LayerKeyPaths.h"
#include "platform/layer/Transaction.h"
#include "platform/runloop/RunLoop.h"

#include <algorithm>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

void callCompletion(const BasicAnimation& animation, bool finished) {
    if (animation.completion) animation.completion(finished);
}

} // namespace

std::optional<LayerAnimations::Running> LayerAnimations::take(const std::string& key) {
    const auto found = std::find_if(running_.begin(), running_.end(), [&](const Running& r) { return r.key == key; });
    if (found == running_.end()) return std::nullopt;
    Running taken = std::move(*found);
    running_.erase(found);
    return taken;
}

void LayerAnimations::add(BasicAnimation animation, const std::string& key) {
    start(std::move(animation), key, false);
}

void LayerAnimations::start(BasicAnimation animation, const std::string& key, bool isGlide) {
    const auto alive = layer_.weak_from_this().lock(); // the replaced one's completion may drop this layer
    const std::optional<Running> replaced = take(key);
    running_.push_back({key, std::move(animation), RunLoop::main().now(), isGlide, false});
    layer_.tree().didChange();
    if (replaced && !replaced->isOver) callCompletion(replaced->animation, false);
}

void LayerAnimations::remove(const std::string& key) {
    const auto alive = layer_.weak_from_this().lock();
    const std::optional<Running> removed = take(key);
    if (!removed) return;
    layer_.tree().didChange();
    if (!removed->isOver) callCompletion(removed->animation, false);
}

void LayerAnimations::removeAll() {
    if (running_.empty()) return;
    const auto alive = layer_.weak_from_this().lock();
    const std::vector<Running> removed = std::exchange(running_, {});
    layer_.tree().didChange();
    for (const Running& r : removed) {
        if (!r.isOver) callCompletion(r.animation, false);
    }
}

const BasicAnimation* LayerAnimations::find(const std::string& key) const {
    const auto found = std::find_if(running_.begin(), running_.end(), [&](const Running& r) { return r.key == key; });
    return found == running_.end() ? nullptr : &found->animation;
}

bool LayerAnimations::isRunning(const char* keyPath) const {
    return std::any_of(running_.begin(), running_.end(),
                       [&](const Running& r) { return !r.isOver && (!keyPath || r.animation.keyPath == keyPath); });
}

bool LayerAnimations::hasEnding() const {
    return std::any_of(running_.begin(), running_.end(), [](const Running& r) {
        return !r.isOver && r.animation.totalDuration() < BasicAnimation::forever;
    });
}

PresentedLayer LayerAnimations::applied(const PresentedLayer& own, double time) const {
    PresentedLayer presented = own;
    for (const Running& r : running_) {
        const BasicAnimation& animation = r.animation;
        const LayerKeyPath* keyPath = layerKeyPath(animation.keyPath);
        const double elapsed = time - r.addedAt;
        if (!keyPath || (animation.removedOnCompletion && animation.isFinishedAt(elapsed))) continue;
        const AnimatableValue from = animation.fromValue ? *animation.fromValue : keyPath->read(own);
        const AnimatableValue to = animation.toValue ? *animation.toValue : keyPath->read(own);
        keyPath->write(presented, interpolate(from, to, animation.progressAt(elapsed)));
    }
    return presented;
}

void LayerAnimations::finish(double time) {
    const auto isDue = [time](const Running& r) { return !r.isOver && r.animation.isFinishedAt(time - r.addedAt); };
    if (std::none_of(running_.begin(), running_.end(), isDue)) return;
    const auto alive = layer_.weak_from_this().lock();
    std::vector<BasicAnimation> finished; // completions run last: they may change this list or drop the layer
    for (Running& r : running_) {
        if (!isDue(r)) continue;
        finished.push_back(r.animation);
        r.isOver = true;
    }
    std::erase_if(running_, [](const Running& r) { return r.isOver && r.animation.removedOnCompletion; });
    layer_.tree().didChange();
    for (const BasicAnimation& animation : finished)
        callCompletion(animation, true);
}

bool LayerAnimations::endsGlide(const char* keyPath) const {
    return Transaction::currentDuration() <= 0 &&
           std::any_of(running_.begin(), running_.end(),
                       [keyPath](const Running& r) { return r.isGlide && r.key == keyPath; });
}

void LayerAnimations::willSet(const char* keyPath, const AnimatableValue& newValue) {
    if (endsGlide(keyPath)) remove(keyPath);
    const LayerKeyPath* known = layerKeyPath(keyPath);
    if (Transaction::currentDuration() <= 0 || !known) return;
    BasicAnimation glide;
    glide.keyPath = keyPath;
    glide.fromValue = known->read(layer_.presentation());
    glide.toValue = newValue;
    glide.duration = Transaction::currentDuration();
    glide.timing = Transaction::currentTiming();
    if (glide.fromValue != glide.toValue) start(std::move(glide), keyPath, true);
}

} // namespace QVM_NAMESPACE
