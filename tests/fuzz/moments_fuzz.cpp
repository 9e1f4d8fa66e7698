// Fuzzes the image moments: the six compute members in every tier and under
// their plain names, with null pointers, states that are not valid, steps
// and sizes below 1, steps shorter than a row, and every alignment; then one
// read-out of any kind with any orders, channel and offset.  A call that
// fails must return the status of the first failing check and change
// neither the state nor the caller's value.  A compute that succeeds must
// give the moments of a reference accumulation written here from the
// formulas: bit for bit in the tiers that use the reference order, within
// rounding in w7 (other order) and in a6's single precision form.  Read-outs
// must give the formulas' values of the stored moments.
#include <pixmoor/pixmoor.h>

#include <cmath>

#include "fuzz_support.h"

using namespace pixmoor_fuzz;

namespace {

using ComputeCall = PrimStatus (*)(const uint8_t*, int32_t, int32_t, int32_t, ImgMomentState*);

struct Member {
    const char* name;
    bool isFloat;
    int32_t elements;  // elements a pixel read
    int32_t channels;  // channels counted
    ComputeCall entries[5];
};

#define COMPUTE(fn, T)                                                                                  \
    [](const uint8_t* s, int32_t step, int32_t w, int32_t h, ImgMomentState* st) {                     \
        return fn(reinterpret_cast<const T*>(s), step, w, h, st);                                      \
    }
#define TIERS(name, T) {COMPUTE(name, T), COMPUTE(px_##name, T), COMPUTE(m6_##name, T), COMPUTE(a6_##name, T), COMPUTE(w7_##name, T)}

const Member kMembers[] = {
    {"ImgMoments8uC1", false, 1, 1, TIERS(ImgMoments8uC1, uint8_t)},
    {"ImgMoments8uC3", false, 3, 3, TIERS(ImgMoments8uC3, uint8_t)},
    {"ImgMoments8uAC4", false, 4, 3, TIERS(ImgMoments8uAC4, uint8_t)},
    {"ImgMoments32fC1", true, 1, 1, TIERS(ImgMoments32fC1, float)},
    {"ImgMoments32fC3", true, 3, 3, TIERS(ImgMoments32fC3, float)},
    {"ImgMoments32fAC4", true, 4, 3, TIERS(ImgMoments32fAC4, float)},
};
const char* const kEntryNames[5] = {"plain", "px", "m6", "a6", "w7"};
using AllocCall = PrimStatus (*)(ImgMomentState**, PrimAlgHint);
using FreeCall = PrimStatus (*)(ImgMomentState*);
const AllocCall kAlloc[5] = {ImgMomentStateAlloc, px_ImgMomentStateAlloc, m6_ImgMomentStateAlloc,
                             a6_ImgMomentStateAlloc, w7_ImgMomentStateAlloc};
const FreeCall kFree[5] = {ImgMomentStateFree, px_ImgMomentStateFree, m6_ImgMomentStateFree, a6_ImgMomentStateFree,
                           w7_ImgMomentStateFree};

constexpr double kTiny = 2.220446049250313e-16;

// The reference accumulation: row sums in doubles, then the row's
// contributions in the order the formulas give.
void ReferenceMoments(const Member& m, const uint8_t* src, int32_t step, int32_t w, int32_t h, double out[3][16]) {
    std::memset(out, 0, sizeof(double) * 48);
    for (int32_t y = 0; y < h; ++y) {
        const uint8_t* row = src + static_cast<size_t>(y) * step;
        for (int32_t c = 0; c < m.channels; ++c) {
            double s0 = 0, s1 = 0, s2 = 0, s3 = 0, x = 0;
            for (int32_t i = 0; i < w; ++i, x += 1.0) {
                double v;
                if (m.isFloat) {
                    float f;
                    std::memcpy(&f, row + (static_cast<size_t>(i) * m.elements + c) * 4, 4);
                    v = f;
                } else {
                    v = row[static_cast<size_t>(i) * m.elements + c];
                }
                s0 += v;
                double t = v * x;
                s1 += t;
                t = t * x;
                s2 += t;
                t = t * x;
                s3 += t;
            }
            const double yy = y;
            double* M = out[c];
            M[0] += s0, M[1] += s1, M[2] += s2, M[3] += s3;
            const double a = s0 * yy, b = s1 * yy;
            M[4] += a, M[5] += b, M[6] += s2 * yy;
            const double a2 = a * yy;
            M[8] += a2, M[9] += b * yy, M[12] += a2 * yy;
        }
    }
}

// Sum of the absolute values of the terms of each moment: the scale of its
// rounding error whatever the order of the additions.
void Magnitudes(const Member& m, const uint8_t* src, int32_t step, int32_t w, int32_t h, double out[3][16]) {
    std::memset(out, 0, sizeof(double) * 48);
    for (int32_t y = 0; y < h; ++y)
        for (int32_t c = 0; c < m.channels; ++c)
            for (int32_t i = 0; i < w; ++i) {
                const uint8_t* p = src + static_cast<size_t>(y) * step;
                double v;
                if (m.isFloat) {
                    float f;
                    std::memcpy(&f, p + (static_cast<size_t>(i) * m.elements + c) * 4, 4);
                    v = std::fabs(f);
                } else {
                    v = p[static_cast<size_t>(i) * m.elements + c];
                }
                for (int q = 0; q < 4; ++q)
                    for (int pp = 0; pp + q < 4; ++pp) out[c][4 * q + pp] += v * std::pow(i, pp) * std::pow(y, q);
            }
}

bool Close(double got, double want, double scale, double tolerance) {
    if (std::isnan(got) || std::isnan(want)) return std::isnan(got) && std::isnan(want);
    return std::fabs(got - want) <= tolerance * scale + 1e-300;
}

double Pow(double b, int e) { return std::pow(b, e); }

// Read-outs from the stored moments, as the formulas give them.
double Spatial(const double* M, int m, int n, double X, double Y) {
    switch (m * 4 + n) {
        case 0: return M[0];
        case 1: return M[4] + Y * M[0];
        case 2: return M[8] + 2 * Y * M[4] + Y * Y * M[0];
        case 3: return M[12] + 3 * Y * M[8] + 3 * Y * Y * M[4] + Pow(Y, 3) * M[0];
        case 4: return M[1] + X * M[0];
        case 5: return M[5] + X * M[4] + Y * M[1] + X * Y * M[0];
        case 6: return M[9] + X * M[8] + 2 * Y * M[5] + Y * Y * M[1] + 2 * X * Y * M[4] + X * Y * Y * M[0];
        case 8: return M[2] + 2 * X * M[1] + X * X * M[0];
        case 9: return M[6] + Y * M[2] + 2 * X * M[5] + 2 * X * Y * M[1] + X * X * M[4] + X * X * Y * M[0];
        case 12: return M[3] + 3 * X * M[2] + 3 * X * X * M[1] + Pow(X, 3) * M[0];
    }
    return 0;
}

double Central(const double* M, int m, int n) {
    const double r = 1.0 / M[0], xc = r * M[1], yc = r * M[4];
    switch (m * 4 + n) {
        case 0: return M[0];
        case 1:
        case 4: return 0.0;
        case 2: return M[8] - yc * M[4];
        case 8: return M[2] - xc * M[1];
        case 5: return M[5] - xc * M[4];
        case 3: return M[12] - 3 * yc * M[8] + 2 * yc * yc * M[4];
        case 12: return M[3] - 3 * xc * M[2] + 2 * xc * xc * M[1];
        case 6: return M[9] - xc * M[8] - 2 * yc * M[5] + 2 * yc * yc * M[1];
        case 9: return M[6] - 2 * xc * M[5] - yc * M[2] + 2 * xc * xc * M[4];
    }
    return 0;
}

void Hu(const double* M, double hu[7]) {
    const double n2 = std::pow(M[0], -2.0), n3 = std::pow(M[0], -2.5);
    const double e20 = Central(M, 2, 0) * n2, e02 = Central(M, 0, 2) * n2, e11 = Central(M, 1, 1) * n2;
    const double e30 = Central(M, 3, 0) * n3, e21 = Central(M, 2, 1) * n3, e12 = Central(M, 1, 2) * n3,
                 e03 = Central(M, 0, 3) * n3;
    const double a = e30 + e12, b = e21 + e03, c = e30 - 3 * e12, d = 3 * e21 - e03, e = e03 + e12;
    hu[0] = e20 + e02;
    hu[1] = (e20 - e02) * (e20 - e02) + 4 * e11 * e11;
    hu[2] = c * c + d * d;
    hu[3] = a * a + b * b;
    hu[4] = c * a * (e * e - 3 * b * b) + d * b * (3 * a * a - b * b);
    hu[5] = (e20 - e02) * (a * a - b * b) + 4 * e11 * a * b;
    hu[6] = d * a * (a * a - 3 * b * b) - c * b * (3 * a * a - b * b);
}

// The size of the terms a read-out adds up, for the rounding allowed.
double ReadOutScale(const double* M, const ImgPoint& offset) {
    double sum = 0;
    for (int i = 0; i < 16; ++i) sum += std::fabs(M[i]);
    const double reach = 1 + std::fabs(static_cast<double>(offset.x)) + std::fabs(static_cast<double>(offset.y));
    const double r = std::fabs(M[0]) > 0 ? std::fabs(1.0 / M[0]) : 0;
    const double centre = 1 + r * sum;
    return sum * reach * reach * reach * centre * centre * 8;
}

// The Hu formulas over magnitudes: a bound of the terms each result adds up.
void HuScale(const double* M, double out[7]) {
    const double n2 = std::fabs(std::pow(M[0], -2.0)), n3 = std::fabs(std::pow(M[0], -2.5));
    double abs[16];
    for (int i = 0; i < 16; ++i) abs[i] = std::fabs(M[i]);
    const double r = 1.0 / abs[0], xc = r * abs[1], yc = r * abs[4];
    const double e20 = (abs[2] + xc * abs[1]) * n2, e02 = (abs[8] + yc * abs[4]) * n2, e11 = (abs[5] + xc * abs[4]) * n2;
    const double e30 = (abs[3] + 3 * xc * abs[2] + 2 * xc * xc * abs[1]) * n3;
    const double e03 = (abs[12] + 3 * yc * abs[8] + 2 * yc * yc * abs[4]) * n3;
    const double e12 = (abs[9] + xc * abs[8] + 2 * yc * abs[5] + 2 * yc * yc * abs[1]) * n3;
    const double e21 = (abs[6] + 2 * xc * abs[5] + yc * abs[2] + 2 * xc * xc * abs[4]) * n3;
    const double a = e30 + e12, b = e21 + e03, c = e30 + 3 * e12, d = 3 * e21 + e03, e = e03 + e12;
    out[0] = e20 + e02;
    out[1] = (e20 + e02) * (e20 + e02) + 4 * e11 * e11;
    out[2] = c * c + d * d;
    out[3] = a * a + b * b;
    out[4] = c * a * (e * e + 3 * b * b) + d * b * (3 * a * a + b * b);
    out[5] = (e20 + e02) * (a * a + b * b) + 4 * e11 * a * b;
    out[6] = d * a * (a * a + 3 * b * b) + c * b * (3 * a * a + b * b);
}

void CheckReadOut(FuzzInput& in, ImgMomentState* state, bool stateValid, bool nullState) {
    const uint8_t kind = in.Byte() % 5;
    const int32_t m = static_cast<int8_t>(in.Byte()) % 5, n = static_cast<int8_t>(in.Byte()) % 5;
    const int32_t channel = static_cast<int8_t>(in.Byte()) % 5;
    const ImgPoint offset{static_cast<int8_t>(in.Byte()), static_cast<int8_t>(in.Byte())};
    const bool nullOut = in.Byte() == 0xFF;
    const ImgMomentState* st = nullState ? nullptr : state;
    const double canary = -1234.5;
    double value[7] = {canary, canary, canary, canary, canary, canary, canary};
    double* out = nullOut ? nullptr : value;
    std::vector<uint8_t> stateBefore;
    if (st) stateBefore.assign(reinterpret_cast<const uint8_t*>(st), reinterpret_cast<const uint8_t*>(st) + sizeof *st);

    const double* M = st && st->channelCount > 0 && channel >= 0 && channel < st->channelCount ? st->channelMoments[channel] : nullptr;
    const bool channelOk = st && channel >= 0 && channel < st->channelCount;
    const bool tiny = M == nullptr || !(std::fabs(M[0]) > kTiny);
    const bool magicOk = st && st->magic == ImgMomentStateMagic;
    (void)stateValid;
    // The plain read-outs' checks in order; 0 with nothing written for a
    // negative order.
    auto plainStatus = [&](bool central) -> PrimStatus {
        if (!st || !out) return PrimStatusNullPointer;
        if (!magicOk) return PrimStatusContextMismatch;
        if (m + n > 3) return PrimStatusSizeError;
        if (!channelOk) return PrimStatusBadChannelCount;
        if (central && tiny) return PrimStatusMomentTooSmall;
        return PrimStatusOk;
    };
    PrimStatus status, expected;
    double want = canary;
    bool writes = false;
    const bool negative = m < 0 || n < 0;
    switch (kind) {
        case 0:
        case 1: {
            const bool central = kind == 1;
            expected = plainStatus(central);
            status = central ? ImgGetCentralMoment(st, m, n, channel, out)
                             : ImgGetSpatialMoment(st, m, n, channel, offset, out);
            writes = expected == PrimStatusOk && !negative;
            if (writes) want = central ? Central(M, m, n) : Spatial(M, m, n, offset.x, offset.y);
            break;
        }
        case 2:
        case 3: {
            const bool central = kind == 3;
            expected = !out ? PrimStatusNullPointer : plainStatus(central);
            if (expected == PrimStatusOk && tiny) expected = PrimStatusMomentTooSmall;
            status = central ? ImgGetNormalizedCentralMoment(st, m, n, channel, out)
                             : ImgGetNormalizedSpatialMoment(st, m, n, channel, offset, out);
            // The plain value lands first; the factor follows only on success.
            const PrimStatus plain = !out ? PrimStatusNullPointer : plainStatus(central);
            if (plain == PrimStatusOk) {
                writes = true;
                want = negative ? canary : central ? Central(M, m, n) : Spatial(M, m, n, offset.x, offset.y);
                if (expected == PrimStatusOk) want *= std::pow(M[0], (m + n + 2) * -0.5);
            }
            break;
        }
        default: {
            expected = !st || !out ? PrimStatusNullPointer
                       : !magicOk  ? PrimStatusContextMismatch
                       : !channelOk ? PrimStatusBadChannelCount
                       : tiny       ? PrimStatusMomentTooSmall
                                    : PrimStatusOk;
            status = ImgGetHuMoments(st, channel, out);
            if (expected == PrimStatusOk) {
                double hu[7], scale[7];
                Hu(M, hu);
                HuScale(M, scale);
                for (int i = 0; i < 7; ++i) {
                    FUZZ_CHECK(Close(value[i], hu[i], scale[i] * 64, 1e-12), "Hu moment %d is %.17g, formula %.17g", i + 1,
                               value[i], hu[i]);
                }
            } else {
                for (int i = 0; i < 7; ++i) FUZZ_CHECK(value[i] == canary, "Hu moments written after a failure");
            }
        }
    }
    FUZZ_CHECK(status == expected, "read-out %d (%d,%d) channel %d: status %d, expected %d", kind, m, n, channel,
               status, expected);
    if (st)
        FUZZ_CHECK(std::memcmp(st, stateBefore.data(), sizeof *st) == 0, "a read-out changed the state");
    if (kind < 4 && out) {
        if (!writes)
            FUZZ_CHECK(value[0] == canary, "read-out %d wrote after status %d", kind, status);
        else
            FUZZ_CHECK(Close(value[0], want, std::fabs(want) + ReadOutScale(M, offset), 1e-13),
                       "read-out %d (%d,%d) offset %d,%d: %.17g, formula %.17g", kind, m, n, offset.x, offset.y,
                       value[0], want);
    }
    for (int i = 1; i < 7 && kind < 4; ++i) FUZZ_CHECK(value[i] == canary, "a read-out wrote past its value");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const IsaCeiling isa(data, size);
    FuzzInput in(data, size);
    const Member& m = kMembers[in.Below(6)];
    const uint32_t entry = in.Below(5);
    const uint8_t hintHow = in.Byte();
    const PrimAlgHint hint = static_cast<PrimAlgHint>(hintHow < 100 ? 1 : hintHow < 200 ? 2 : hintHow);

    // The state: allocated, or one of the caller's with another magic, or null.
    const uint8_t stateHow = in.Byte();
    ImgMomentState* state = nullptr;
    ImgMomentState foreign{};
    const bool nullState = stateHow == 0xFF;
    if (stateHow == 0xFE) {
        foreign.magic = static_cast<int32_t>(in.U32());
        if (foreign.magic == ImgMomentStateMagic) foreign.magic = 0;
        foreign.channelCount = 3;
        state = &foreign;
    } else {
        FUZZ_CHECK(kAlloc[entry](nullptr, hint) == PrimStatusNullPointer, "allocating into a null pointer");
        FUZZ_CHECK(kAlloc[entry](&state, hint) == PrimStatusOk && state != nullptr, "allocation");
        FUZZ_CHECK(state->magic == ImgMomentStateMagic && state->channelCount == -1 && state->hint == hint,
                   "a new state");
    }

    int32_t width = in.Length(48), height = in.Length(24);
    if (width > 256) width = 1 + width % 256;  // keep an accepted image small
    if (height > 128) height = 1 + height % 128;
    const int32_t pixelBytes = m.elements * (m.isFloat ? 4 : 1);
    const int32_t rowBytes = width >= 1 ? width * pixelBytes : pixelBytes;
    const uint8_t stepHow = in.Byte();
    int32_t step = stepHow < 180 ? rowBytes + in.Byte() % 20
                   : stepHow < 200 ? rowBytes - 1 - in.Byte() % 4
                   : stepHow < 220 ? 0
                   : stepHow < 240 ? -static_cast<int32_t>(in.Byte())
                                   : in.I32();
    if (step > 1 << 14) step = 1 + step % (1 << 14);
    const bool nullSrc = in.Byte() == 0xFF;
    const size_t misalign = in.Byte() % 16;

    PrimStatus expected = PrimStatusOk;
    if (nullSrc || nullState)
        expected = PrimStatusNullPointer;
    else if (state->magic != ImgMomentStateMagic)
        expected = PrimStatusContextMismatch;
    else if (step < 1)
        expected = PrimStatusStepError;
    else if (width < 1 || height < 1)
        expected = PrimStatusSizeError;
    else if (static_cast<int64_t>(width) * pixelBytes > step)
        expected = PrimStatusStrideTooSmall;
    const bool accepted = expected == PrimStatusOk;
    const int32_t w = accepted ? width : 0, h = accepted ? height : 0;
    ExactBuffer image(accepted ? static_cast<size_t>(h - 1) * step + static_cast<size_t>(w) * pixelBytes : 8,
                      misalign);
    if (m.isFloat) {
        // Finite values at every sample the rows hold (a step need not be a
        // whole number of floats): small integers mostly, now and then any
        // fraction.
        std::memset(image.data(), 0, image.size());
        for (int32_t y = 0; y < h; ++y)
            for (int32_t i = 0; i < w * m.elements; ++i) {
                const uint8_t b = in.Byte();
                const float f = b < 200 ? static_cast<float>(static_cast<int>(b) - 60)
                                        : static_cast<float>(static_cast<int32_t>(in.U32() % 2000001) - 1000000) / 997.0f;
                std::memcpy(image.data() + static_cast<size_t>(y) * step + static_cast<size_t>(i) * 4, &f, 4);
            }
    } else {
        in.Fill(image.data(), image.size());
    }
    std::vector<uint8_t> stateBefore;
    if (state) stateBefore.assign(reinterpret_cast<uint8_t*>(state), reinterpret_cast<uint8_t*>(state) + sizeof *state);

    const PrimStatus status = m.entries[entry](nullSrc ? nullptr : image.data(), step, width, height,
                                               nullState ? nullptr : state);
    FUZZ_CHECK(status == expected, "%s %s %dx%d step %d: status %d, expected %d", m.name, kEntryNames[entry], width,
               height, step, status, expected);
    if (!accepted && state)
        FUZZ_CHECK(std::memcmp(state, stateBefore.data(), sizeof *state) == 0, "%s %s changed the state on failure",
                   m.name, kEntryNames[entry]);
    if (accepted) {
        FUZZ_CHECK(state->channelCount == (m.channels == 1 ? 1 : 3), "channelCount %d", state->channelCount);
        double want[3][16], scale[3][16];
        ReferenceMoments(m, image.data(), step, w, h, want);
        Magnitudes(m, image.data(), step, w, h, scale);
        // The plain names run px: nothing in this program selects a tier.
        const int tier = entry == 0 ? 0 : static_cast<int>(entry) - 1;
        const bool reference = tier <= 1 || (tier == 2 && hint == 2);
        const double tolerance = reference ? 0.0 : tier == 3 ? 1e-12 : 1e-5;
        for (int32_t c = 0; c < m.channels; ++c)
            for (int i = 0; i < 16; ++i) {
                const double got = state->channelMoments[c][i];
                const bool ok = reference ? got == want[c][i] || (std::isnan(got) && std::isnan(want[c][i]))
                                          : Close(got, want[c][i], scale[c][i], tolerance);
                FUZZ_CHECK(ok, "%s %s hint %d %dx%d channel %d moment %d: %.17g, reference %.17g", m.name,
                           kEntryNames[entry], hint, w, h, c, i, got, want[c][i]);
            }
    }

    CheckReadOut(in, state, accepted, nullState);

    if (state == &foreign) {
        FUZZ_CHECK(kFree[entry](state) == PrimStatusContextMismatch, "freeing a state that is not valid");
    } else if (state) {
        FUZZ_CHECK(kFree[entry](state) == PrimStatusOk, "free");
    }
    FUZZ_CHECK(kFree[entry](nullptr) == PrimStatusNullPointer, "freeing null");
    return 0;
}
