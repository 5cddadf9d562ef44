#include "support/CallStack.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cxxabi.h>
#include <elf.h>
#include <execinfo.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <link.h>
#include <map>
#include <memory>
#include <string_view>

namespace call_stack {

namespace {

struct Function {
    std::uint64_t end = 0; // of its code
    std::string name;      // as the linker knows it
};

template <class T>
const T* at(const std::vector<char>& image, std::uint64_t offset) {
    return reinterpret_cast<const T*>(image.data() + offset);
}

// By the address in the file.
std::map<std::uint64_t, Function> functionsOfThisProgram() {
    std::ifstream file("/proc/self/exe", std::ios::binary);
    const std::vector<char> image{std::istreambuf_iterator<char>(file), {}};
    const auto* header = at<Elf64_Ehdr>(image, 0);
    const auto* sections = at<Elf64_Shdr>(image, header->e_shoff);
    std::map<std::uint64_t, Function> found;
    for (int i = 0; i < header->e_shnum; ++i) {
        if (sections[i].sh_type != SHT_SYMTAB) continue;
        const auto* symbols = at<Elf64_Sym>(image, sections[i].sh_offset);
        const std::uint64_t names = sections[sections[i].sh_link].sh_offset;
        for (std::uint64_t s = 0; s < sections[i].sh_size / sizeof(Elf64_Sym); ++s)
            if (ELF64_ST_TYPE(symbols[s].st_info) == STT_FUNC && symbols[s].st_size > 0)
                found[symbols[s].st_value] = {symbols[s].st_value + symbols[s].st_size,
                                              at<char>(image, names + symbols[s].st_name)};
    }
    return found;
}

// Where the program was loaded.
std::uint64_t loadAddress() {
    std::uint64_t address = 0;
    dl_iterate_phdr(
        [](dl_phdr_info* info, std::size_t, void* out) {
            *static_cast<std::uint64_t*>(out) = info->dlpi_addr;
            return 1; // the program comes first
        },
        &address);
    return address;
}

std::string readable(const std::string& name) {
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> text(abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status),
                                                           &std::free);
    return text ? text.get() : name;
}

// The class of a function, or of the one that a stored lambda stands in: the name behind the product's two namespaces.
std::string classOf(const std::string& function) {
    constexpr std::string_view product = "slantwise::", wrapped = ", slantwise::";
    constexpr std::string_view adjusted = "non-virtual thunk to ";
    std::size_t from = function.starts_with(adjusted) ? adjusted.size() : 0;
    if (const std::size_t inner = function.find(wrapped); function.starts_with("std::_Function_handler<"))
        from = inner == std::string::npos ? function.size() : inner + 2;
    if (function.compare(from, product.size(), product) != 0) return {};
    from = function.find("::", from + product.size());
    if (from == std::string::npos) return {};
    from += 2;
    const std::size_t to = function.find_first_of(":(<", from);
    return to != std::string::npos && function.compare(to, 2, "::") == 0 ? function.substr(from, to - from) : "";
}

// By the name of the class.
std::map<std::string, std::string> headersIn(const std::string& folder) {
    namespace fs = std::filesystem;
    std::map<std::string, std::string> found;
    for (auto entry = fs::recursive_directory_iterator(folder); entry != fs::recursive_directory_iterator(); ++entry) {
        const fs::path path = entry->path().lexically_relative(folder);
        if (path == "build" || path == "tests" || path.string().starts_with(".")) entry.disable_recursion_pending();
        if (path.extension() == ".h") found[path.stem()] = path.parent_path() / path.stem();
    }
    return found;
}

} // namespace

std::vector<std::string> classes(const std::string& sourceFolder) {
    static const auto functions = functionsOfThisProgram();
    static const auto headers = headersIn(sourceFolder);
    static const std::uint64_t base = loadAddress();
    std::array<void*, 256> calls{};
    const int depth = backtrace(calls.data(), static_cast<int>(calls.size()));
    std::vector<std::string> result;
    for (int i = depth - 1; i >= 0; --i) {
        const std::uint64_t address = reinterpret_cast<std::uint64_t>(calls[static_cast<std::size_t>(i)]) - base - 1;
        auto function = functions.upper_bound(address);
        if (function == functions.begin() || address >= (--function)->second.end) continue;
        const auto header = headers.find(classOf(readable(function->second.name)));
        if (header != headers.end() && (result.empty() || result.back() != header->second))
            result.push_back(header->second);
    }
    return result;
}

} // namespace call_stack
