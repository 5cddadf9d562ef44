// Discrete Fourier transforms of split arrays: real parts in one, imaginary parts in the other.
//
// With n points, e = exp(-2 pi i / n) and z = inReal + i inImag:
//  - complex forward: out[k] = sum of z[j] e^(jk); complex inverse: the same with e^(-jk). Arrays of n floats.
//  - packed real forward: twice the sums of a real signal's samples. The samples come in pairs: even ones in inReal,
//    odd ones in inImag, n / 2 each. Bins 1 to n / 2 - 1 go out as they are; outReal[0] is the constant term and
//    outImag[0] that of the Nyquist frequency, which are both real.
//  - packed real inverse: takes such bins and gives the samples in pairs.
// No direction divides by anything: forward and then inverse give n times the complex input, 2 n times the real one.
#pragma once

#include "BuildNamespace.h"

#include <array>

namespace QVM_NAMESPACE {

// Odd types are inverse. The second of each two works like the first.
enum QVMDFT2Type : int {
    QVMDFT2ComplexForward = 0,
    QVMDFT2ComplexInverse = 1,
    QVMDFT2ComplexForwardAlternate = 2,
    QVMDFT2ComplexInverseAlternate = 3,
    QVMDFT2RealForward = 4,
    QVMDFT2RealInverse = 5,
    QVMDFT2RealForwardAlternate = 6,
    QVMDFT2RealInverseAlternate = 7,
};

template <class T>
class QVMDFT2 {
public:
    // Makes the set-up, which takes its time: not for the render thread, but any number of threads may do so at once.
    // There is none for no points at all, nor for real transforms of an odd number of them.
    QVMDFT2(unsigned n, QVMDFT2Type type);
    ~QVMDFT2();
    QVMDFT2(const QVMDFT2&) = delete;
    QVMDFT2& operator=(const QVMDFT2&) = delete;

    // Transforms, or gives zeros without a set-up. Outputs may be the inputs. One thread at a time, any thread; never
    // allocates or blocks.
    void process(T* inReal, T* inImag, T* outReal, T* outImag);

    bool useDFT() const { return setup_ != nullptr; } // there is a set-up
    QVMDFT2Type type() const { return type_; }
    bool isForward() const { return type_ % 2 == 0; }
    bool isReal() const { return type_ >= QVMDFT2RealForward; }
    void* setup() const { return setup_; } // ours
    unsigned size() const { return n_; }
    unsigned half() const { return n_ / 2; }

    // Transforms with a set-up of this type and size, as `process` does with its own. Likewise.
    void executeFFT(void* setup, T* inReal, T* inImag, T* outReal, T* outImag);

private:
    QVMDFT2Type type_;
    unsigned n_;
    std::array<T*, 4> work_{}; // n floats each, one behind the other: two for what goes in, two for what comes out
    void* setup_ = nullptr;
};

extern template class QVMDFT2<float>;

} // namespace QVM_NAMESPACE
