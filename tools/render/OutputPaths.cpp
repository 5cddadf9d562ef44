#include "tools/render/OutputPaths.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <system_error>

namespace QVM_NAMESPACE {
namespace render {

namespace {

namespace fs = std::filesystem;

// The name of a file in the format that was asked for.
std::string nameFor(const fs::path& input, const RenderOptions& options, const std::string& suffix) {
    std::string ending = input.extension().string();
    if (const Container* container = options.format.container) {
        const bool isOne = !ending.empty() && containerOfEnding(ending.substr(1)) == container;
        if (!isOne) ending = "." + std::string(container->name);
    }
    return input.stem().string() + suffix + ending;
}

std::string outputFor(const std::string& file, const RenderOptions& options, bool isFolder) {
    const fs::path input(file);
    if (options.output.empty()) return input.parent_path() / nameFor(input, options, options.suffix);
    return isFolder ? (fs::path(options.output) / nameFor(input, options, "")).string() : options.output;
}

std::string placeOf(const std::string& path) {
    std::error_code error;
    const fs::path place = fs::weakly_canonical(fs::absolute(path), error);
    return error ? path : place.string();
}

} // namespace

std::variant<std::vector<FilePair>, PathsProblem> outputPaths(const RenderOptions& options) {
    std::error_code error;
    const bool isFolder = fs::is_directory(options.output, error);
    if (!options.output.empty() && !isFolder && options.files.size() > 1) {
        return PathsProblem{"--output \"" + options.output + "\" is one file, or no folder yet, and there are " +
                            std::to_string(options.files.size()) + " to write"};
    }
    std::vector<FilePair> pairs;
    std::map<std::string, std::string> inputs, writers; // by place, as they were named
    for (const std::string& file : options.files)
        inputs.emplace(placeOf(file), file);
    for (const std::string& file : options.files) {
        const FilePair& pair = pairs.emplace_back(FilePair{file, outputFor(file, options, isFolder)});
        const std::string place = placeOf(pair.output);
        const auto [other, isNew] = writers.emplace(place, file);
        if (!isNew) {
            return PathsProblem{"\"" + other->second + "\" and \"" + file + "\" would both be written to \"" +
                                pair.output + "\""};
        }
        const auto read = inputs.find(place);
        if (read != inputs.end() && placeOf(file) != place)
            return PathsProblem{"\"" + file + "\" would be written over \"" + read->second + "\", which is to be read"};
    }
    return pairs;
}

} // namespace render
} // namespace QVM_NAMESPACE
