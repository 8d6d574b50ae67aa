#include "benchmarks/ChildProcess.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace KOLT::Bench {

ProgramRun runProgram(const std::vector<std::string>& command)
{
    std::vector<char*> words;
    for (const std::string& word : command)
        words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);

    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    pid_t child = 0;
    int status = -1;
    rusage usage{};
    const bool isRun =
        posix_spawn(&child, words[0], &actions, nullptr, words.data(), environ) == 0 &&
        wait4(child, &status, 0, &usage) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    const std::chrono::duration<double, std::milli> duration = Clock::now() - start;
    posix_spawn_file_actions_destroy(&actions);
    if (!isRun) {
        std::fprintf(stderr, "%s failed (status %d)\n", words[0], status);
        std::exit(2);
    }
    constexpr double kilobyte = 1024.0; // the unit of ru_maxrss
    return {duration.count(), static_cast<double>(usage.ru_maxrss) * kilobyte};
}

double timeRatio(const std::vector<std::string>& measured, const std::vector<std::string>& baseline)
{
    std::array<double, 5> ratios{};
    runProgram(measured); // brings programs and files into the cache
    runProgram(baseline);
    for (double& ratio : ratios)
        ratio = runProgram(measured).milliseconds / runProgram(baseline).milliseconds;
    std::ranges::sort(ratios);
    return ratios[ratios.size() / 2];
}

} // namespace KOLT::Bench
