#include "tools/gallery/GalleryApp.h"

#include "platform/juce/Screenshot.h"
#include "platform/juce/WindowComponent.h"
#include "plugin/standalone/EditorHolder.h"
#include "theme/QVMUITheme.h"
#include "tools/gallery/GalleryView.h"
#include "tools/gallery/OffscreenTime.h"
#include "tools/gallery/TestSignal.h"

#include <cstdio>
#include <filesystem>

namespace QVM_NAMESPACE {

namespace {

constexpr double signalSampleRateHz = 48000;

GalleryOptions& options() {
    static GalleryOptions parsed;
    return parsed;
}

bool hasDisplay() {
    return juce::Desktop::getInstance().getDisplays().getPrimaryDisplay() != nullptr;
}

// A line at a time, so that whoever reads them sees them at once.
void printLine(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

} // namespace

class GalleryApp::GalleryWindow final : public juce::DocumentWindow {
public:
    GalleryWindow(WindowComponent& content, double scale)
        : juce::DocumentWindow("Slantwise gallery", juce::Colours::black, closeButton | minimiseButton) {
        setUsingNativeTitleBar(true);
        if (scale > 0) {
            // The desktop scales the window on its own; this is what is missing to the scale asked for.
            const double desktop = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay()->scale;
            content.setTransform(juce::AffineTransform::scale(static_cast<float>(scale / desktop)));
        }
        setContentOwned(new EditorHolder(content), true);
        setResizable(false, false);
        centreWithSize(getWidth(), getHeight());
        setVisible(true);
    }
    void closeButtonPressed() override { JUCEApplicationBase::quit(); }
};

GalleryApp::GalleryApp() = default;

GalleryApp::~GalleryApp() = default;

void GalleryApp::setOptions(GalleryOptions parsed) {
    options() = std::move(parsed);
}

void GalleryApp::fail(const std::string& message) {
    std::fprintf(stderr, "slantwise-gallery: %s\n", message.c_str());
    setApplicationReturnValue(1);
    quit();
}

std::unique_ptr<StereoFeed> GalleryApp::makeFeed() {
    const std::string& file = options().audioFile;
    if (file.empty())
        return std::make_unique<StereoFeed>(*testSignal(options().signal, signalSampleRateHz),
                                            "signal " + options().signal);
    auto read = readAudioFile(file);
    if (const auto* error = std::get_if<AudioFileError>(&read)) {
        fail(error->message);
        return nullptr;
    }
    return std::make_unique<StereoFeed>(std::get<AudioClip>(std::move(read)),
                                        std::filesystem::path(file).filename().string());
}

void GalleryApp::initialise(const juce::String&) {
    if (!options().screenshotFile.empty()) return writeScreenshot();
    const bool display = hasDisplay();
    if (!display && !options().quitAfterSeconds)
        return fail("there is no display; set DISPLAY, or write a picture with --screenshot FILE");
    if (!openView()) return;
    if (display) {
        window_ = std::make_unique<GalleryWindow>(*component_, options().scale);
        component_->window().makeKey(); // Tab works before the first click
    }
    if (options().quitAfterSeconds)
        quitCall_.schedule(*options().quitAfterSeconds, [] { JUCEApplicationBase::quit(); });
}

bool GalleryApp::openView() {
    component_ = std::make_unique<WindowComponent>(WindowComponent::Embedding::ownWindow);
    feed_ = makeFeed();
    if (!feed_) return false;
    Window& window = component_->window();
    if (options().scale > 0) window.setBackingScaleFactor(options().scale);
    if (options().theme == GalleryOptions::Theme::dark) QVMUITheme::toggleThemeForWindow(&window);
    window.setContentView(std::make_unique<GalleryView>(
        *feed_, options().page, options().printEvents ? GalleryView::Listener(&printLine) : nullptr));
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
    time.advance(options().afterSeconds);
    Window& window = component_->window();
    const bool isWritten = writePng(renderWindowToImage(window, window.backingScaleFactor()), options().screenshotFile);
    window.takeContentView(); // what runs on that time ends with it
    if (!isWritten) return fail("cannot write \"" + options().screenshotFile + "\"");
    quit();
}

} // namespace QVM_NAMESPACE
