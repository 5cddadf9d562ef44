#include "viz/analysis/QVMDFT2.h"

#include "platform/vector/VectorMath.h"

#include <algorithm>
#include <fftw3.h>

namespace QVM_NAMESPACE {

namespace {

constexpr float kRealForwardScale = 2;

// The library makes one plan at a time; from here on it sees to that itself, for whoever else in the process uses it.
void makePlanningThreadSafe() {
    [[maybe_unused]] static const bool once = [] {
        fftwf_make_planner_thread_safe();
        return true;
    }();
}

} // namespace

template <class T>
QVMDFT2<T>::QVMDFT2(unsigned n, QVMDFT2Type type) : type_(type), n_(n) {
    if (n == 0 || (isReal() && n % 2 != 0)) return;
    makePlanningThreadSafe();
    float* const block = fftwf_alloc_real(work_.size() * n);
    if (!block) return;
    std::fill_n(block, work_.size() * n, 0.0f);
    for (std::size_t i = 0; i < work_.size(); ++i)
        work_[i] = block + i * n;
    const auto complexAt = [](float* samples) { return reinterpret_cast<fftwf_complex*>(samples); };
    const auto points = static_cast<int>(n);
    float *const in = work_[0], *const out = work_[2];
    if (!isReal()) {
        setup_ = fftwf_plan_dft_1d(points, complexAt(in), complexAt(out), isForward() ? FFTW_FORWARD : FFTW_BACKWARD,
                                   FFTW_ESTIMATE);
    } else if (isForward()) {
        setup_ = fftwf_plan_dft_r2c_1d(points, in, complexAt(out), FFTW_ESTIMATE);
    } else {
        setup_ = fftwf_plan_dft_c2r_1d(points, complexAt(in), out, FFTW_ESTIMATE);
    }
}

template <class T>
QVMDFT2<T>::~QVMDFT2() {
    if (setup_) fftwf_destroy_plan(static_cast<fftwf_plan>(setup_));
    fftwf_free(work_[0]);
}

template <class T>
void QVMDFT2<T>::process(T* inReal, T* inImag, T* outReal, T* outImag) {
    if (setup_) return executeFFT(setup_, inReal, inImag, outReal, outImag);
    const std::size_t count = isReal() ? half() : n_;
    std::fill_n(outReal, count, T{});
    std::fill_n(outImag, count, T{});
}

template <class T>
void QVMDFT2<T>::executeFFT(void* setup, T* inReal, T* inImag, T* outReal, T* outImag) {
    const std::size_t count = isReal() ? half() : n_;
    T *const in = work_[0], *const out = work_[2];
    vectors::interleave(inReal, inImag, in, count);
    if (isReal() && !isForward()) { // the term that was packed beside the constant one has a place of its own
        in[n_] = in[1];
        in[1] = in[n_ + 1] = 0;
    }
    fftwf_execute(static_cast<fftwf_plan>(setup));
    vectors::deinterleave(out, isReal() && isForward() ? kRealForwardScale : 1.0f, outReal, outImag, count);
    if (isReal() && isForward()) outImag[0] = out[n_] * kRealForwardScale;
}

template class QVMDFT2<float>;

} // namespace QVM_NAMESPACE
