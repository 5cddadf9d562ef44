// The controls in the order of the Tab key, with a key that moves each from where it is at first and one that moves it
// back.
#pragma once

#include "BuildNamespace.h"

#include <array>
#include <cstdint>

namespace QVM_NAMESPACE {

struct TabStop {
    std::uint32_t pid;
    const char *there, *back; // X names of keys
};

inline constexpr std::array<TabStop, 14> tabStops = {{{1, "Up", "Down"},
                                                      {2, "Up", "Down"},
                                                      {3, "Up", "Down"},
                                                      {6, "Up", "Down"},
                                                      {7, "Up", "Down"},
                                                      {9, "Up", "Down"},
                                                      {10, "Down", "Up"},
                                                      {13, "Return", "Return"},
                                                      {20, "Return", "Return"},
                                                      {14, "Up", "Down"},
                                                      {15, "Up", "Down"},
                                                      {21, "Up", "Down"},
                                                      {22, "Up", "Down"},
                                                      {23, "Return", "Return"}}};

} // namespace QVM_NAMESPACE
