// The part of Layer that moves: its animations and what they present.
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

std::vector<Layer::Running>::iterator Layer::findAnimation(const std::string& key) {
    return std::find_if(animations_.begin(), animations_.end(), [&](const Running& r) { return r.key == key; });
}

void Layer::addAnimation(BasicAnimation animation, const std::string& key) {
    start(std::move(animation), key, false);
}

void Layer::start(BasicAnimation animation, const std::string& key, bool isImplicit) {
    const auto alive = weak_from_this().lock(); // the replaced one's completion may drop this layer
    std::optional<Running> replaced;
    if (const auto found = findAnimation(key); found != animations_.end()) {
        replaced = std::move(*found);
        animations_.erase(found);
    }
    animations_.push_back({key, std::move(animation), RunLoop::main().now(), isImplicit, false});
    treeChanged();
    if (replaced && !replaced->isOver) callCompletion(replaced->animation, false);
}

void Layer::removeAnimation(const std::string& key) {
    const auto found = findAnimation(key);
    if (found == animations_.end()) return;
    const auto alive = weak_from_this().lock();
    const Running removed = std::move(*found);
    animations_.erase(found);
    treeChanged();
    if (!removed.isOver) callCompletion(removed.animation, false);
}

void Layer::removeAllAnimations() {
    if (animations_.empty()) return;
    const auto alive = weak_from_this().lock();
    const std::vector<Running> removed = std::exchange(animations_, {});
    treeChanged();
    for (const Running& r : removed) {
        if (!r.isOver) callCompletion(r.animation, false);
    }
}

const BasicAnimation* Layer::animationForKey(const std::string& key) const {
    const auto found =
        std::find_if(animations_.begin(), animations_.end(), [&](const Running& r) { return r.key == key; });
    return found == animations_.end() ? nullptr : &found->animation;
}

bool Layer::isAnimating(const char* keyPath) const {
    return std::any_of(animations_.begin(), animations_.end(),
                       [&](const Running& r) { return !r.isOver && (!keyPath || r.animation.keyPath == keyPath); });
}

bool Layer::hasEndingAnimation() const {
    return std::any_of(animations_.begin(), animations_.end(), [](const Running& r) {
        return !r.isOver && r.animation.totalDuration() < BasicAnimation::forever;
    });
}

PresentedLayer Layer::model() const {
    return {position_, bounds_, opacity_, transform_, backgroundColor_, cornerRadius_, lineDashPhase_};
}

PresentedLayer Layer::presentation(double time) const {
    PresentedLayer presented = model();
    if (animations_.empty()) return presented;
    const PresentedLayer own = presented;
    for (const Running& r : animations_) {
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

PresentedLayer Layer::presentation() const {
    return animations_.empty() ? model() : presentation(RunLoop::main().now());
}

void Layer::finishAnimations(double time) {
    const auto isDue = [time](const Running& r) { return !r.isOver && r.animation.isFinishedAt(time - r.addedAt); };
    if (std::none_of(animations_.begin(), animations_.end(), isDue)) return;
    const auto alive = weak_from_this().lock();
    std::vector<BasicAnimation> finished; // completions run last: they may change this list or drop the layer
    for (Running& r : animations_) {
        if (!isDue(r)) continue;
        finished.push_back(r.animation);
        r.isOver = true;
    }
    std::erase_if(animations_, [](const Running& r) { return r.isOver && r.animation.removedOnCompletion; });
    treeChanged();
    for (const BasicAnimation& animation : finished)
        callCompletion(animation, true);
}

bool Layer::endsImplicitAnimation(const char* keyPath) const {
    return Transaction::currentDuration() <= 0 &&
           std::any_of(animations_.begin(), animations_.end(),
                       [keyPath](const Running& r) { return r.isImplicit && r.key == keyPath; });
}

void Layer::willSet(const char* keyPath, const AnimatableValue& newValue) {
    if (endsImplicitAnimation(keyPath)) removeAnimation(keyPath);
    const LayerKeyPath* known = layerKeyPath(keyPath);
    if (Transaction::currentDuration() <= 0 || !known) return;
    BasicAnimation glide;
    glide.keyPath = keyPath;
    glide.fromValue = known->read(presentation());
    glide.toValue = newValue;
    glide.duration = Transaction::currentDuration();
    glide.timing = Transaction::currentTiming();
    if (glide.fromValue != glide.toValue) start(std::move(glide), keyPath, true);
}

} // namespace QVM_NAMESPACE
