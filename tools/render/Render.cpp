#include "tools/render/Render.h"

#include "program/CommandLine.h"
#include "program/HeldErrorStream.h"
#include "tools/render/Interruption.h"
#include "tools/render/JobQueue.h"
#include "tools/render/Report.h"
#include "tools/render/ResultJson.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

namespace QVM_NAMESPACE {
namespace render {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds redrawInterval{100};

struct Job {
    FilePair files;
    double weight = 1; // of the whole work; the size of the file is as near to it as can be known beforehand
    RenderProgress progress = 0;
    std::atomic<bool> isDone = false; // then the result is there
    RenderResult result;
};

double weightOf(const std::string& file) {
    std::error_code error;
    const auto bytes = std::filesystem::file_size(file, error);
    return error ? 1 : static_cast<double>(bytes) + 1;
}

double shareDone(const std::deque<Job>& jobs) {
    double done = 0, all = 0;
    for (const Job& job : jobs) {
        done += job.weight * (job.isDone ? 1 : job.progress.load());
        all += job.weight;
    }
    return done / all;
}

unsigned threadsFor(const RenderOptions& options) {
    return options.jobs > 0 ? static_cast<unsigned>(options.jobs) : std::max(std::thread::hardware_concurrency(), 1U);
}

// Works all jobs off and reports them in their order.
void workOff(std::deque<Job>& jobs, const RenderOptions& options, Report& report) {
    const Clock::time_point begin = Clock::now();
    std::size_t reported = 0;
    const auto work = [&](std::size_t number) {
        Job& job = jobs[number];
        job.result = renderFile(job.files, options, job.progress, Interruption::isWanted);
        job.isDone = true;
    };
    const auto tick = [&] {
        for (; reported < jobs.size() && jobs[reported].isDone; ++reported)
            report.fileIsDone(jobs[reported].result);
        const auto done =
            static_cast<std::size_t>(std::ranges::count_if(jobs, [](const Job& job) { return job.isDone.load(); }));
        const double elapsed = std::chrono::duration<double>(Clock::now() - begin).count();
        report.progress({shareDone(jobs), elapsed, done, jobs.size()});
    };
    runJobs(jobs.size(), threadsFor(options), work, redrawInterval, tick);
    report.clear();
}

bool isAllWell(const RenderResult& result) {
    return result.isWritten() && !result.isDamaged;
}

int renderAll(std::deque<Job>& jobs, const RenderOptions& options, const Console& console) {
    bool isHeard = true;
    {
        const Interruption interruption;
        const HeldErrorStream held; // libraries that decode speak to the terminal
        Report report(console.program(), held.realStream(),
                      options.json ? Report::Lines::leftOut : Report::Lines::shown);
        workOff(jobs, options, report);
        isHeard = report.isHeard();
    }
    std::vector<RenderResult> results;
    results.reserve(jobs.size());
    for (Job& job : jobs)
        results.push_back(std::move(job.result));
    const int told = options.json ? console.print(resultsJson(results, options)) : exitSuccess;
    if (!isHeard) return console.fail("cannot write the output");
    Interruption::endByIt();
    return std::ranges::all_of(results, isAllWell) ? told : int{exitFailure};
}

} // namespace

int refuseArguments(const RenderOptionsError& error, const Console& console) {
    // That nothing was done says more than that it could not be told everywhere.
    if (error.asJson) static_cast<void>(console.print(refusalJson(error.message)));
    return console.refuse(error.message);
}

int runRender(const RenderOptions& options, const Console& console) {
    if (options.showHelp) return console.print(renderHelp(console.program()));
    if (options.showVersion) return console.print(versionText() + "\n");
    if (options.listPresets) return console.print(presetList());
    const auto paths = outputPaths(options);
    if (const auto* problem = std::get_if<PathsProblem>(&paths))
        return refuseArguments({problem->message, options.json}, console);
    std::deque<Job> jobs;
    for (const FilePair& files : std::get<std::vector<FilePair>>(paths)) {
        Job& job = jobs.emplace_back();
        job.files = files;
        job.weight = weightOf(files.input);
    }
    return renderAll(jobs, options, console);
}

} // namespace render
} // namespace QVM_NAMESPACE
