// The shading programs of the OpenGL drawing surface.
#pragma once

#include "BuildNamespace.h"

namespace QVM_NAMESPACE {

// Attributes of every vertex, in this order; each program reads what it needs.
//   corner     vec2  pixels
//   place      vec4  a segment's from and to, or a triangle's first two corners, pixels
//   shape      vec4  a segment's half width and whether it is cut off at from and to (0 or 1), or the third corner
//   color0..2  vec4  of the segment's ends or the triangle's corners, not premultiplied
inline constexpr const char* kGlAttributes[] = {"corner", "place", "shape", "color0", "color1", "color2"};
inline constexpr int kGlAttributeSizes[] = {2, 4, 4, 4, 4, 4};

extern const char* const kVertexShader;
// The premultiplied colour times the share of the pixel that the shape covers, as in PixelCoverage.h.
extern const char* const kSegmentShader;
extern const char* const kTriangleShader;
// Copies the texel at the pixel's place.
extern const char* const kCompositeShader;

} // namespace QVM_NAMESPACE
