// Frequencies and levels as they are written on the response curve. Any thread.
#pragma once

#include "BuildNamespace.h"

#include <string>

namespace QVM_NAMESPACE {

// "80 Hz", "1.25 kHz": as sliders have them.
std::string frequencyText(double hertz);
// "50", "2k": of marks.
std::string shortFrequencyText(double hertz);
// "+3.2 dB", with its sign; none for what is rounded to 0. Without tenths from 100 dB on.
std::string levelText(double db);
// "+6", "0 dB": of the grid's lines, in whole decibels. The unit stands once, where the audio passes unchanged.
std::string gridLevelText(int db);
// "+12 ct".
std::string centsText(int cents);

} // namespace QVM_NAMESPACE
