// What the toolkit's LV2 generator leaves out of a bundle's text, or gets wrong.
//
// Left out: the plug-in's class, licence, project and comment, and the version in the manifest. Wrong: a preset that
// refers to a property nobody defines, the parameters, in numbers that nobody reads, and words where the format does
// not allow them. Linked data adds up, so what is left out or said better stands in files of their own.
#pragma once

#include "description/QVMParameter.h"

#include <optional>
#include <string>

namespace QVM_NAMESPACE {

// The files' names inside the bundle.
inline constexpr const char* lv2ExtraFile = "extra.ttl";
inline constexpr const char* lv2PresetsFile = "presets.ttl";

// Turtle that completes the description of the plug-in with this URI, all from the product's own tables.
std::string lv2ExtraText(const std::string& pluginUri);
// Of that, the parameters with their groups, and that they can be read and written.
std::string lv2ParametersText(const std::string& pluginUri);
// A number of this parameter's: a whole one, or one with a decimal point.
std::string propertyNumberText(const QVMParameter& parameter, float value);

// The factory presets as presets of the plug-in with this URI, in banks by section. Each has the number by which the
// plug-in recalls it, and the values for hosts that set parameters themselves; the quality mode is left alone.
std::string lv2PresetsText(const std::string& pluginUri);

// What the manifest says of each preset: that it is there, and in which file.
std::string lv2PresetsManifestText(const std::string& pluginUri);

// What the manifest says of the version: hosts that find several bundles of one plug-in read no further than there to
// choose the newest. The format has no major number, so ours is in the minor one, as in the version integer.
std::string lv2VersionText(const std::string& pluginUri);

// manifest.ttl as the toolkit wrote it, without its preset and with a reference to the extra file. Text that was
// repaired already says the same afterwards; so it does below. Absent where it is no Turtle.
std::optional<std::string> repairedLv2Manifest(const std::string& text);

// dsp.ttl as the toolkit wrote it, without its parameters and its version, with a comment on each port, and with
// the maintainer and the release as the project's.
std::optional<std::string> repairedLv2Dsp(const std::string& text);

// ui.ttl as the toolkit wrote it, without what is no interface or no feature of the editor's.
std::optional<std::string> repairedLv2Ui(const std::string& text);

} // namespace QVM_NAMESPACE
