#include "editor/surface/EditorPreferences.h"

#include "editor/surface/QVMGenericUI.h"
#include "theme/QVMUITheme.h"

namespace QVM_NAMESPACE {

void observePreferences(QVMGenericUI& ui) {
    InterfacePreferences& preferences = ui.preferences();
    preferences.define("theme", {[] { return QVMUITheme::isDark() ? 1.0 : 0.0; },
                                 [&ui](double value) {
                                     if ((value != 0) != QVMUITheme::isDark())
                                         QVMUITheme::toggleThemeForWindow(ui.window());
                                 }});
    preferences.define(EditorScale::preferenceKey, {[&ui] { return ui.scale().preference(); },
                                                    [&ui](double value) { ui.scale().adoptPreference(value); }});
    preferences.define(EditorSpectrum::preferenceKey,
                       {[&ui] { return static_cast<double>(ui.sketches().spectrum().mode()); },
                        [&ui](double value) { ui.sketches().spectrum().restore(value); }});
    preferences.observe(
        [&ui](const std::string& key, double value) {
            if (ui.delegate()) ui.delegate()->interfaceDidUpdateInterfacePreferenceValue(ui, key, value);
        },
        [&ui] {
            if (ui.delegate()) ui.delegate()->interfaceShouldRequestUpdatedLayout(ui);
        });
}

} // namespace QVM_NAMESPACE
