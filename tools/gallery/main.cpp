// Entry point of the gallery.
#include "tools/gallery/GalleryApp.h"
#include "tools/gallery/Pages.h"

#include <cstdio>

namespace {

constexpr int exitUsage = 2;

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
    return slantwise::ToolkitProgram::run<slantwise::GalleryApp>(argumentCount, arguments, std::move(options));
}
