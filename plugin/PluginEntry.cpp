// The one function that the toolkit's format wrappers look for.
#include "plugin/SlantwiseProcessor.h"

juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter() {
    return new slantwise::SlantwiseProcessor();
}
