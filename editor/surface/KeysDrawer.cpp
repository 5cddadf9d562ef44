#include "editor/surface/KeysDrawer.h"

#include "description/tables/GestureTable.h"
#include "editor/surface/EditorLayout.h"
#include "editor/surface/LabelLayer.h"
#include "editor/surface/QVMGenericUI.h"
#include "platform/layer/TextLayer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace QVM_NAMESPACE {

namespace {

constexpr double margin = 16, callWidth = 114, columnGap = 14;                               // points
constexpr double headingHeight = 17, ruleGap = 3, sectionGap = 7, topGap = 7, bottomGap = 7; // points
constexpr double highestRow = 16, ruleWidth = 1;                                             // points
constexpr double headingSize = 9, headingKern = 1, textSize = 11;                            // points

KeysDrawer* keysDrawerOf(const QVMGenericUI& ui) {
    for (const auto& subview : ui.subviews())
        if (auto* drawer = dynamic_cast<KeysDrawer*>(subview.get())) return drawer;
    return nullptr;
}

} // namespace

KeysDrawer::KeysDrawer(const Rect& frame, const QVMConfig& config) : QVMDrawerView(frame, config) {
    layer()->setName("keysDrawer");
    const auto gestures = tables::Gestures();
    const double taken = topGap + 2 * (headingHeight + ruleGap) + sectionGap + bottomGap;
    const double room = std::floor((bounds().height - taken) / static_cast<double>(gestures.size()));
    const double height = std::min(highestRow, room); // whole, or a pixel more would show between some rows
    double y = topGap;
    const tables::GestureRow* before = nullptr;
    for (const tables::GestureRow& row : gestures) {
        if (!before || before->device != row.device) {
            if (before) y += sectionGap;
            add(Column::heading, row.device == tables::GestureDevice::mouse ? "Mouse" : "Keyboard", y, headingHeight);
            y += headingHeight;
            auto rule = std::make_shared<Layer>();
            rule->setFrame({margin, y - ruleWidth, bounds().width - 2 * margin, ruleWidth});
            layer()->tree().add(rule);
            rules_.push_back(std::move(rule));
            y += ruleGap;
        }
        add(Column::call, row.call, y, height);
        add(Column::does, row.does, y, height);
        y += height;
        before = &row;
    }
    KeysDrawer::themeUpdated();
}

void KeysDrawer::add(Column column, std::string text, double y, double height) {
    auto made = std::make_shared<TextLayer>();
    const double doesX = margin + callWidth + columnGap;
    const double x = column == Column::does ? doesX : margin;
    const double width = column == Column::call ? callWidth : bounds().width - margin - x;
    made->setFrame({x, y, width, height});
    made->setAlignment(TextAlignment::left, TextPlacement::middle);
    layer()->tree().add(made);
    texts_.push_back({column, std::move(text), std::move(made)});
}

void KeysDrawer::themeUpdated() {
    QVMDrawerView::themeUpdated();
    const QVMUITheme& theme = QVMUITheme::theme();
    const QVMPalette& palette = theme.palette;
    for (const Text& each : texts_) {
        if (each.column == Column::heading) {
            AttributedString heading(capitals(each.text), QVMUITheme::unitFontOfSize(headingSize),
                                     theme.labelColorGivenInk(palette.headingInk));
            heading.runs.front().kern = headingKern;
            each.layer->setString(heading);
            continue;
        }
        const Color color = each.column == Column::call ? theme.textColor : theme.labelColorGivenInk(palette.labelInk);
        each.layer->setString(
            {each.text, QVMUITheme::appropriateFontForValueSizeIconSize(each.text, textSize, textSize), color});
    }
    for (const auto& rule : rules_)
        rule->look().setBackgroundColor(theme.interiorBorderColor);
}

// A press on its background closes a drawer.
void KeysDrawer::mouseDown(const Event&) {
    constexpr std::int32_t code = 1;
    if (delegate()) delegate()->drawerDidTapMiniature(*this, code);
}

void toggleKeysDrawer(QVMGenericUI& ui) {
    if (ui.altFrame() == QVMAltFrameCompact) return;
    QVMDrawerView* drawer = keysDrawerOf(ui);
    if (!drawer) {
        const Rect frame = EditorLayoutForAltFrame(QVMAltFrameNormal).clumpsView;
        drawer = &ui.addDrawer(std::make_unique<KeysDrawer>(frame, ui.config()));
    }
    ui.toggleDrawerForce(*drawer, false);
}

bool areKeysShown(const QVMGenericUI& ui) {
    const KeysDrawer* const drawer = keysDrawerOf(ui);
    return drawer && drawer->visible();
}

} // namespace QVM_NAMESPACE
