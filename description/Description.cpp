#include "description/Description.h"

#include "description/tables/ClumpTable.h"
#include "description/tables/ParameterTable.h"
#include "description/tables/RecordBuilder.h"

#include <array>

namespace QVM_NAMESPACE {

namespace {

// The one record of a slot. A new record is stored before `fill` runs, so that a record which asks for it meanwhile
// gets it half-built instead of starting over. The slots keep the records reachable for good.
template <typename Record, typename Fill>
Record* RecordInSlot(Record*& slot, Fill fill) {
    if (!slot) {
        slot = new Record;
        fill(*slot);
    }
    return slot;
}

} // namespace

const QVMMetadata* GetMetadata() {
    static QVMMetadata* slot = nullptr;
    return RecordInSlot(slot, tables::FillMetadata);
}

QVMClump* GetClump(std::uint32_t cid) {
    static std::array<QVMClump*, QVMClumpCount> slots{};
    if (cid >= slots.size()) return nullptr;
    return RecordInSlot(slots[cid], [cid](QVMClump& clump) {
        tables::FillClump(clump, cid);
        for (const std::uint32_t pid : tables::PidsOfClump(cid))
            clump.parameters.push_back(GetParameter(pid));
    });
}

QVMParameter* GetParameter(std::uint32_t pid) {
    static std::array<QVMParameter*, QVMParameterCount> slots{};
    if (pid >= slots.size()) return nullptr;
    return RecordInSlot(slots[pid], [pid](QVMParameter& parameter) {
        tables::FillParameter(parameter, pid);
        parameter.clump = GetClump(tables::kParameters[pid].cid);
    });
}

QVMParameter* GetPresets() {
    static QVMParameter* slot = nullptr;
    return RecordInSlot(slot, tables::FillPresets);
}

} // namespace QVM_NAMESPACE
