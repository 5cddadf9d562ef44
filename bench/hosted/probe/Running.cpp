#include "bench/hosted/probe/Running.h"

#include "bench/hosted/probe/HostProcess.h"
#include "bench/hosted/probe/HostWindow.h"
#include "bench/hosted/probe/NoiseSource.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <stdexcept>
#include <thread>

namespace slantwise_bench {

namespace {

constexpr double settling = 3; // seconds, after the opening and after each change

void pause(double seconds) {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

class Session {
public:
    Session(const std::vector<std::string>& command, const ScreenFile& screen, double secondsEach)
        : screen_(screen), secondsEach_(secondsEach), host_(command, "host.log") {
        pause(2 * settling);
        const auto area = window_.findPluginArea();
        if (!area || !host_.isRunning()) throw std::runtime_error("no window from " + command.back());
        area_ = *area;
        noise_.connect();
        window_.watchDrawing();
        movePointer({-area_.x, -area_.y}); // one that rests in the window may have tooltips looked for
        findAudioThread();
    }

    long privateKilobytes() const { return host_.privateKilobytes(); }

    void setPlaying(bool isPlaying) {
        noise_.setPlaying(isPlaying);
        pause(settling);
    }

    void click(const std::vector<Click>& clicks) {
        for (const Click& click : clicks) {
            movePointer(click.at);
            pause(0.5); // a submenu opens
            window_.button(click.button, true);
            pause(0.05);
            window_.button(click.button, false);
            pause(0.5);
        }
        movePointer({-area_.x, -area_.y});
        pause(settling);
    }

    Load measure() {
        return measureWhile([this] { return window_.waitForDrawing(0.02); });
    }

    Load measureDragging(const Handle& handle) {
        const Press press(*this, handle);
        int step = 0;
        double next = nowSeconds();
        return measureWhile([&] {
            if (nowSeconds() >= next) {
                movePointer(handle, 0.05 * ++step);
                next += 0.01;
            }
            return window_.waitForDrawing(std::min(next - nowSeconds(), 0.005));
        });
    }

    // The median of some steps of a drag, each made when the last one's picture is long there.
    std::optional<double> measurePointerToPixelMs(const Handle& handle) {
        constexpr int steps = 25;
        constexpr double longest = 0.25; // seconds, that an answer may take
        const Press press(*this, handle);
        std::vector<double> answers;
        for (int i = 1; i <= steps; ++i) {
            pause(longest + 0.0037 * i); // not in step with any clock of the host's
            const Pixels before = screen_.read(area_, 2);
            movePointer(handle, i % 2 == 0 ? 0.6 : -0.6);
            const double moved = nowSeconds();
            while (screen_.read(area_, 2) == before && nowSeconds() < moved + longest)
                pause(0.0002);
            if (nowSeconds() < moved + longest) answers.push_back(1000 * (nowSeconds() - moved));
        }
        if (answers.size() < steps / 2) return std::nullopt;
        std::nth_element(answers.begin(), answers.begin() + answers.size() / 2, answers.end());
        return answers[answers.size() / 2];
    }

private:
    // Holds the handle for as long as it lives.
    class Press {
    public:
        Press(Session& session, const Handle& handle) : session_(session) {
            session.movePointer(handle.at);
            pause(0.2);
            session.window_.button(1, true);
            pause(0.1);
        }
        ~Press() {
            session_.window_.button(1, false);
            pause(settling);
        }
        Press(const Press&) = delete;
        Press& operator=(const Press&) = delete;

    private:
        Session& session_;
    };

    void movePointer(Spot spot) { window_.movePointer(area_.x + spot.x, area_.y + spot.y); }

    void movePointer(const Handle& handle, double phase) {
        const auto along = [phase](int reach) { return static_cast<int>(std::lround(reach * std::sin(phase))); };
        movePointer({handle.at.x + along(handle.reach.x), handle.at.y + along(handle.reach.y)});
    }

    // The thread that processes the sound sleeps once a block. Found while nothing happens: later others may come near.
    void findAudioThread() {
        const HostProcess::Threads before = host_.threads();
        const double start = nowSeconds();
        pause(settling);
        const double blocks = noise_.blocksPerSecond() * (nowSeconds() - start);
        double least = 0.1; // of the blocks
        for (const auto& [id, thread] : host_.threads()) {
            const auto was = before.find(id);
            if (was == before.end()) continue;
            const double off = std::abs(static_cast<double>(thread.sleeps - was->second.sleeps) / blocks - 1);
            if (off < least) audioThread_ = id;
            least = std::min(least, off);
        }
        if (audioThread_ == 0) throw std::runtime_error("no thread of the host processes sound");
    }

    template <class Step>
    Load measureWhile(Step step) {
        constexpr double drawingLasts = 0.002; // seconds, of one picture at most
        const HostProcess::Threads before = host_.threads();
        const double start = nowSeconds();
        Pixels shown = screen_.read(area_);
        int pictures = 0;
        while (nowSeconds() < start + secondsEach_) {
            if (!step()) continue;
            pause(drawingLasts);
            Pixels now = screen_.read(area_);
            pictures += now != shown;
            shown = std::move(now);
        }
        const double lasted = nowSeconds() - start;
        double worked = 0;
        for (const auto& [id, thread] : host_.threads()) {
            const auto was = before.find(id);
            if (id != audioThread_)
                worked += thread.workedSeconds - (was == before.end() ? 0 : was->second.workedSeconds);
        }
        return {100 * worked / lasted, pictures / lasted};
    }

    const ScreenFile& screen_;
    const double secondsEach_;
    HostProcess host_;
    HostWindow window_;
    NoiseSource noise_;
    Area area_;
    pid_t audioThread_ = 0;
};

} // namespace

Running measureRunning(const std::vector<std::string>& command, const ScreenFile& screen, double secondsEach,
                       std::optional<Handle> handle, const std::vector<Click>& spectrumSwitch) {
    Session session(command, screen, secondsEach);
    Running result;
    result.privateKilobytes = session.privateKilobytes();
    result.idle = session.measure();
    if (handle) {
        result.dragging = session.measureDragging(*handle);
        result.pointerToPixelMs = session.measurePointerToPixelMs(*handle);
    }
    session.setPlaying(true);
    result.playing = session.measure();
    if (!spectrumSwitch.empty()) {
        session.click(spectrumSwitch);
        result.spectrum = session.measure();
    }
    return result;
}

} // namespace slantwise_bench
