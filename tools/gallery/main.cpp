// Entry point of the gallery.
#include "program/Console.h"
#include "tools/gallery/GalleryApp.h"
#include "tools/gallery/Pages.h"

namespace {

std::string listOfPages() {
    std::string list;
    for (const slantwise::GalleryPage& page : slantwise::galleryPages())
        list.append(page.name).append("\n");
    return list;
}

} // namespace

// An exception that nobody catches, such as want of memory, has to end the program in any case.
int main(int argumentCount, char* arguments[]) { // NOLINT(bugprone-exception-escape)
    const slantwise::Console console(argumentCount, arguments, "slantwise-gallery");
    auto parsed = slantwise::parseGalleryOptions({arguments + 1, arguments + argumentCount});
    if (const auto* error = std::get_if<slantwise::GalleryOptionsError>(&parsed)) return console.refuse(error->message);
    auto& options = std::get<slantwise::GalleryOptions>(parsed);
    if (options.showHelp) return console.print(slantwise::galleryHelpText(console.program()));
    if (options.listPages) return console.print(listOfPages());
    options.program = console.program();
    return slantwise::ToolkitProgram::run<slantwise::GalleryApp>(argumentCount, arguments, std::move(options));
}
