// Fills description records from the tables.
//
// The links between records (a parameter's clump, a clump's parameters) are made by whoever keeps the records.
#pragma once

#include "description/QVMClump.h"
#include "description/QVMMetadata.h"
#include "description/QVMParameter.h"

namespace QVM_NAMESPACE {
namespace tables {

// Each sets every field of a fresh record that the tables give. The pid and cid must exist.
void FillParameter(QVMParameter& parameter, std::uint32_t pid);
void FillClump(QVMClump& clump, std::uint32_t cid);
void FillPresets(QVMParameter& presets);
void FillMetadata(QVMMetadata& metadata);

// The text under which a picture stands in a label field.
std::string ImageText(const char* base64);

} // namespace tables
} // namespace QVM_NAMESPACE
