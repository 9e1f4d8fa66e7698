# Settings that keep every tier's bytes the same on every processor.
#
# The float kernels and their test models must round each product and sum by
# itself: compilers for processors with a fused multiply-add (ARM64 above
# all) would otherwise contract a * b + c into one rounding by default.
if(CMAKE_C_COMPILER_ID MATCHES "GNU|Clang" OR CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  add_compile_options(-ffp-contract=off)
endif()

# The portable forms of the vector kernels, in place of the SSE2 ones, on a
# processor that has SSE2: this is how an x86-64 build proves that they give
# the same bytes as the SSE2 kernels.  Tests see the same setting, so the
# kernel headers they include agree with the library.
if(PIXMOOR_PORTABLE_KERNELS)
  add_compile_definitions(PIXMOOR_PORTABLE_KERNELS=1)
endif()
