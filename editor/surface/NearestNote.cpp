#include "editor/surface/NearestNote.h"

#include <array>
#include <cmath>

namespace QVM_NAMESPACE {

namespace {

constexpr std::array<const char*, 12> kNames = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
constexpr int kNotes = static_cast<int>(kNames.size()); // in an octave
constexpr double kTuningHertz = 440;
constexpr int kTuningNote = 4 * kNotes + 9; // A4, counted from C0
constexpr double kCents = 100;              // in a note

} // namespace

NearestNote nearestNote(double hertz) {
    const double exact = kTuningNote + kNotes * std::log2(hertz / kTuningHertz);
    const auto note = static_cast<int>(std::lround(exact));
    const auto octave = static_cast<int>(std::floor(static_cast<double>(note) / kNotes));
    return {kNames[static_cast<std::size_t>(note - octave * kNotes)] + std::to_string(octave),
            static_cast<int>(std::lround((exact - note) * kCents))};
}

} // namespace QVM_NAMESPACE
