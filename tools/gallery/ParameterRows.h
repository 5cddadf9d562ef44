// The gallery's own description, as data: what Parameters.cpp makes its parameters from.
#pragma once

#include "description/ParameterTypes.h"
#include "description/QVMRangeSettings.h"

#include <string>
#include <vector>

namespace QVM_NAMESPACE {

// One parameter. What a row leaves out keeps the value that most parameters have.
struct GalleryRow {
    // Codes of `controlType`.
    enum Type : std::int32_t { slider, boolean, cycle, itemized, number, toggle, note, grid };
    using Names = std::vector<std::string>;

    const char* key;  // `codesafeName`
    const char* name; // and label
    Type type = slider;
    std::int32_t style = 0;
    std::int32_t unit = QVMUnitIndexed;
    const char* symbol = ""; // of the unit
    float min = 0, max = 1, initial = 0;
    float step = 1, fine = 1, coarse = 1;
    int decimals = 0;
    bool logarithmic = false, horizontal = true, crementers = false;
    const char* color = "#A54D55";
    Names names = {};                                // of the values
    Names symbols = {};                              // glyphs that show them
    std::vector<float> scale = {};                   // marks with a text
    std::vector<double> dragPoints = {};             // points for the whole range: fine, normal, coarse
    std::vector<QVMHierarchyItem> tree = {};         // of a nested menu
    std::vector<QVMRangeSettings::Entry> range = {}; // of an end of a range
};

// Sliders and numbers; cycles, switches and other choices, those of the gallery's own window included. Made on first
// use. Main thread.
const std::vector<GalleryRow>& galleryValueRows();
const std::vector<GalleryRow>& galleryChoiceRows();

} // namespace QVM_NAMESPACE
