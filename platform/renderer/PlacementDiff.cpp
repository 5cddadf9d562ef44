#include "platform/renderer/PlacementDiff.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <span>
#include <unordered_map>

namespace QVM_NAMESPACE {

namespace {

using Steps = std::span<const Placement>;
constexpr std::size_t none = static_cast<std::size_t>(-1);

struct StepKey {
    const Layer* layer;
    Placement::Step step;
    bool operator==(const StepKey&) const = default;
};

struct StepHash {
    std::size_t operator()(const StepKey& key) const {
        return std::hash<const void*>{}(key.layer) * 31 + static_cast<std::size_t>(key.step);
    }
};

// For each step after, the index of the same step before, or none.
std::vector<std::size_t> match(Steps before, Steps after) {
    std::unordered_map<StepKey, std::size_t, StepHash> indexOf;
    for (std::size_t i = 0; i < before.size(); ++i)
        indexOf[{before[i].layer, before[i].step}] = i;
    std::vector<std::size_t> matches(after.size(), none);
    for (std::size_t i = 0; i < after.size(); ++i) {
        const auto found = indexOf.find({after[i].layer, after[i].step});
        if (found != indexOf.end()) matches[i] = found->second;
    }
    return matches;
}

// Marks a longest run of matches that kept their order. Of two steps that changed sides at least one is not in it.
std::vector<bool> keptOrder(const std::vector<std::size_t>& matches) {
    std::vector<std::size_t> tails; // for each length, the index of the match that ends the best run of that length
    std::vector<std::size_t> previous(matches.size(), none);
    for (std::size_t i = 0; i < matches.size(); ++i) {
        if (matches[i] == none) continue;
        const auto at = std::lower_bound(tails.begin(), tails.end(), matches[i],
                                         [&](std::size_t tail, std::size_t match) { return matches[tail] < match; });
        if (at != tails.begin()) previous[i] = *std::prev(at);
        at == tails.end() ? tails.push_back(i) : void(*at = i);
    }
    std::vector<bool> kept(matches.size(), false);
    for (std::size_t i = tails.empty() ? none : tails.back(); i != none; i = previous[i])
        kept[i] = true;
    return kept;
}

void addChange(const Placement& before, const Placement& after, DamageRegion& damage) {
    damage.add(before.bounds);
    damage.add(after.bounds);
}

void addReordered(Steps before, Steps after, DamageRegion& damage) {
    const std::vector<std::size_t> matches = match(before, after);
    const std::vector<bool> kept = keptOrder(matches);
    std::vector<bool> stayed(before.size(), false);
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (matches[i] == none) {
            damage.add(after[i].bounds);
            continue;
        }
        const Placement& old = before[matches[i]];
        stayed[matches[i]] = true;
        if (!kept[i] || !old.looksLike(after[i])) addChange(old, after[i], damage);
    }
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (!stayed[i]) damage.add(before[i].bounds);
    }
}

} // namespace

bool Placement::looksLike(const Placement& o) const {
    switch (step) {
    case Step::draw:
        return raster == o.raster && transform == o.transform && opacity == o.opacity && bounds == o.bounds;
    case Step::fill:
        return rect == o.rect && color == o.color && bounds == o.bounds;
    case Step::pushClip:
        return rect == o.rect && cornerRadius == o.cornerRadius && transform == o.transform;
    case Step::pushGroup:
        return opacity == o.opacity;
    case Step::popClip:
    case Step::popGroup:
        break;
    }
    return true;
}

void addDifferences(const std::vector<Placement>& before, const std::vector<Placement>& after, DamageRegion& damage) {
    // Mostly the steps are the same ones and a few look different, so both ends are compared in place first.
    Steps old = before, now = after;
    while (!old.empty() && !now.empty() && old.front().isSameStep(now.front())) {
        if (!old.front().looksLike(now.front())) addChange(old.front(), now.front(), damage);
        old = old.subspan(1), now = now.subspan(1);
    }
    while (!old.empty() && !now.empty() && old.back().isSameStep(now.back())) {
        if (!old.back().looksLike(now.back())) addChange(old.back(), now.back(), damage);
        old = old.first(old.size() - 1), now = now.first(now.size() - 1);
    }
    if (!old.empty() || !now.empty()) addReordered(old, now, damage);
}

} // namespace QVM_NAMESPACE
