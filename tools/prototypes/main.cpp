// Writes unit/dsp/PrototypeTables.cpp: sections fitted to the tilt and to the filters, over grids of their parameters.
//
// Every node starts from its neighbour in small steps and is held near it, so that the sections keep their places from
// node to node and may be interpolated. Run after a change of the formulas in Targets.cpp:
//   prototypes > unit/dsp/PrototypeTables.cpp
#include "Grid.h"
#include "Targets.h"

#include <cstdio>
#include <vector>

using namespace prototypes;

namespace {

void writeHead() {
    std::printf("// Written by tools/prototypes; see there.\n"
                "#include \"unit/dsp/PrototypeTables.h\"\n\nnamespace QVM_NAMESPACE::dsp {\n\n// clang-format off\n");
}

void write(const Cascade& cascade) {
    for (const Section& s : cascade) {
        std::printf("%.4ff,%.4ff,%.4ff,%.4ff,", s.num.corner, s.num.damping, s.den.corner, s.den.damping);
    }
    std::printf("\n");
}

void writeFilters(const char* name, const std::vector<Cascade>& nodes) {
    std::printf("const float %s[filterNodes * filterValues] = {\n", name);
    for (const Cascade& node : nodes)
        write(node);
    std::printf("};\n\n");
}

void writeTilts(const TiltGrid& grid) {
    std::printf("const float tiltGains[tiltGainNodes] = {");
    for (const double gain : TiltGrid::gains())
        std::printf("%g,", gain);
    std::printf("};\n\nconst float tiltTable[tiltSpanNodes * tiltGainNodes * tiltValues] = {\n");
    for (const auto& row : grid.nodes())
        for (const Cascade& node : row)
            write(node);
    std::printf("};\n\n");
}

} // namespace

int main() {
    writeHead();
    writeTilts(TiltGrid());
    writeFilters("filterTable", filterGrid(FilterKind::passed));
    writeFilters("removedTable", filterGrid(FilterKind::removed));
    writeFilters("removedRootTable", filterGrid(FilterKind::removedRoot));
    std::printf("// clang-format on\n\n} // namespace QVM_NAMESPACE::dsp\n");
    return 0;
}
