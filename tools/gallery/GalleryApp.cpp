#include "tools/gallery/GalleryApp.h"

#include "theme/QVMUITheme.h"
#include "toolkit/Screenshot.h"
#include "toolkit/ToolkitWorkspace.h"
#include "toolkit/WindowComponent.h"
#include "tools/gallery/GalleryView.h"
#include "tools/gallery/OffscreenTime.h"
#include "tools/gallery/TestSignal.h"

#include <cstdio>
#include <filesystem>

namespace QVM_NAMESPACE {

namespace {

constexpr double signalSampleRateHz = 48000;

// A line at a time, so that whoever reads them sees them at once.
void printLine(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

} // namespace

GalleryApp::GalleryApp(GalleryOptions options) : ToolkitProgram("slantwise-gallery"), options_(std::move(options)) {}

GalleryApp::~GalleryApp() = default;

std::unique_ptr<StereoFeed> GalleryApp::makeFeed() {
    const std::string& file = options_.audioFile;
    if (file.empty())
        return std::make_unique<StereoFeed>(*testSignal(options_.signal, signalSampleRateHz),
                                            "signal " + options_.signal);
    auto read = readAudioFile(file);
    if (const auto* error = std::get_if<AudioFileError>(&read)) {
        fail(error->message);
        return nullptr;
    }
    return std::make_unique<StereoFeed>(std::get<AudioClip>(std::move(read)),
                                        std::filesystem::path(file).filename().string());
}

void GalleryApp::initialise(const juce::String&) {
    if (!options_.screenshotFile.empty()) return writeScreenshot();
    const bool display = hasDisplay();
    if (!display && !options_.quitAfterSeconds)
        return fail("there is no display; set DISPLAY, or write a picture with --screenshot FILE");
    if (!openView()) return;
    if (display) {
        if (options_.scale > 0) {
            // The desktop scales the window on its own; this is what is missing to the scale asked for.
            const double desktop = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay()->scale;
            component_->setTransform(juce::AffineTransform::scale(static_cast<float>(options_.scale / desktop)));
        }
        window_ = std::make_unique<ProgramWindow>("Slantwise gallery", *component_);
        component_->window().makeKey(); // Tab works before the first click
    }
    if (options_.quitAfterSeconds) quitCall_.schedule(*options_.quitAfterSeconds, [] { JUCEApplicationBase::quit(); });
}

bool GalleryApp::openView() {
    component_ = std::make_unique<WindowComponent>(WindowComponent::Embedding::ownWindow);
    feed_ = makeFeed();
    if (!feed_) return false;
    Window& window = component_->window();
    if (options_.scale > 0) window.setBackingScaleFactor(options_.scale);
    if (options_.theme == GalleryOptions::Theme::dark) QVMUITheme::toggleThemeForWindow(&window);
    window.setContentView(std::make_unique<GalleryView>(
        *feed_, options_.page, options_.printEvents ? GalleryView::Listener(&printLine) : nullptr));
    return true;
}

void GalleryApp::shutdown() {
    quitCall_.cancel();
    window_.reset();
    if (component_) component_->window().takeContentView();
    component_.reset();
    feed_.reset();
}

void GalleryApp::writeScreenshot() {
    OffscreenTime time;
    if (!openView()) return;
    time.advance(options_.afterSeconds);
    Window& window = component_->window();
    const bool isWritten = writePng(renderWindowToImage(window, window.backingScaleFactor()), options_.screenshotFile);
    window.takeContentView(); // what runs on that time ends with it
    if (!isWritten) return fail("cannot write \"" + options_.screenshotFile + "\"");
    quit();
}

} // namespace QVM_NAMESPACE
