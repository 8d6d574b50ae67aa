#include "benchmarks/PeakMemory.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace KOLT::Bench {

namespace {

/// A line of /proc/self/status, in bytes.
double statusBytes(const std::string& key)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == key) {
            double kilobytes = 0.0;
            status >> kilobytes;
            return kilobytes * 1024.0;
        }
    }
    return 0.0;
}

} // namespace

double peakMemory(const std::function<void()>& function)
{
    std::array<int, 2> channel{};
    if (pipe(channel.data()) != 0)
        std::abort();
    const pid_t child = fork();
    if (child == 0) {
        const double before = statusBytes("VmRSS:");
        function();
        const double grown = statusBytes("VmHWM:") - before;
        const bool written = write(channel[1], &grown, sizeof grown) == sizeof grown;
        _exit(written ? 0 : 1);
    }
    double grown = 0.0;
    close(channel[1]);
    const bool got = read(channel[0], &grown, sizeof grown) == sizeof grown;
    close(channel[0]);
    waitpid(child, nullptr, 0);
    if (!got)
        std::abort();
    return grown;
}

} // namespace KOLT::Bench
