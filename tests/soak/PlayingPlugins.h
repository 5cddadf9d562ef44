// Instances of the plug-in that a render thread plays all the while, with editors that come and go.
#pragma once

#include "plugin/SlantwiseEditor.h"
#include "plugin/SlantwiseProcessor.h"

#include <atomic>
#include <memory>
#include <random>
#include <thread>
#include <vector>

namespace QVM_NAMESPACE {

class PlayingPlugins {
public:
    using Random = std::mt19937;
    enum class Editors : bool { inMemory, inWindows }; // the latter need a display

    PlayingPlugins(std::size_t count, Editors editors);
    ~PlayingPlugins();
    PlayingPlugins(const PlayingPlugins&) = delete;
    PlayingPlugins& operator=(const PlayingPlugins&) = delete;

    std::size_t count() const { return plugins_.size(); }
    long blocksPlayed() const { return blocks_; }

    // Main thread, all of these.
    bool isOpen(std::size_t at) const { return plugins_[at].editor != nullptr; }
    void open(std::size_t at);
    void close(std::size_t at);
    void closeAll();
    SlantwiseEditor& editor(std::size_t at) { return *plugins_[at].editor; }
    // Something that a user or a host may do to the plug-in, with its editor open.
    void disturb(std::size_t at, Random& random);

private:
    struct Plugin {
        std::unique_ptr<SlantwiseProcessor> processor = std::make_unique<SlantwiseProcessor>();
        std::unique_ptr<SlantwiseEditor> editor;
        std::unique_ptr<juce::DocumentWindow> window; // holds the editor
    };

    void play();
    void drag(SlantwiseEditor& editor, Random& random);

    const Editors editors_;
    std::vector<Plugin> plugins_;
    std::atomic<bool> isDone_ = false;
    std::atomic<long> blocks_ = 0;
    std::thread thread_;
};

} // namespace QVM_NAMESPACE
