// The parameters as LV2 has them: properties whose numbers are those that the user reads, in hertz and decibels, and
// whole numbers for switches and modes.
//
// Sessions keep automation by a property's name, so a name means one kind of number for ever. The frequencies once had
// the unit's own numbers, positions on a skewed scale; in hertz they have other names. What a host has kept under a
// former name is obeyed as it was meant, and the former names are offered to nobody.
#pragma once

#include "description/QVMParameter.h"

#include <string>

namespace QVM_NAMESPACE {

// The last part of the property's name, behind the plug-in's and a colon. It is a symbol too.
std::string propertyName(const QVMParameter& parameter);
// The name under which the numbers are still the unit's; empty for a property that has always had its name.
std::string formerPropertyName(const QVMParameter& parameter);
// Whether the numbers are whole ones.
bool isWholeProperty(const QVMParameter& parameter);

// The two below are for any thread, the render thread included: no lock, no memory.
//
// What the editor shows of a value of the unit's, as far as that is the same value: between two steps of the editor's
// the number is not rounded. So what was told and is set again is the same value, and what was set is told.
float propertyValue(const QVMParameter& parameter, float hostValue);
// The unit's value for a finite number in the property's terms, brought inside its range.
float hostValueOfProperty(const QVMParameter& parameter, float value);

} // namespace QVM_NAMESPACE
