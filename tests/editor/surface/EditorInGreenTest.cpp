// Whether anything is drawn in a colour that does not come from the theme.
#include "editor/surface/DrawnColorsFixture.h"

#include "theme/ScopedTheme.h"

#include <utility>

namespace QVM_NAMESPACE {
namespace {

// The description's colours are green here as well; the product's alone is its own, or is moved towards what it has to
// stand out from.
class EditorInGreen : public DrawnColorsFixture {
protected:
    void SetUp() override {
        for (QVMParameter* parameter : described()) {
            const Color accent = greens_.accent();
            colors_.push_back(std::exchange(parameter->color, {accent.r, accent.g, accent.b, 1}));
        }
        scoped_.emplace(greens_.theme());
        DrawnColorsFixture::SetUp();
        openEverything();
    }
    void TearDown() override {
        DrawnColorsFixture::TearDown();
        scoped_.reset();
        const std::vector<QVMParameter*> parameters = described();
        for (std::size_t i = 0; i < parameters.size(); ++i)
            parameters[i]->color = colors_[i];
    }
    static std::vector<QVMParameter*> described() {
        std::vector<QVMParameter*> all = {GetPresets()};
        for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
            all.push_back(GetParameter(pid));
        return all;
    }
    // Whether it is the product's colour, or that moved towards white, black or the theme's shade.
    static bool isTheProducts(Color color) {
        const Color product = QVMCGColor(GetMetadata()->color), shade = QVMUITheme::theme().palette.shade;
        const auto isNear = [&color](Color there) {
            return std::max({std::abs(color.r - there.r), std::abs(color.g - there.g), std::abs(color.b - there.b)}) <
                   1.0f / 256;
        };
        for (int step = 0; step <= 256; ++step)
            if (isNear(product.mixedWith(shade, static_cast<float>(step) / 256))) return true;
        const float share = (color.r - color.g) / (product.r - product.g), white = color.g - share * product.g;
        const float blue = share * product.b + white;
        return share > 0.02f && white > -0.01f && share + white < 1.01f && isNear({color.r, color.g, blue, 1});
    }
    std::vector<DrawnColor> strangers() const {
        std::vector<DrawnColor> found = drawn();
        std::erase_if(found,
                      [](const DrawnColor& each) { return Greens::made(each.color) || isTheProducts(each.color); });
        return found;
    }

private:
    Greens greens_;
    std::optional<ScopedTheme> scoped_;
    std::vector<QVMColor> colors_;
};

TEST_F(EditorInGreen, NothingIsDrawnInAColourOfItsOwn) {
    EXPECT_GT(drawn().size(), 150u);
    EXPECT_EQ(strangers(), std::vector<DrawnColor>{});
}

TEST_F(EditorInGreen, FindsAColourOfItsOwn) {
    for (const Color color : {Color::white(1), Color::white(0, 0.3f), colorFromHex(0x71343A)}) {
        auto stranger = std::make_shared<Layer>();
        stranger->look().setBackgroundColor(color);
        const std::size_t others = strangers().size();
        ui_->layer()->tree().add(stranger);
        EXPECT_EQ(strangers().size(), others + 1);
        stranger->tree().removeFromSuperlayer();
    }
}

} // namespace
} // namespace QVM_NAMESPACE
