// Where a name is typed in the middle of a list: a box with the text, and under it what can be done with it.
//
// Return does the first of these and Escape the second, as a click on their words. It is as wide as the list that it
// stands in. Main thread only.
#pragma once

#include "editor/surface/TextEntry.h"
#include "editor/surface/ThemedView.h"
#include "platform/layer/TextLayer.h"

#include <functional>
#include <memory>
#include <string>

namespace QVM_NAMESPACE {

class NameField final : public ThemedView {
public:
    static constexpr double height = 48; // points

    enum class Refusal : bool { isEmpty, isTooLong };
    // Whoever is asked may take the field away while it is called.
    struct Handlers {
        std::function<void(const std::string& typed, bool isAnswer)> accept; // the answer to what was asked, or not
        std::function<void()> cancel;
        std::function<void(Refusal)> refuse;
    };
    // A frame of any height takes that of the field. The name that is there at first is selected.
    NameField(const Rect& frame, std::string_view name, Handlers handlers);

    const TextEntry& entry() const { return entry_; }
    // Asks about the name as it is, in a few words; the first word is another one until the name is another.
    void ask(const std::string& question, const std::string& acceptWord);
    const std::string& question() const { return question_; }
    // What a click accepts or cancels, own coordinates.
    Rect acceptFrame() const { return accept_.frame; }
    Rect cancelFrame() const { return cancel_.frame; }
    // The caret's place, own coordinates.
    Rect caretFrame() const;

    // Takes every key: true also for those that mean nothing here.
    bool handleKey(const Event& event);

    void themeUpdated() override;
    void mouseDown(const Event& event) override;
    void mouseDragged(const Event& event) override;
    void mouseUp(const Event&) override { isSelecting_ = false; }
    void mouseCancelled(const Event&) override { isSelecting_ = false; }
    void mouseMoved(const Event& event) override;
    void mouseExited(const Event&) override;

private:
    // Something to press.
    struct Word {
        std::shared_ptr<TextLayer> text;
        std::shared_ptr<Layer> light; // under the pointer
        Rect frame;
    };
    Word makeWord(const char* name);
    void placeWords();
    void styleWord(Word& word, const std::string& title, double right, Color color);
    void show();
    void scrollToCaret();
    void accept();
    void cancel();
    void refuse(Refusal refusal);
    double offsetOf(std::size_t place) const;
    std::size_t placeAt(Point pointInWindow) const;

    TextEntry entry_;
    const Handlers handlers_;
    std::string question_, acceptWord_;
    double scroll_ = 0; // points that the text has moved to the left
    bool isSelecting_ = false;
    std::shared_ptr<Layer> box_, clip_, selection_, caret_;
    std::shared_ptr<TextLayer> text_, hint_;
    Word accept_, cancel_;
};

} // namespace QVM_NAMESPACE
