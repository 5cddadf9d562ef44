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

} // namespace

GalleryApp::GalleryApp(GalleryOptions options)
    : ToolkitProgram("slantwise-gallery", options.program), options_(std::move(options)) {}

GalleryApp::~GalleryApp() = default;

void GalleryApp::printLine(const std::string& line) {
    if (isCutOff_ || (std::printf("%s\n", line.c_str()) >= 0 && std::fflush(stdout) == 0)) return;
    isCutOff_ = true;
    fail("cannot write the output");
}

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
    auto clip = std::get<AudioClip>(std::move(read));
    if (clip.isDamaged) warn(damagedFileText(file));
    return std::make_unique<StereoFeed>(std::move(clip), std::filesystem::path(file).filename().string());
}

void GalleryApp::initialise(const juce::String&) {
    if (!options_.screenshotFile.empty()) return writeScreenshot();
    if (!hasDisplay()) return failForWantOfDisplay();
    if (!openView()) return;
    if (options_.scale > 0) {
        // The desktop scales the window on its own; this is what is missing to the scale asked for.
        const double desktop = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay()->scale;
        component_->setTransform(juce::AffineTransform::scale(static_cast<float>(options_.scale / desktop)));
    }
    window_ = std::make_unique<ProgramWindow>("Slantwise gallery", *component_);
    component_->window().makeKey(); // Tab works before the first click
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
        *feed_, options_.page,
        options_.printEvents ? GalleryView::Listener([this](const std::string& line) { printLine(line); }) : nullptr));
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
