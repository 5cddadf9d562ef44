#include "unit/ComparisonText.h"

#include "description/NumberText.h"
#include "description/tables/ParameterTable.h"

#include <algorithm>

namespace QVM_NAMESPACE {

namespace {

constexpr char separator = ';';

// The first so many elements, each with its separator. The text has them.
std::string_view firstElements(std::string_view text, std::size_t number) {
    std::size_t end = 0;
    for (; number > 0; --number)
        end = text.find(separator, end) + 1;
    return text.substr(0, end);
}

} // namespace

std::string comparisonTextOf(std::string_view text, std::size_t savedCount) {
    const auto values = static_cast<std::size_t>(std::count(text.begin(), text.end(), separator));
    if (text.empty() || values != savedCount) return std::string(text);
    std::string side(firstElements(text, std::min<std::size_t>(savedCount, QVMParameterCount)));
    for (std::size_t pid = savedCount; pid < QVMParameterCount; ++pid)
        side += ShortestText(tables::kParameters[pid].initialValue) + separator;
    return side.append(text.substr(firstElements(text, savedCount).size()));
}

} // namespace QVM_NAMESPACE
