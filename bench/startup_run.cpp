// Runs the start-up program side by side, each side as its own process, alternating so that
// the machine's moods fall on both: Form1 without a settings file, Form1 with one that reloads
// a 500-sample file, and a bare window of Form1's size. Prints the medians as table rows.
//   quorvel_bench_startup_run <path of quorvel_bench_startup> [rounds]
#include "Samples.h"
#include "SettingsFile.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

namespace {

struct Run {
    double ms = 0;
    double maxRssMb = 0;
    int width = 0;
    int height = 0;
};

long long MonotonicNs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * 1000000000LL + now.tv_nsec;
}

// Starts the program, reads its one line and waits for it; exits on any failure.
Run RunOnce(const std::string &program, std::vector<std::string> args) {
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0)
        std::exit(1);
    args.insert(args.begin() + 1, std::to_string(MonotonicNs()));
    args.insert(args.begin(), program);
    const pid_t child = fork();
    if (child == 0) {
        dup2(pipeEnds[1], STDOUT_FILENO);
        close(pipeEnds[0]);
        std::vector<char *> argv;
        for (auto &arg : args)
            argv.push_back(arg.data());
        argv.push_back(nullptr);
        execv(program.c_str(), argv.data());
        _exit(127);
    }
    close(pipeEnds[1]);
    std::string output;
    char buffer[256];
    for (ssize_t n; (n = read(pipeEnds[0], buffer, sizeof buffer)) > 0;)
        output.append(buffer, static_cast<std::size_t>(n));
    close(pipeEnds[0]);
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    long long ns = 0;
    Run run;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0 ||
        std::sscanf(output.c_str(), "%lld %d %d", &ns, &run.width, &run.height) != 3) {
        std::fprintf(stderr, "%s %s failed: %s\n", program.c_str(), args[1].c_str(), output.c_str());
        std::exit(1);
    }
    run.ms = static_cast<double>(ns) / 1e6;
    run.maxRssMb = static_cast<double>(usage.ru_maxrss) / 1024.0;
    return run;
}

} // namespace

int main(int argc, char *argv[]) {
    if (argc < 2)
        return 2;
    const std::string program = argv[1];
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 7;
    const std::string folder = program.substr(0, program.rfind('/') + 1);
    const std::string settingsPath = folder + "quorvel.cfg";
    const std::string samplesPath = folder + "bench_samples.txt";
    if (!bench::WriteFile(samplesPath, bench::SampleDnaText(500)))
        return 1;
    quorvel::SettingsFileData reload;
    reload.Settings[quorvel::Setting::Load] = true;
    reload.LastDnaFile = samplesPath;
    const std::string reloadText = quorvel::WriteSettingsText(reload);

    std::vector<double> plain, loaded, bare, loadedRss, bareRss;
    for (int round = 0; round < rounds; ++round) {
        std::remove(settingsPath.c_str());
        const Run form1 = RunOnce(program, {"form1"});
        const std::string w = std::to_string(form1.width), h = std::to_string(form1.height);
        const Run window = RunOnce(program, {"bare", w, h});
        bench::WriteFile(settingsPath, reloadText);
        const Run withFile = RunOnce(program, {"form1"});
        plain.push_back(form1.ms);
        bare.push_back(window.ms);
        bareRss.push_back(window.maxRssMb);
        loaded.push_back(withFile.ms);
        loadedRss.push_back(withFile.maxRssMb);
    }
    std::remove(settingsPath.c_str());
    std::remove(samplesPath.c_str());

    const double bareMs = bench::Median(bare);
    bench::PrintRow("start-up, no settings file", bench::Median(plain), bareMs, "ms", 1.25);
    bench::PrintRow("start-up, reloading 500 samples", bench::Median(loaded), bareMs, "ms", 1.5);
    bench::PrintRow("peak memory, 500 samples", bench::Median(loadedRss), bench::Median(bareRss), "MB", 1.3);
    return 0;
}
