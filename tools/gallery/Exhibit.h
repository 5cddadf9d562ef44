// One thing in one state: live, so that it can be driven out of that state with real events.
#pragma once

#include "controls/QVMParameterControl.h"
#include "tools/gallery/Pages.h"
#include "tools/gallery/StereoFeed.h"

#include <functional>
#include <memory>
#include <string>

namespace QVM_NAMESPACE {

class Exhibit : public View {
public:
    // Told what happens here: "action 3.5", "began", "ended", "discrete", "pressed".
    using Report = std::function<void(Exhibit& exhibit, const std::string& what)>;

    // Makes the row's thing in a state, or null when it has no such state. The feed outlives the exhibit.
    static std::unique_ptr<Exhibit> make(const ExhibitRow& row, ExhibitState state, const Rect& frame,
                                         StereoFeed& feed);

    using View::View;

    void setReport(Report report) { report_ = std::move(report); }
    // "Sliders/Gain/hovered": page, key and state.
    const std::string& identifier() const { return identifier_; }
    void setIdentifier(std::string identifier) { identifier_ = std::move(identifier); }
    // What keys go to; null for a thing that takes none.
    virtual QVMParameterControl* parameterControl() { return nullptr; }
    virtual void themeUpdated() {}

protected:
    void report(const std::string& what) {
        if (report_) report_(*this, what);
    }

private:
    Report report_;
    std::string identifier_;
};

} // namespace QVM_NAMESPACE
