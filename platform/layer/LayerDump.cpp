#include "platform/layer/LayerDump.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace QVM_NAMESPACE {

namespace {

// Enough for a position on screen, and no noise from the last bits.
double rounded(double x) {
    const double value = std::round(x * 1000) / 1000;
    return value == 0 ? 0 : value; // no minus zero
}

std::string hex(Color color) {
    std::ostringstream text;
    text << '#' << std::hex << std::setfill('0');
    for (const float part : {color.r, color.g, color.b, color.a})
        text << std::setw(2) << static_cast<int>(std::lround(std::clamp(part, 0.0f, 1.0f) * 255));
    return text.str();
}

class Dump {
public:
    std::string text() const { return out_.str(); }

    void add(const Layer& layer, int depth) {
        out_ << std::string(static_cast<std::size_t>(2 * depth), ' ') << layer.kind();
        if (!layer.name().empty()) out_ << ' ' << layer.name();
        add(layer.frame());
        number("opacity", layer.opacity(), 1);
        word("hidden", layer.isHidden());
        word("y-up", layer.yAxis() == YAxis::up);
        addGeometry(layer);
        addLook(layer);
        out_ << '\n';
        for (const auto& sublayer : layer.tree().sublayers())
            add(*sublayer, depth + 1);
    }

private:
    void add(const Rect& r) {
        out_ << " (" << rounded(r.x) << ' ' << rounded(r.y) << ' ' << rounded(r.width) << ' ' << rounded(r.height)
             << ')';
    }
    void number(const char* name, double value, double usual) {
        if (value != usual) out_ << ' ' << name << ' ' << rounded(value);
    }
    void word(const char* name, bool isThere) {
        if (isThere) out_ << ' ' << name;
    }
    void addGeometry(const Layer& layer) {
        const Rect bounds = layer.bounds();
        if (bounds.origin() != Point{}) out_ << " from " << rounded(bounds.x) << ',' << rounded(bounds.y);
        const AffineTransform t = layer.transform();
        if (!t.isIdentity()) {
            out_ << " transform";
            for (const double part : {t.a, t.b, t.c, t.d, t.tx, t.ty})
                out_ << ' ' << rounded(part);
        }
        word("masks", layer.masksToBounds());
        word("animating", layer.animations().isRunning());
    }
    void addLook(const Layer& layer) {
        if (layer.look().backgroundColor().a > 0) out_ << " background " << hex(layer.look().backgroundColor());
        word("pattern", layer.look().backgroundPattern() != nullptr);
        number("corner", layer.look().cornerRadius(), 0);
        if (layer.look().borderWidth() > 0)
            out_ << " border " << rounded(layer.look().borderWidth()) << ' ' << hex(layer.look().borderColor());
        if (layer.look().shadow().opacity > 0) out_ << " shadow " << rounded(layer.look().shadow().radius);
        if (layer.contents()) out_ << " contents " << layer.contents()->width << 'x' << layer.contents()->height;
        if (layer.look().contentsTint().a > 0) out_ << " tint " << hex(layer.look().contentsTint());
        const std::string look = layer.lookDescription();
        if (!look.empty()) out_ << ' ' << look;
    }

    std::ostringstream out_;
};

} // namespace

std::string dumpLayerTree(const Layer& root) {
    Dump dump;
    dump.add(root, 0);
    return dump.text();
}

} // namespace QVM_NAMESPACE
