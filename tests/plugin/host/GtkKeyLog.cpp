// A module for hosts made with GTK (GTK_MODULES): writes the name of each key that one of the host's own windows is
// given into the file that SLANTWISE_KEY_LOG names, one a line.
#include <gtk/gtk.h>
#include <gtk/gtkx.h>

#include <cstdio>
#include <cstdlib>

namespace {

// Every widget on the way is given the key; the window is the first.
gboolean noteKey(GSignalInvocationHint*, guint, const GValue* arguments, gpointer) {
    const auto* const event = static_cast<const GdkEventKey*>(g_value_get_boxed(&arguments[1]));
    const char* const fileName = std::getenv("SLANTWISE_KEY_LOG");
    const gpointer widget = g_value_get_object(&arguments[0]);
    if (!fileName || !GTK_IS_WINDOW(widget) || GTK_IS_PLUG(widget)) return TRUE;
    if (std::FILE* const file = std::fopen(fileName, "a")) {
        std::fprintf(file, "%s\n", gdk_keyval_name(event->keyval));
        std::fclose(file);
    }
    return TRUE; // goes on listening
}

} // namespace

extern "C" __attribute__((visibility("default"))) void gtk_module_init(int*, char***) {
    g_type_class_ref(GTK_TYPE_WIDGET); // which brings the signal
    g_signal_add_emission_hook(g_signal_lookup("key-press-event", GTK_TYPE_WIDGET), 0, noteKey, nullptr, nullptr);
}
