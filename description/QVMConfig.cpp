#include "description/QVMConfig.h"

#include "description/Description.h"

#include <algorithm>

namespace QVM_NAMESPACE {

std::unique_ptr<QVMConfig> QVMConfig::inlinedConfig() {
    auto config = std::make_unique<QVMConfig>();
    config->numParameters = QVMParameterCount;
    config->metadata = GetMetadata();
    for (std::uint32_t cid = 0; cid < QVMClumpCount; ++cid)
        config->clumps.push_back(GetClump(cid));
    config->presets = GetPresets();
    return config;
}

QVMSize QVMConfig::preferredSize() const {
    return {metadata->width, metadata->height};
}

bool QVMConfig::hasAdvancedControls() const {
    return std::ranges::any_of(clumps, [](const QVMClump* clump) { return clump->clumpType == QVMClumpTypeAdvanced; });
}

void QVMConfig::enumerateClumpsWithBlock(const ClumpBlock& block) const {
    for (QVMClump* clump : clumps)
        block(*clump);
}

void QVMConfig::enumerateClumpsOfType(std::int32_t type, const ClumpBlock& block) const {
    for (QVMClump* clump : clumps) {
        if (clump->clumpType == type) block(*clump);
    }
}

void QVMConfig::enumerateClumpsOfTypes(std::int32_t types, const ClumpBlock& block) const {
    for (QVMClump* clump : clumps) {
        if ((clump->clumpType & types) != 0) block(*clump);
    }
}

std::vector<QVMClump*> QVMConfig::clumpsOfType(std::int32_t type) const {
    std::vector<QVMClump*> found;
    enumerateClumpsOfType(type, [&found](QVMClump& clump) { found.push_back(&clump); });
    return found;
}

void QVMConfig::enumerateParametersWithBlock(const ParameterBlock& block) const {
    for (QVMClump* clump : clumps) {
        for (QVMParameter* parameter : clump->parameters)
            block(*parameter, *clump);
    }
}

void QVMConfig::executeBlockWithPid(std::uint32_t pid, const ParameterBlock& block) const {
    enumerateParametersWithBlock([&block, pid](QVMParameter& parameter, QVMClump& clump) {
        if (parameter.pid == pid) block(parameter, clump);
    });
}

template <typename Predicate>
QVMParameter* QVMConfig::firstParameter(Predicate matches) const {
    for (const QVMClump* clump : clumps) {
        for (QVMParameter* parameter : clump->parameters) {
            if (matches(*parameter)) return parameter;
        }
    }
    return nullptr;
}

QVMParameter* QVMConfig::parameterForPid(std::uint32_t pid) const {
    return firstParameter([pid](const QVMParameter& parameter) { return parameter.pid == pid; });
}

QVMParameter* QVMConfig::parameterForName(std::string_view name) const {
    return firstParameter([name](const QVMParameter& parameter) { return parameter.name == name; });
}

QVMParameter* QVMConfig::parameterForCodename(std::string_view key) const {
    return firstParameter(
        [key](const QVMParameter& parameter) { return parameter.codesafeName == key || parameter.minimalName == key; });
}

} // namespace QVM_NAMESPACE
