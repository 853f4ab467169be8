#include "bench/bench_process.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace inin::bench {

namespace {

pid_t spawnInto(const std::vector<std::string> &arguments, const std::string &outputFile)
{
    std::vector<char *> argv;
    for (const std::string &argument : arguments) argv.push_back(const_cast<char *>(argument.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, outputFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    pid_t child = 0;
    const int result = posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (result != 0) throw std::runtime_error("cannot start " + arguments.front());
    return child;
}

double secondsOf(const timeval &time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

} // namespace

Spent runProcess(const std::vector<std::string> &arguments, const std::string &outputFile)
{
    // The peers keep no ledger.
    ::setenv("ININ_LEDGER", "off", 1);
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = spawnInto(arguments, outputFile);
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw std::runtime_error(arguments.front() + " failed");
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    // ru_maxrss is in kilobytes.
    return {seconds.count(), static_cast<double>(usage.ru_maxrss) / 1024,
            secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime)};
}

std::string firstLine(const std::string &outputFile)
{
    std::ifstream stream(outputFile);
    std::string line;
    std::getline(stream, line);
    return line;
}

Spent medianOf(std::vector<Spent> runs)
{
    std::ranges::sort(runs, {}, &Spent::seconds);
    return runs.at(runs.size() / 2);
}

Race raceOf(const Contender &ours, const Contender &plain, int runs)
{
    std::vector<Spent> oursRuns, plainRuns;
    std::vector<double> ratios;
    for (int run = 0; run < runs; ++run) {
        oursRuns.push_back(runProcess(ours.arguments, ours.outputFile));
        plainRuns.push_back(runProcess(plain.arguments, plain.outputFile));
        ratios.push_back(oursRuns.back().seconds / plainRuns.back().seconds);
    }
    std::ranges::sort(ratios);
    return {medianOf(oursRuns), medianOf(plainRuns), ratios.at(ratios.size() / 2)};
}

} // namespace inin::bench
