// Read-outs of a moments state: spatial moments of the shifted image,
// central moments about the centroid, their normalised forms, and the seven
// invariants.
#include <cmath>

#include "primitives/moments/moment_members.h"

namespace pixmoor::moments {
namespace {

// |M(0,0)| must be above 2^-52 before anything divides by it.
constexpr double kSmallestMass = 2.220446049250313e-16;

// Stored moment M(p,q) of a channel block.
inline double Mom(const double* block, int p, int q) { return block[4 * q + p]; }

bool MassTooSmall(const double* block) { return !(std::fabs(Mom(block, 0, 0)) > kSmallestMass); }

// The checks that every single read-out shares, in their order.
PrimStatus CheckReadOut(const ImgMomentState* state, int32_t m, int32_t n, int32_t channel, const double* value) {
    if (state == nullptr || value == nullptr) return PrimStatusNullPointer;
    if (state->magic != ImgMomentStateMagic) return PrimStatusContextMismatch;
    if (static_cast<int64_t>(m) + n > 3) return PrimStatusSizeError;
    if (channel < 0 || channel >= state->channelCount) return PrimStatusBadChannelCount;
    return PrimStatusOk;
}

// Centroid of a channel: xc = M(1,0) / M(0,0), yc = M(0,1) / M(0,0), both
// through one reciprocal.
struct Centroid {
    double xc, yc;
    explicit Centroid(const double* b) {
        const double r = 1.0 / Mom(b, 0, 0);
        xc = r * Mom(b, 1, 0);
        yc = r * Mom(b, 0, 1);
    }
};

// The third-order central moments, each one formula over the stored moments.
double Central30(const double* b, const Centroid& c) {
    return Mom(b, 3, 0) - 3.0 * c.xc * Mom(b, 2, 0) + 2.0 * c.xc * c.xc * Mom(b, 1, 0);
}
double Central03(const double* b, const Centroid& c) {
    return Mom(b, 0, 3) - 3.0 * c.yc * Mom(b, 0, 2) + 2.0 * c.yc * c.yc * Mom(b, 0, 1);
}
double Central12(const double* b, const Centroid& c) {
    return Mom(b, 1, 2) - c.xc * Mom(b, 0, 2) - 2.0 * c.yc * Mom(b, 1, 1) + 2.0 * c.yc * c.yc * Mom(b, 1, 0);
}
double Central21(const double* b, const Centroid& c) {
    return Mom(b, 2, 1) - 2.0 * c.xc * Mom(b, 1, 1) - c.yc * Mom(b, 2, 0) + 2.0 * c.xc * c.xc * Mom(b, 0, 1);
}

// The normalising factor M(0,0)^(-(m + n + 2) / 2).
double NormalisingFactor(double mass, int32_t m, int32_t n) {
    const double order = static_cast<double>(static_cast<int64_t>(m) + n + 2);
    return std::pow(mass, order * -0.5);
}

}  // namespace

PrimStatus SpatialMoment(const ImgMomentState* state, int32_t m, int32_t n, int32_t channel, ImgPoint offset,
                         double* value) {
    const PrimStatus status = CheckReadOut(state, m, n, channel, value);
    if (status != PrimStatusOk) return status;
    if (m < 0 || n < 0) return PrimStatusOk;  // no moment, nothing written
    const double* b = state->channelMoments[channel];
    const double X = offset.x;
    const double Y = offset.y;
    // Each pair expands sum (x+X)^m (y+Y)^n v over the stored moments.
    switch (m * 4 + n) {
        case 0 * 4 + 0: *value = Mom(b, 0, 0); break;
        case 0 * 4 + 1: *value = Mom(b, 0, 1) + Y * Mom(b, 0, 0); break;
        case 0 * 4 + 2: *value = Mom(b, 0, 2) + 2.0 * Y * Mom(b, 0, 1) + Y * Y * Mom(b, 0, 0); break;
        case 0 * 4 + 3:
            *value = Mom(b, 0, 3) + 3.0 * Y * Mom(b, 0, 2) + 3.0 * Y * Y * Mom(b, 0, 1) + Y * Y * Y * Mom(b, 0, 0);
            break;
        case 1 * 4 + 0: *value = Mom(b, 1, 0) + X * Mom(b, 0, 0); break;
        case 1 * 4 + 1: *value = Mom(b, 1, 1) + X * Mom(b, 0, 1) + Y * Mom(b, 1, 0) + X * Y * Mom(b, 0, 0); break;
        case 1 * 4 + 2:
            *value = Mom(b, 1, 2) + X * Mom(b, 0, 2) + 2.0 * Y * Mom(b, 1, 1) + Y * Y * Mom(b, 1, 0) +
                     2.0 * X * Y * Mom(b, 0, 1) + X * Y * Y * Mom(b, 0, 0);
            break;
        case 2 * 4 + 0: *value = Mom(b, 2, 0) + 2.0 * X * Mom(b, 1, 0) + X * X * Mom(b, 0, 0); break;
        case 2 * 4 + 1:
            *value = Mom(b, 2, 1) + Y * Mom(b, 2, 0) + 2.0 * X * Mom(b, 1, 1) + 2.0 * X * Y * Mom(b, 1, 0) +
                     X * X * Mom(b, 0, 1) + X * X * Y * Mom(b, 0, 0);
            break;
        case 3 * 4 + 0:
            *value = Mom(b, 3, 0) + 3.0 * X * Mom(b, 2, 0) + 3.0 * X * X * Mom(b, 1, 0) + X * X * X * Mom(b, 0, 0);
            break;
        default: break;
    }
    return PrimStatusOk;
}

PrimStatus CentralMoment(const ImgMomentState* state, int32_t m, int32_t n, int32_t channel, double* value) {
    const PrimStatus status = CheckReadOut(state, m, n, channel, value);
    if (status != PrimStatusOk) return status;
    const double* b = state->channelMoments[channel];
    if (MassTooSmall(b)) return PrimStatusMomentTooSmall;
    if (m < 0 || n < 0) return PrimStatusOk;  // no moment, nothing written
    const Centroid c(b);
    switch (m * 4 + n) {
        case 0 * 4 + 0: *value = Mom(b, 0, 0); break;
        case 0 * 4 + 1:
        case 1 * 4 + 0: *value = 0.0; break;  // about the centroid, by definition
        case 0 * 4 + 2: *value = Mom(b, 0, 2) - c.yc * Mom(b, 0, 1); break;
        case 2 * 4 + 0: *value = Mom(b, 2, 0) - c.xc * Mom(b, 1, 0); break;
        case 1 * 4 + 1: *value = Mom(b, 1, 1) - c.xc * Mom(b, 0, 1); break;
        case 0 * 4 + 3: *value = Central03(b, c); break;
        case 3 * 4 + 0: *value = Central30(b, c); break;
        case 1 * 4 + 2: *value = Central12(b, c); break;
        case 2 * 4 + 1: *value = Central21(b, c); break;
        default: break;
    }
    return PrimStatusOk;
}

// The normalised read-outs scale whatever the plain read-out left in the
// caller's double; the plain value is there even when the mass test fails.
PrimStatus NormalizedSpatialMoment(const ImgMomentState* state, int32_t m, int32_t n, int32_t channel,
                                   ImgPoint offset, double* value) {
    if (value == nullptr) return PrimStatusNullPointer;
    const PrimStatus status = SpatialMoment(state, m, n, channel, offset, value);
    if (status != PrimStatusOk) return status;
    const double* b = state->channelMoments[channel];
    if (MassTooSmall(b)) return PrimStatusMomentTooSmall;
    *value = *value * NormalisingFactor(Mom(b, 0, 0), m, n);
    return PrimStatusOk;
}

PrimStatus NormalizedCentralMoment(const ImgMomentState* state, int32_t m, int32_t n, int32_t channel,
                                   double* value) {
    if (value == nullptr) return PrimStatusNullPointer;
    const PrimStatus status = CentralMoment(state, m, n, channel, value);
    if (status != PrimStatusOk) return status;
    const double* b = state->channelMoments[channel];
    if (MassTooSmall(b)) return PrimStatusMomentTooSmall;
    *value = *value * NormalisingFactor(Mom(b, 0, 0), m, n);
    return PrimStatusOk;
}

PrimStatus HuMoments(const ImgMomentState* state, int32_t channel, double hu[7]) {
    if (state == nullptr || hu == nullptr) return PrimStatusNullPointer;
    if (state->magic != ImgMomentStateMagic) return PrimStatusContextMismatch;
    if (channel < 0 || channel >= state->channelCount) return PrimStatusBadChannelCount;
    const double* b = state->channelMoments[channel];
    if (MassTooSmall(b)) return PrimStatusMomentTooSmall;

    const Centroid c(b);
    const double n2 = std::pow(Mom(b, 0, 0), -2.0);
    const double n3 = std::pow(Mom(b, 0, 0), -2.5);
    const double e20 = (Mom(b, 2, 0) - c.xc * Mom(b, 1, 0)) * n2;
    const double e02 = (Mom(b, 0, 2) - c.yc * Mom(b, 0, 1)) * n2;
    const double e11 = (Mom(b, 1, 1) - c.xc * Mom(b, 0, 1)) * n2;
    const double e30 = Central30(b, c) * n3;
    const double e21 = Central21(b, c) * n3;
    const double e12 = Central12(b, c) * n3;
    const double e03 = Central03(b, c) * n3;

    const double a = e30 + e12;
    const double bb = e21 + e03;
    const double cc = e30 - 3.0 * e12;
    const double d = 3.0 * e21 - e03;
    const double e = e03 + e12;
    const double diff = e20 - e02;

    hu[0] = e20 + e02;
    hu[1] = diff * diff + 4.0 * e11 * e11;
    hu[2] = cc * cc + d * d;
    hu[3] = a * a + bb * bb;
    // The fifth keeps e = e03 + e12 in its first bracket, where the seventh
    // has a: these are the invariants this library has always returned.
    hu[4] = cc * a * (e * e - 3.0 * bb * bb) + d * bb * (3.0 * a * a - bb * bb);
    hu[5] = diff * (a * a - bb * bb) + 4.0 * e11 * a * bb;
    hu[6] = d * a * (a * a - 3.0 * bb * bb) - cc * bb * (3.0 * a * a - bb * bb);
    return PrimStatusOk;
}

}  // namespace pixmoor::moments
