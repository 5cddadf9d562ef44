#include "viz/displays/QVMStereoscope.h"

#include "platform/vector/VectorMath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace QVM_NAMESPACE {

namespace {

struct SizeForRate {
    double highestRate; // hertz
    unsigned points;
};
constexpr SizeForRate kSizes[] = {{48000, 4096}, {96000, 8192}};
constexpr unsigned kLargestSize = 16384;

constexpr QVMFloat32Range kFrequencies = {20, 20000};    // hertz, from the inner ring to the rim
constexpr float kInnerShare = 0.1f, kOuterShare = 0.97f; // of the half disc's radius
constexpr float kBandHeight = 1.25f;                     // points
constexpr std::size_t kLeastBands = 24;
constexpr float kFaintest = -14.7365f; // neper: -128 dB
constexpr float kDecibelsPerNeper = 8.685889f;

unsigned sizeFor(double sampleRate) {
    for (const SizeForRate& size : kSizes)
        if (sampleRate <= size.highestRate) return size.points;
    return kLargestSize;
}

} // namespace

void QVMStereoscope::init(PBGLCanvas canvas, float sampleRate, unsigned maxFrames) {
    canvas_ = canvas;
    sampleRate_ = double{sampleRate};
    fftSize_ = sizeFor(sampleRate_);
    numBins_ = fftSize_ / 2;
    tap_.init(fftSize_ + framesOfAFrame(sampleRate_, maxFrames));
    dft_ = std::make_unique<QVMDFT2<float>>(fftSize_, QVMDFT2RealForward);
    window_.resize(fftSize_);
    for (std::size_t i = 0; i < window_.size(); ++i) {
        const double angle = 2 * std::numbers::pi * static_cast<double>(i) / fftSize_;
        window_[i] = static_cast<float>(std::sqrt(2.0 / 3) * (1 - std::cos(angle)));
    }
    for (std::vector<float>* samples : {&left_, &right_})
        samples->assign(fftSize_, 0);
    for (Spectrum* bins : {&leftBins_, &rightBins_, &sumBins_})
        bins->re = bins->im = std::vector<float>(numBins_);
    for (std::vector<float>* bins : {&pan_, &width_, &atLeft_, &atRight_, &mid_, &side_})
        bins->assign(numBins_, 0);
    levelDb_.assign(numBins_, kFaintest * kDecibelsPerNeper);
    const float height = (radiusOf(kFrequencies.max) - radiusOf(kFrequencies.min)) / kBandHeight;
    spectrum_.init(kFrequencies, std::max(kLeastBands, static_cast<std::size_t>(std::max(height, 0.0f))),
                   sampleRate / static_cast<float>(fftSize_), numBins_);
}

void QVMStereoscope::processAudio(const QVMAudioBuffer<float>* buffer, unsigned nFrames) {
    tap_.append(*buffer, nFrames);
}

void QVMStereoscope::transform(std::vector<float>& samples, Spectrum& out) {
    vectors::multiply(samples.data(), window_.data(), samples.data(), fftSize_);
    vectors::deinterleave(samples.data(), 1, out.re.data(), out.im.data(), numBins_);
    dft_->process(out.re.data(), out.im.data(), out.re.data(), out.im.data());
    out.im[0] = 0; // the term of the Nyquist frequency
}

void QVMStereoscope::magnitudeOf(const Spectrum& spectrum, std::vector<float>& out) const {
    vectors::magnitude(spectrum.re.data(), spectrum.im.data(), out.data(), numBins_);
}

// Window and transform are linear: those of the sum and of the difference are the sum and the difference of those of
// the sides, and need no transforms of their own.
void QVMStereoscope::processAudioData(int offset) {
    tap_.copyFrom(static_cast<unsigned>(std::max(0, offset)), fftSize_, left_.data(), right_.data());
    transform(left_, leftBins_);
    transform(right_, rightBins_);
    magnitudeOf(leftBins_, atLeft_);
    magnitudeOf(rightBins_, atRight_);
    const auto combine = [this](float sign, std::vector<float>& out) {
        vectors::multiplyAdd(rightBins_.re.data(), sign, leftBins_.re.data(), sumBins_.re.data(), numBins_);
        vectors::multiplyAdd(rightBins_.im.data(), sign, leftBins_.im.data(), sumBins_.im.data(), numBins_);
        magnitudeOf(sumBins_, out);
    };
    combine(1, mid_);
    combine(-1, side_);

    constexpr float perRadian = std::numbers::inv_pi_v<float>;
    vectors::angle(atRight_.data(), atLeft_.data(), pan_.data(), numBins_);
    vectors::scaleAndOffset(pan_.data(), 4 * perRadian, -1, pan_.data(), numBins_);
    vectors::angle(side_.data(), mid_.data(), width_.data(), numBins_);
    vectors::scaleAndOffset(width_.data(), 2 * perRadian, 0, width_.data(), numBins_);
    const float scale = 0.5f / static_cast<float>(numBins_);
    for (std::size_t i = 0; i < numBins_; ++i) {
        const float level = std::max(atLeft_[i], atRight_[i]) * scale;
        pan_[i] = level == 0 ? 0 : pan_[i];
        width_[i] = level == 0 ? 0 : width_[i];
        atLeft_[i] = level;
    }
    vectors::clip(atLeft_.data(), std::exp(kFaintest), 1, atLeft_.data(), numBins_);
    vectors::log(atLeft_.data(), levelDb_.data(), numBins_);
    vectors::scaleAndOffset(levelDb_.data(), kDecibelsPerNeper, 0, levelDb_.data(), numBins_);
}

Redraw QVMStereoscope::prepareForDrawing(float dt) {
    const double wanted = std::floor(double{dt} * sampleRate_);
    if (!(wanted >= 1)) return Redraw::no;
    const auto frames = static_cast<unsigned>(std::min(wanted, static_cast<double>(tap_.capacity())));
    const std::optional<unsigned> offset = tap_.advance(frames, fftSize_);
    if (!offset) return Redraw::no;
    processAudioData(static_cast<int>(*offset));
    spectrum_.take(atLeft_.data(), pan_.data(), width_.data(), dt);
    return Redraw::yes;
}

float QVMStereoscope::radiusOf(float hertz) const {
    const float whole = std::min(canvas_.width / 2, canvas_.height);
    const float share = std::log(hertz / kFrequencies.min) / std::log(kFrequencies.max / kFrequencies.min);
    return whole * (kInnerShare + (kOuterShare - kInnerShare) * share);
}

Vertex QVMStereoscope::pointAt(float radius, float position) const {
    const float angle = position * std::numbers::pi_v<float> / 2;
    return {canvas_.width / 2 + radius * std::sin(angle), radius * std::cos(angle)};
}

} // namespace QVM_NAMESPACE
