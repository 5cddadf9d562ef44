// The response curve that the editor draws, as a table: unsmoothed, over the display's own grid of frequencies.
#include "description/Description.h"
#include "description/NumberText.h"
#include "settings/SettingsAddress.h"
#include "tools/inspect/Command.h"
#include "viz/sketches/QVM0015GLSketch.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>

namespace QVM_NAMESPACE {
namespace inspect {

namespace {

constexpr int kDisplayPoints = 108; // of the display at two device pixels a point
constexpr int kFewestPoints = 2, kMostPoints = 65536;

// By pid, shown domain.
using Settings = std::array<float, QVMParameterCount>;

struct CurveRequest {
    std::string_view address = "/?";
    int points = kDisplayPoints;
};

// What the address says over the initial values; an address may be cut down to what stands from "/?" on. Returns what
// is wrong with it, or nothing.
std::string ReadAddress(std::string_view address, Settings& settings) {
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        settings[pid] = GetParameter(pid)->initialValue;
    const std::string base = address.starts_with("/?") ? settingsBaseAddress("https://localhost", *GetMetadata()) : "";
    const auto config = QVMConfig::inlinedConfig();
    const auto result = readSettingsAddress(base + std::string(address), *config);
    if (const auto* refusal = std::get_if<SettingsRefusal>(&result)) return refusal->text();
    for (const SettingsEntry& entry : std::get<SettingsAddress>(result).entries) {
        const QVMParameter& parameter = *config->parameterForCodename(entry.key);
        if (entry.value) settings[parameter.pid] = settingsValueFor(parameter, *entry.value);
    }
    return {};
}

// What is wrong with the command line, or nothing. A value stands behind its option or, with a sign between, in it.
std::string ReadArguments(Arguments arguments, CurveRequest& request) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::size_t sign = arguments[i].find('=');
        const std::string name(arguments[i].substr(0, sign));
        if (name == "--" && i + 1 == arguments.size()) break;
        if (name != "--settings" && name != "--points")
            return "curve does not know '" + std::string(arguments[i]) + "'";
        if (sign == std::string_view::npos && ++i == arguments.size()) return name + " needs a value";
        const std::string_view value = sign == std::string_view::npos ? arguments[i] : arguments[i].substr(sign + 1);
        if (name == "--settings") {
            request.address = value;
            continue;
        }
        const std::optional<int> points = WholeNumberFromText<int>(value);
        if (!points || *points < kFewestPoints || *points > kMostPoints) {
            return "--points takes a number from " + std::to_string(kFewestPoints) + " to " +
                   std::to_string(kMostPoints) + ", not '" + std::string(value) + "'";
        }
        request.points = *points;
    }
    return {};
}

// The fewest digits that read back as the same number.
std::string Text(float number) {
    std::array<char, 32> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return {buffer.data(), result.ptr};
}

void PrintCurve(const Settings& settings, int points, std::ostream& out) {
    PBGLCanvas canvas;
    canvas.sketch = PB_Sketches[0];
    canvas.sid = canvas.sketch.sid;
    canvas.width = static_cast<float>(points); // a point of the curve for each device pixel
    QVM0015GLSketch sketch;
    sketch.init(canvas, 0, 0);
    sketch.sizeStates(QVMParameterCount);
    for (std::uint32_t pid = 0; pid < QVMParameterCount; ++pid)
        sketch.standAt(pid, settings[pid]);
    sketch.prepareForDrawing(canvas, 0);

    const bool auditions = sketch.listensLow() || sketch.listensHigh();
    out << "# reference_db=" << Text(sketch.responseDisplay().referenceLevel)
        << " axis_db=" << Text(sketch.axisDecibels()) << "\nfrequency_hz,response_db,audition_db\n";
    for (std::size_t i = 0; i < sketch.response().size(); ++i) {
        out << Text(sketch.responseDisplay().freqs()[i]) << ',' << Text(sketch.response()[i]) << ','
            << (auditions ? Text(sketch.listenCurve()[i]) : std::string()) << '\n';
    }
}

} // namespace

int RunCurveCommand(Arguments arguments, const Streams& streams) {
    CurveRequest request;
    if (const std::string problem = ReadArguments(arguments, request); !problem.empty())
        return ReportUsageError(streams, problem);
    Settings settings;
    if (const std::string problem = ReadAddress(request.address, settings); !problem.empty())
        return ReportUnreadableSettings(streams, problem);
    PrintCurve(settings, request.points, streams.out);
    return exitSuccess;
}

} // namespace inspect
} // namespace QVM_NAMESPACE
