#include "toolkit/Screenshot.h"

#include "platform/renderer/LayerRenderer.h"
#include "platform/runloop/RunLoop.h"
#include "toolkit/Conversions.h"
#include "toolkit/ToolkitRasterBackend.h"
#include "toolkit/ToolkitRasterTarget.h"
#include "toolkit/ToolkitRuntime.h"

#include <cmath>

namespace QVM_NAMESPACE {

namespace {

juce::Image rendered(const std::shared_ptr<Layer>& root, Size points, double scale) {
    const juce::SharedResourcePointer<ToolkitRuntime> runtime;
    ToolkitRasterBackend backend(runtime->faces());
    LayerRenderer renderer(backend);
    renderer.setRootLayer(root);
    renderer.setScale(scale);
    renderer.update(RunLoop::main().now());
    juce::Image image = makeCanvas(static_cast<int>(std::lround(points.width * scale)),
                                   static_cast<int>(std::lround(points.height * scale)));
    juce::Graphics g(image);
    ToolkitRasterTarget target(g);
    renderer.compose(target, {0, 0, static_cast<double>(image.getWidth()), static_cast<double>(image.getHeight())});
    return image;
}

} // namespace

Image renderWindowToImage(Window& window, double scale) {
    View* content = window.contentView();
    if (!content) return {};
    const double scaleBefore = window.backingScaleFactor();
    window.setBackingScaleFactor(scale);
    // A renderer takes the tree's observer away; one that shows the window on screen gets it back and looks again.
    LayerTreeObserver* const observer = content->layer()->tree().observer();
    Image image = fromToolkit(rendered(content->layer(), content->bounds().size(), scale));
    content->layer()->tree().setObserver(observer);
    window.setBackingScaleFactor(scaleBefore);
    if (observer) observer->layerTreeDidChange();
    return image;
}

bool writePng(const Image& image, const std::string& path) {
    if (image.isEmpty()) return false;
    const juce::File file = juce::File::getCurrentWorkingDirectory().getChildFile(juce::String::fromUTF8(path.c_str()));
    juce::FileOutputStream stream(file);
    if (!stream.openedOk() || !stream.setPosition(0) || stream.truncate().failed()) return false;
    return juce::PNGImageFormat().writeImageToStream(toToolkit(image), stream) && !stream.getStatus().failed();
}

} // namespace QVM_NAMESPACE
