// Entry point of the gallery.
#include "tools/gallery/GalleryApp.h"
#include "tools/gallery/Pages.h"

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int exitUsage = 2;

juce::JUCEApplicationBase* createApplication() {
    return new slantwise::GalleryApp();
}

int printPages() {
    for (const slantwise::GalleryPage& page : slantwise::galleryPages())
        std::printf("%s\n", std::string(page.name).c_str());
    return 0;
}

} // namespace

// An exception that nobody catches, such as want of memory, has to end the program in any case.
int main(int argumentCount, char* arguments[]) { // NOLINT(bugprone-exception-escape)
    auto parsed = slantwise::parseGalleryOptions({arguments + 1, arguments + argumentCount});
    if (const auto* error = std::get_if<slantwise::GalleryOptionsError>(&parsed)) {
        std::fprintf(stderr, "slantwise-gallery: %s\n", error->message.c_str());
        return exitUsage;
    }
    auto& options = std::get<slantwise::GalleryOptions>(parsed);
    if (options.showHelp) return std::fputs(slantwise::galleryHelpText().c_str(), stdout) < 0;
    if (options.listPages) return printPages();
    // The toolkit would take display 0 when none is named, whosever it is.
    if (std::getenv("DISPLAY") == nullptr) setenv("DISPLAY", "none", 1);
    slantwise::GalleryApp::setOptions(std::move(options));
    juce::JUCEApplicationBase::createInstance = &createApplication;
    return juce::JUCEApplicationBase::main(argumentCount, const_cast<const char**>(arguments));
}
