// A plug-in of the toolkit that does nothing: stripes to look at, audio handed through.
#include <juce_audio_processors/juce_audio_processors.h>

namespace {

class BareEditor final : public juce::AudioProcessorEditor {
public:
    explicit BareEditor(juce::AudioProcessor& owner) : juce::AudioProcessorEditor(owner) {
        setOpaque(true);
        setSize(480, 320);
    }

    // Something to tell from a window that nobody has painted yet.
    void paint(juce::Graphics& g) override {
        constexpr int stripe = 8;
        g.fillAll(juce::Colours::white);
        g.setColour(juce::Colours::black);
        for (int x = 0; x < getWidth(); x += 2 * stripe)
            g.fillRect(x, 0, stripe, getHeight());
    }
};

class BareProcessor final : public juce::AudioProcessor {
public:
    BareProcessor()
        : juce::AudioProcessor(BusesProperties()
                                   .withInput("Input", juce::AudioChannelSet::stereo())
                                   .withOutput("Output", juce::AudioChannelSet::stereo())) {}

    const juce::String getName() const override { return "Bare"; }
    void prepareToPlay(double, int) override {}
    void releaseResources() override {}
    void processBlock(juce::AudioBuffer<float>&, juce::MidiBuffer&) override {}
    double getTailLengthSeconds() const override { return 0; }
    bool acceptsMidi() const override { return false; }
    bool producesMidi() const override { return false; }
    juce::AudioProcessorEditor* createEditor() override { return new BareEditor(*this); }
    bool hasEditor() const override { return true; }
    int getNumPrograms() override { return 1; }
    int getCurrentProgram() override { return 0; }
    void setCurrentProgram(int) override {}
    const juce::String getProgramName(int) override { return {}; }
    void changeProgramName(int, const juce::String&) override {}
    void getStateInformation(juce::MemoryBlock&) override {}
    void setStateInformation(const void*, int) override {}
};

} // namespace

juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter() {
    return new BareProcessor;
}
