// What the toolkit's LV2 generator leaves out of a bundle's text, or gets wrong.
//
// Left out: the plug-in's class, licence, project, comment and version in the manifest, the unit of each parameter, and
// names for values. Wrong: a preset that refers to a property nobody defines, named values on a scale of 0 to 1 where
// the parameter's is another, and integers where floats belong. Linked data adds up, so what is left out stands in a
// file of its own.
#pragma once

#include "BuildNamespace.h"

#include <optional>
#include <string>

namespace QVM_NAMESPACE {

// The files' names inside the bundle.
inline constexpr const char* lv2ExtraFile = "extra.ttl";
inline constexpr const char* lv2PresetsFile = "presets.ttl";

// Turtle that completes the description of the plug-in with this URI, all from the product's own tables.
std::string lv2ExtraText(const std::string& pluginUri);

// The factory presets as presets of the plug-in with this URI, in banks by section. Each has the number by which the
// plug-in recalls it, and for hosts that set parameters themselves the host-domain values; the quality mode is left
// alone.
std::string lv2PresetsText(const std::string& pluginUri);

// What the manifest says of each preset: that it is there, and in which file.
std::string lv2PresetsManifestText(const std::string& pluginUri);

// What the manifest says of the version: hosts that find several bundles of one plug-in read no further than there to
// choose the newest. The format has no major number, so ours is in the minor one, as in the version integer.
std::string lv2VersionText(const std::string& pluginUri);

// manifest.ttl as the toolkit wrote it, without its preset and with a reference to the extra file. Text that was
// repaired already says the same afterwards; so it does below. Absent where it is no Turtle.
std::optional<std::string> repairedLv2Manifest(const std::string& text);

// dsp.ttl as the toolkit wrote it, without its scale points and its version, and with every limit a float.
std::optional<std::string> repairedLv2Dsp(const std::string& text);

} // namespace QVM_NAMESPACE
