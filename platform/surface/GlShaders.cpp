#include "platform/surface/GlShaders.h"

namespace QVM_NAMESPACE {

const char* const kVertexShader = R"(#version 130
uniform vec2 canvas;
in vec2 corner;
in vec4 place;
in vec4 shape;
in vec4 color0;
in vec4 color1;
in vec4 color2;
flat out vec4 itsPlace;
flat out vec4 itsShape;
flat out vec4 itsColor0;
flat out vec4 itsColor1;
flat out vec4 itsColor2;

void main() {
    itsPlace = place;
    itsShape = shape;
    itsColor0 = color0;
    itsColor1 = color1;
    itsColor2 = color2;
    gl_Position = vec4(corner / canvas * 2.0 - 1.0, 0.0, 1.0);
}
)";

const char* const kSegmentShader = R"(#version 130
flat in vec4 itsPlace;
flat in vec4 itsShape;
flat in vec4 itsColor0;
flat in vec4 itsColor1;

void main() {
    vec2 offset = gl_FragCoord.xy - itsPlace.xy;
    vec2 whole = itsPlace.zw - itsPlace.xy;
    float size = length(whole);
    vec2 direction = whole / size;
    float halfWidth = itsShape.x;
    float along = dot(offset, direction);
    float side = offset.x * direction.y - offset.y * direction.x;
    float beyond = max(-along, 0.0) * (1.0 - itsShape.y) + max(along - size, 0.0) * (1.0 - itsShape.z);
    float away = sqrt(side * side + beyond * beyond);
    float across = max(min(away + 0.5, halfWidth) - max(away - 0.5, -halfWidth), 0.0);
    float low = itsShape.y > 0.5 ? 0.0 : -1e9;
    float high = itsShape.z > 0.5 ? size : 1e9;
    float lengthwise = clamp(min(along + 0.5, high) - max(along - 0.5, low), 0.0, 1.0);
    vec4 color = mix(itsColor0, itsColor1, clamp(along / size, 0.0, 1.0));
    gl_FragColor = vec4(color.rgb * color.a, color.a) * (across * lengthwise);
}
)";

const char* const kTriangleShader = R"(#version 130
flat in vec4 itsPlace;
flat in vec4 itsShape;
flat in vec4 itsColor0;
flat in vec4 itsColor1;
flat in vec4 itsColor2;

float areaRightOfEdge(vec2 a, vec2 b) {
    float from = clamp(a.y, 0.0, 1.0);
    float to = clamp(b.y, 0.0, 1.0);
    if (from == to) return 0.0;
    float slope = (b.x - a.x) / (b.y - a.y);
    float x0 = a.x + (from - a.y) * slope;
    float x1 = a.x + (to - a.y) * slope;
    float least = min(x0, x1);
    float most = max(x0, x1);
    float low = clamp(least, 0.0, 1.0);
    float high = clamp(most, 0.0, 1.0);
    float mean = (low + high) / 2.0;
    if ((low != least || high != most) && low != high) {
        mean = ((high * high - low * low) / 2.0 + max(most - 1.0, 0.0)) / (most - least);
        mean = clamp(mean, low, high);
    }
    return (to - from) * (1.0 - mean);
}

float cross2(vec2 a, vec2 b, vec2 p) {
    return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
}

void main() {
    vec2 a = itsPlace.xy;
    vec2 b = itsPlace.zw;
    vec2 c = itsShape.xy;
    vec2 centre = gl_FragCoord.xy;
    vec2 pixel = floor(centre);
    float area = areaRightOfEdge(a - pixel, b - pixel) + areaRightOfEdge(b - pixel, c - pixel) +
                 areaRightOfEdge(c - pixel, a - pixel);
    float whole = cross2(a, b, c);
    vec3 shares = whole == 0.0 ? vec3(0.0) : max(vec3(cross2(b, c, centre), cross2(c, a, centre), cross2(a, b, centre)) / whole, 0.0);
    shares /= max(shares.x + shares.y + shares.z, 1e-30);
    vec4 color = itsColor0 == itsColor1 && itsColor0 == itsColor2
                     ? itsColor0
                     : itsColor0 * shares.x + itsColor1 * shares.y + itsColor2 * shares.z;
    gl_FragColor = vec4(color.rgb * color.a, color.a) * min(abs(area), 1.0);
}
)";

const char* const kCompositeShader = R"(#version 130
uniform sampler2D collected;

void main() {
    gl_FragColor = texelFetch(collected, ivec2(gl_FragCoord.xy), 0);
}
)";

} // namespace QVM_NAMESPACE
