#include "program/NearestName.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

namespace QVM_NAMESPACE {

namespace {

char small(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// How many letters stand between the two.
std::size_t distance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1); // from what was read of the one to each beginning of the other
    std::iota(row.begin(), row.end(), 0);
    for (const char letter : from) {
        std::size_t shorter = row.front()++;
        for (std::size_t i = 0; i < to.size(); ++i) {
            const std::size_t changed = shorter + (small(letter) == small(to[i]) ? 0 : 1);
            shorter = row[i + 1];
            row[i + 1] = std::min({changed, shorter + 1, row[i] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string nearestName(std::string_view misspelt, std::span<const std::string> names) {
    return *std::ranges::min_element(names, {},
                                     [misspelt](const std::string& name) { return distance(misspelt, name); });
}

std::string unknownName(const std::string& kind, const std::string& misspelt, std::span<const std::string> names) {
    return "there is no " + kind + " named \"" + misspelt + "\"; the nearest is \"" + nearestName(misspelt, names) +
           "\"";
}

} // namespace QVM_NAMESPACE
