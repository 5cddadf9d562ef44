#include "editor/surface/OutlineWalk.h"

#include "platform/system/Utf8.h"

#include <algorithm>
#include <string_view>

namespace QVM_NAMESPACE {

namespace {

char32_t smallLetter(char32_t letter) {
    return letter >= U'A' && letter <= U'Z' ? letter - U'A' + U'a' : letter;
}

} // namespace

OutlineWalk::Goal OutlineWalk::by(int places) const {
    if (leaves.empty()) return std::nullopt;
    const auto present = std::ranges::find(leaves, selected, &Leaf::id);
    if (present == leaves.end()) return places > 0 ? toFirst() : toLast();
    const auto index = std::clamp<std::ptrdiff_t>(present - leaves.begin() + places, 0, std::ssize(leaves) - 1);
    return leaves[static_cast<std::size_t>(index)].id;
}

OutlineWalk::Goal OutlineWalk::toFirst() const {
    return leaves.empty() ? std::nullopt : Goal(leaves.front().id);
}

OutlineWalk::Goal OutlineWalk::toLast() const {
    return leaves.empty() ? std::nullopt : Goal(leaves.back().id);
}

OutlineWalk::Goal OutlineWalk::toLetter(char32_t letter) const {
    const auto present = std::ranges::find(leaves, selected, &Leaf::id);
    const auto from = present == leaves.end() ? leaves.begin() : present + 1;
    const auto starts = [wanted = smallLetter(letter)](const Leaf& leaf) {
        std::string_view name = leaf.name;
        const std::optional<char32_t> first = name.empty() ? std::nullopt : takeUtf8Character(name);
        return first && smallLetter(*first) == wanted;
    };
    if (const auto behind = std::find_if(from, leaves.end(), starts); behind != leaves.end()) return behind->id;
    const auto before = std::find_if(leaves.begin(), from, starts);
    return before == from ? std::nullopt : Goal(before->id);
}

} // namespace QVM_NAMESPACE
