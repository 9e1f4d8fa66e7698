// Where Y, U and V stand in one 4-byte pixel pair of the packed 4:2:2 formats.
#ifndef PIXMOOR_COLOUR_PACKED_LAYOUTS_H
#define PIXMOOR_COLOUR_PACKED_LAYOUTS_H

namespace pixmoor {

// "YUY2": Y0 U Y1 V.
struct LayoutYUY2 {
    static constexpr int kYLeft = 0, kU = 1, kYRight = 2, kV = 3;
};

// "UYVY": U Y0 V Y1.
struct LayoutUYVY {
    static constexpr int kYLeft = 1, kU = 0, kYRight = 3, kV = 2;
};

}  // namespace pixmoor

#endif
