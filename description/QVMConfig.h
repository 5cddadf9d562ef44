// The whole description of the plug-in that an editor is built from.
//
// Each editor gets a configuration of its own; all of them refer to the same process-wide records. Main thread only.
#pragma once

#include "description/QVMClump.h"
#include "description/QVMMetadata.h"
#include "description/QVMParameter.h"

#include <functional>
#include <memory>
#include <string_view>

namespace QVM_NAMESPACE {

class QVMConfig {
public:
    using ClumpBlock = std::function<void(QVMClump& clump)>;
    using ParameterBlock = std::function<void(QVMParameter& parameter, QVMClump& clump)>;

    // A new configuration of this product, with the channel counts still 0.
    static std::unique_ptr<QVMConfig> inlinedConfig();

    // Whether any clump stands in the advanced drawer.
    bool hasAdvancedControls() const;

    // Walks in order: those of exactly one type.
    void enumerateClumpsOfType(std::int32_t type, const ClumpBlock& block) const;
    std::vector<QVMClump*> clumpsOfType(std::int32_t type) const;

    // Walks every parameter, clump by clump.
    void enumerateParametersWithBlock(const ParameterBlock& block) const;

    // The first parameter in walk order that matches, or null. The codename may be the full or the minimal one.
    QVMParameter* parameterForPid(std::uint32_t pid) const;
    QVMParameter* parameterForCodename(std::string_view key) const;

    // Named by the contract and not used in this product: the editor's size in points at scale 1; further walks, over
    // all clumps, over those whose type shares a bit with a mask, and over the parameters with one identifier; and the
    // first parameter of a name, or null.
    QVMSize preferredSize() const;
    void enumerateClumpsWithBlock(const ClumpBlock& block) const;
    void enumerateClumpsOfTypes(std::int32_t types, const ClumpBlock& block) const;
    void executeBlockWithPid(std::uint32_t pid, const ParameterBlock& block) const;
    QVMParameter* parameterForName(std::string_view name) const;

    std::int32_t identifier = 0;
    std::int64_t numParameters = 0;
    std::uint32_t chanIn = 0;
    std::uint32_t chanOut = 0;
    const QVMMetadata* metadata = nullptr; // these records are shared and never released
    std::vector<QVMClump*> clumps;
    QVMParameter* presets = nullptr;
    std::map<std::string, std::vector<std::string>> categorizedPresets;

private:
    template <typename Predicate>
    QVMParameter* firstParameter(Predicate matches) const;
};

} // namespace QVM_NAMESPACE
