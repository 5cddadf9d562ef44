// Feeds a fuzzer with a fixed number of inputs: the files of a folder, then thousands made of them by changes that a
// fixed seed chooses. The same on every machine, so that it can be a test.
#include "Fuzz.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::size_t longestInput = 6000;

using Input = std::string;

std::vector<Input> readSeeds(const char* folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end()); // a folder has no order of its own
    std::vector<Input> seeds;
    for (const auto& file : files) {
        std::ifstream in(file, std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    return seeds;
}

class Mutator {
public:
    explicit Mutator(std::vector<Input> seeds) : seeds_(std::move(seeds)) {}

    Input next() {
        Input input = seeds_[below(seeds_.size())];
        for (std::size_t changes = 1 + below(6); changes > 0; --changes)
            change(input);
        input.resize(std::min(input.size(), longestInput));
        return input;
    }

private:
    std::size_t below(std::size_t bound) { return bound == 0 ? 0 : random_() % bound; }

    void change(Input& input) {
        const std::size_t at = below(input.size() + 1), length = below(input.size() - at + 1);
        switch (below(6)) {
        case 0:
            input.insert(at, 1, static_cast<char>(below(256)));
            break;
        case 1:
            input.erase(at, 1 + below(4));
            break;
        case 2:
            if (at < input.size()) input[at] = static_cast<char>(below(256));
            break;
        case 3:
            input.insert(below(input.size() + 1), input.substr(at, length));
            break;
        case 4:
            input.insert(at, seeds_[below(seeds_.size())]);
            break;
        default:
            input.resize(at);
            break;
        }
    }

    const std::vector<Input> seeds_;
    std::mt19937 random_{1};
};

// For whoever looks for the cause: FixedRun takes a folder with nothing but this file too.
constexpr const char* failedInput = "failed_input";
const Input* present = nullptr;

void keepPresentInput(int) {
    std::ofstream(failedInput, std::ios::binary).write(present->data(), static_cast<std::streamsize>(present->size()));
}

void run(const Input& input) {
    present = &input;
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    const std::vector<Input> seeds = argumentCount == 3 ? readSeeds(arguments[2]) : std::vector<Input>();
    if (seeds.empty()) {
        std::fprintf(stderr, "usage: %s COUNT FOLDER\nCOUNT inputs are made of the seeds in FOLDER\n", arguments[0]);
        return 2;
    }
    const int inputs = std::atoi(arguments[1]);
    std::signal(SIGABRT, keepPresentInput);
    for (const Input& seed : seeds)
        run(seed);
    Mutator mutator(seeds);
    for (int i = 0; i < inputs; ++i)
        run(mutator.next());
    std::printf("%d inputs\n", inputs);
    return 0;
}
