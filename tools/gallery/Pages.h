// What the gallery shows, as data: pages, and on each the rows of things that are shown in all their states.
#pragma once

#include "geometry/Geometry.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace QVM_NAMESPACE {

// What a row is made of.
enum class ExhibitKind : unsigned char {
    parameter,    // a parameter control
    range,        // the two ends of a range and their band; `key` names the low end, `otherKey` the high one
    symbolButton, // `otherKey` is its glyph
    meterButton,  // `otherKey` is its unit
    display       // a live display by its key
};

// How a thing is shown. Each row shows the states that its kind has.
enum class ExhibitState : unsigned char {
    normal,
    hovered,
    focused,
    typing,
    inaccurate,
    selected,
    warning,
    dimmed,
    disabled,
    lowest,
    highest
};

struct ExhibitStateName {
    ExhibitState state;
    std::string_view name; // also in the identifiers of exhibits
};
// All of them, in the order in which a row shows them.
std::span<const ExhibitStateName> exhibitStates();

// What a row's things stand on: some are made for one of them.
enum class ExhibitSurface : unsigned char { panel, accent };

// How the rows of a page stand: one under the other, or side by side for as long as there is room.
enum class PageFlow : unsigned char { rows, tiles };

struct ExhibitRow {
    std::string_view title;
    ExhibitKind kind;
    std::string_view key;
    Size size; // points, of each exhibit
    std::string_view otherKey = {};
    ExhibitSurface surface = ExhibitSurface::panel;
    std::string_view caption = {}; // instead of the names of states
};

struct GalleryPage {
    std::string_view name; // one word, on its tab and for --page
    std::vector<ExhibitRow> rows;
    PageFlow flow = PageFlow::rows;
};

// All pages, in the order of their tabs. Main thread.
const std::vector<GalleryPage>& galleryPages();
// The index of the page of that name, whatever its case.
std::optional<std::size_t> galleryPageNamed(std::string_view name);

} // namespace QVM_NAMESPACE
