// Defines the four tier entries of a colour member (px_, m6_, a6_, w7_) as
// calls of one shared wrapper, handed the row kernels of its tier.
//   PIXMOOR_COLOUR_TIER_ENTRIES(ImgX, impl, rowsPrefix, (params), (args))
// defines px_ImgX (params) { return impl(rowsPrefix##Px, args); } and so on.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_TIER_ENTRIES_H
#define PIXMOOR_PRIMITIVES_COLOUR_TIER_ENTRIES_H

#define PIXMOOR_COLOUR_TIER_ENTRY_(tier, Tier, name, impl, rows, params, args) \
    extern "C" PrimStatus tier##_##name params {                             \
        const auto& tierRows = rows##Tier;                                    \
        return impl args;                                                     \
    }

#define PIXMOOR_COLOUR_TIER_ENTRIES(name, impl, rows, params, args)       \
    PIXMOOR_COLOUR_TIER_ENTRY_(px, Px, name, impl, rows, params, args)    \
    PIXMOOR_COLOUR_TIER_ENTRY_(m6, M6, name, impl, rows, params, args)    \
    PIXMOOR_COLOUR_TIER_ENTRY_(a6, A6, name, impl, rows, params, args)    \
    PIXMOOR_COLOUR_TIER_ENTRY_(w7, W7, name, impl, rows, params, args)

#endif
