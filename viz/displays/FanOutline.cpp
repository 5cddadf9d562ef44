#include "viz/displays/FanOutline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

constexpr float kLeastSine = 1e-4f; // of a triangle's angle at the hub: what is thinner has no area worth drawing
constexpr float kRaysPerRadian = FanOutline::kRays / (2 * std::numbers::pi_v<float>);

float cross(Vertex a, Vertex b) {
    return a.x * b.y - a.y * b.x;
}
Vertex minus(Vertex a, Vertex b) {
    return {a.x - b.x, a.y - b.y};
}
std::size_t slotOf(int ray) {
    return static_cast<std::size_t>((ray % FanOutline::kRays + FanOutline::kRays) % FanOutline::kRays);
}

const std::array<Vertex, FanOutline::kRays>& rays() {
    static const std::array<Vertex, FanOutline::kRays> table = [] {
        std::array<Vertex, FanOutline::kRays> result;
        for (std::size_t i = 0; i < result.size(); ++i) {
            const float angle = static_cast<float>(i) / kRaysPerRadian;
            result[i] = {std::cos(angle), std::sin(angle)};
        }
        return result;
    }();
    return table;
}

} // namespace

void FanOutline::begin(Vertex hub) {
    hub_ = hub;
    directions_.fill({});
}

void FanOutline::add(Vertex a, Vertex b) {
    const Vertex fromHubA = minus(a, hub_), fromHubB = minus(b, hub_);
    const float turn = cross(fromHubA, fromHubB);
    if (!(std::abs(turn) > kLeastSine * std::hypot(fromHubA.x, fromHubA.y) * std::hypot(fromHubB.x, fromHubB.y)))
        return;
    const float angleA = std::atan2(fromHubA.y, fromHubA.x), angleB = std::atan2(fromHubB.y, fromHubB.x);
    addTip(fromHubA, angleA);
    addTip(fromHubB, angleB);
    if (turn > 0) {
        addEdge(fromHubA, angleA, fromHubB, angleB);
    } else {
        addEdge(fromHubB, angleB, fromHubA, angleA);
    }
}

void FanOutline::addTip(Vertex point, float angle) {
    Direction& direction = directions_[slotOf(static_cast<int>(std::floor(angle * kRaysPerRadian)))];
    const float reach = point.x * point.x + point.y * point.y;
    if (!(reach > direction.tipReach)) return;
    direction.tip = point;
    direction.tipReach = reach;
}

// `b` is to the left of `a` as seen from the hub.
void FanOutline::addEdge(Vertex a, float angleA, Vertex b, float angleB) {
    if (angleB < angleA) angleB += 2 * std::numbers::pi_v<float>;
    const Vertex edge = minus(b, a);
    const float area = cross(a, edge);
    const float farthest = std::sqrt(std::max(a.x * a.x + a.y * a.y, b.x * b.x + b.y * b.y));
    const int first = static_cast<int>(std::ceil(angleA * kRaysPerRadian));
    const int last = static_cast<int>(std::floor(angleB * kRaysPerRadian));
    for (int ray = first; ray <= last; ++ray) {
        const std::size_t slot = slotOf(ray);
        const float reach = area / cross(rays()[slot], edge);
        // Along an edge that points to the hub, the quotient says nothing.
        if (reach > directions_[slot].reach) directions_[slot].reach = std::min(reach, farthest);
    }
}

const std::vector<Vertex>& FanOutline::triangles() {
    outline_.clear();
    for (int i = 0; i < kRays; ++i) {
        const Direction& here = directions_[slotOf(i)];
        const Direction& next = directions_[slotOf(i + 1)];
        const Vertex ray = rays()[slotOf(i)], nextRay = rays()[slotOf(i + 1)];
        const Vertex from = {ray.x * here.reach, ray.y * here.reach};
        const Vertex to = {nextRay.x * next.reach, nextRay.y * next.reach};
        outline_.push_back(from);
        if (cross(minus(to, from), minus(here.tip, from)) < 0) outline_.push_back(here.tip);
    }
    triangles_.clear();
    for (std::size_t i = 0; i < outline_.size(); ++i) {
        const Vertex a = outline_[i], b = outline_[(i + 1) % outline_.size()];
        if (!(cross(a, b) > 0)) continue;
        for (const Vertex v : {Vertex{}, a, b})
            triangles_.push_back({hub_.x + v.x, hub_.y + v.y});
    }
    return triangles_;
}

} // namespace QVM_NAMESPACE
