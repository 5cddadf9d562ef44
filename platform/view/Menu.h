// A menu as data; the adapter shows it inside the editor and calls the chosen item's action.
#pragma once

#include "BuildNamespace.h"

#include <functional>
#include <string>
#include <vector>

namespace QVM_NAMESPACE {

struct MenuItem {
    std::string title; // empty: a separator
    bool enabled = true;
    bool checked = false;
    std::function<void()> action;
    std::vector<MenuItem> submenu;

    static MenuItem separator() { return {}; }
    bool isSeparator() const { return title.empty(); }
};

class Menu {
public:
    std::string title; // shown as a heading; may be empty
    std::vector<MenuItem> items;
    bool standsOnChecked = false; // for a list of values: with the checked row over the place where it is opened
};

} // namespace QVM_NAMESPACE
