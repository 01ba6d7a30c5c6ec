// The wall clock of a program under test. It stands still until the test sets it.
//
// The linker takes a function from the rooms only where the program has none of its own, so that
// this one stands in for the operating system's clock.

#include "Velmora/platform/toolkit/SystemClock.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace velmora {

namespace {

/// The file that the test writes: one double, the seconds since 1970-01-01 00:00:00 UTC.
double& sharedInstant()
{
    char const* const path = std::getenv("VELMORA_TEST_CLOCK");
    int const file = path ? open(path, O_RDWR | O_CLOEXEC) : -1;
    void* const memory = file >= 0
        ? mmap(nullptr, sizeof(double), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0)
        : MAP_FAILED;
    if (memory == MAP_FAILED) {
        std::fputs("VELMORA_TEST_CLOCK names no clock\n", stderr);
        std::abort();
    }
    close(file);
    return *static_cast<double*>(memory);
}

} // namespace

double SystemClock::now() const
{
    static double& instant = sharedInstant();
    return std::atomic_ref(instant).load() - referenceDateSince1970;
}

} // namespace velmora
