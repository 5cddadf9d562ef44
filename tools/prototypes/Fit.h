// Least-squares fits of second-order sections in the analog domain to a magnitude over frequency.
//
// A section is (1 + kn s/wn + (s/wn)^2) / (1 + kd s/wd + (s/wd)^2); its four parameters are the logarithms of the two
// corners and of the two dampings, so that a pair of poles passes from complex to real (k = 2) without a seam. The fit
// is that of Levenberg (1944) and Marquardt (1963) on the level in nepers.
#pragma once

#include <vector>

namespace prototypes {

struct Pair {
    double corner = 0;     // ln w
    double damping = 0;    // ln k
    bool isSingle = false; // 1 + s/w: the other one is at infinity, and the damping means nothing
};
struct Section {
    Pair num, den;
};
using Cascade = std::vector<Section>;

struct Target {
    std::vector<double> x;      // ln w
    std::vector<double> level;  // nepers
    std::vector<double> weight; // relative
};

// ln |1 + k jw + (jw)^2| and its derivatives by the pair's corner and damping.
double levelOf(const Pair& pair, double x, double* byCorner = nullptr, double* byDamping = nullptr);
double levelOf(const Cascade& cascade, double x);

// Improves `cascade` from where it stands. `stay` pulls the parameters towards where they started. Returns the largest
// weighted error left, in dB.
double fit(Cascade& cascade, const Target& target, double stay, int iterations);

} // namespace prototypes
