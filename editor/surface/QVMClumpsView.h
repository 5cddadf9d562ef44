// The area that holds clump views: the panels under them and the lines between the panels. Main thread only.
#pragma once

#include "description/QVMConfig.h"
#include "editor/surface/LabelLayer.h"
#include "editor/surface/ThemedView.h"

#include <map>
#include <optional>
#include <string>

namespace QVM_NAMESPACE {

enum class ClumpsArea : unsigned char { main, advanced };

class QVMClumpsView final : public ThemedView {
public:
    // The configuration outlives the view.
    QVMClumpsView(const Rect& frame, const QVMConfig& config, ClumpsArea area = ClumpsArea::main);

    bool advanced() const { return area_ == ClumpsArea::advanced; }
    // A line around the whole area.
    bool drawOutsideBorder() const { return drawOutsideBorder_; }
    void setDrawOutsideBorder(bool draw);

    void themeUpdated() override;

    // Named by the contract and not used in this product, where panels go up to the view's edges: how far they stand
    // inside it, in points by edge ("left", "top", "right", "bottom").
    const std::map<std::string, double>& inset() const { return inset_; }
    void setInset(std::map<std::string, double> inset);

private:
    struct Panel {
        std::shared_ptr<Layer> layer;
        Rect frame;        // without the insets
        bool depictsSound; // and stands on the side panel's colour
    };
    void addPanels();
    void layOutPanels();
    void addDividers();
    void addHeader();

    const QVMConfig& config_;
    ClumpsArea area_;
    std::map<std::string, double> inset_;
    bool drawOutsideBorder_ = false;
    std::vector<Panel> panels_;
    std::vector<std::shared_ptr<Layer>> dividers_;
    std::shared_ptr<Layer> header_;    // of the advanced area
    std::optional<LabelLayer> banner_; // in the header
};

} // namespace QVM_NAMESPACE
