// One page: each row's title, its exhibits side by side and, under each, the name of its state.
#pragma once

#include "platform/layer/TextLayer.h"
#include "tools/gallery/Exhibit.h"

#include <vector>

namespace QVM_NAMESPACE {

class PageView final : public View {
public:
    // The page's data and the feed outlive the view.
    PageView(const Rect& frame, const GalleryPage& page, StereoFeed& feed, const Exhibit::Report& report);

    // In the order in which they stand; subviews.
    const std::vector<Exhibit*>& exhibits() const { return exhibits_; }
    // Where the last row ends, points from the top: a page is well made when this is within its frame.
    double contentHeight() const { return contentHeight_; }

private:
    struct Text {
        std::shared_ptr<TextLayer> layer;
        std::string text;
        bool isTitle = false;
    };
    using Report = Exhibit::Report;
    void addRow(const GalleryPage& page, const ExhibitRow& row, StereoFeed& feed, const Report& report);
    void addTiles(const GalleryPage& page, StereoFeed& feed, const Report& report);
    void addExhibit(std::unique_ptr<Exhibit> exhibit, const std::string& identifier, Point at, const Report& report);
    void addAccent(const Rect& frame); // under an exhibit that is made for it
    void addText(const std::string& text, const Rect& frame, bool isTitle);
    void redraw();

    std::vector<Exhibit*> exhibits_;
    std::vector<Text> texts_;
    double contentHeight_ = 0;
    ObservationToken themeObservation_;
};

} // namespace QVM_NAMESPACE
