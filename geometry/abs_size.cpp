#include <pixmoor/geometry.h>

namespace {
// Two's complement absolute value: INT32_MIN stays INT32_MIN.
int32_t WrappingAbs(int32_t v) {
    const uint32_t u = static_cast<uint32_t>(v);
    return static_cast<int32_t>(v < 0 ? 0u - u : u);
}

int32_t WrappingArea(const AbsSIZE& s) {
    return static_cast<int32_t>(static_cast<uint32_t>(s.cx) * static_cast<uint32_t>(s.cy));
}
}  // namespace

AbsSIZE::AbsSIZE() : cx(0), cy(0) {}
AbsSIZE::AbsSIZE(int32_t width, int32_t height) : cx(WrappingAbs(width)), cy(WrappingAbs(height)) {}
AbsSIZE::AbsSIZE(const AbsSIZE& other) = default;
AbsSIZE::AbsSIZE(const tagSIZE& size) : cx(WrappingAbs(size.cx)), cy(WrappingAbs(size.cy)) {}

AbsSIZE& AbsSIZE::operator=(const AbsSIZE& other) = default;

AbsSIZE& AbsSIZE::operator=(const tagSIZE& size) {
    cx = WrappingAbs(size.cx);
    cy = WrappingAbs(size.cy);
    return *this;
}

bool AbsSIZE::operator==(const AbsSIZE& other) const { return cx == other.cx && cy == other.cy; }

bool AbsSIZE::operator<(const AbsSIZE& other) const { return WrappingArea(*this) < WrappingArea(other); }
