#include "Velmora/platform/toolkit/UnixSignals.h"

#include "Velmora/platform/posix/EndingSignals.h"

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace velmora {

namespace {

/// The pipe from the handler, which may do next to nothing, to the event loop.
struct Pipe {
    int readEnd = -1;
    int writeEnd = -1;
};

Pipe& handlerPipe()
{
    static Pipe pipe;
    return pipe;
}

/// Where the handler writes; set before the handler is installed.
volatile std::sig_atomic_t handlerDescriptor = -1;

extern "C" void noteSignal(int /*number*/)
{
    int const error = errno;
    // A full pipe holds the news already.
    [[maybe_unused]] auto const written = write(handlerDescriptor, "s", 1);
    errno = error;
}

/// Not every Unix has a call that does this along with making the pipe.
void setFlags(int descriptor)
{
    fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    fcntl(descriptor, F_SETFL, O_NONBLOCK);
}

int openPipe()
{
    std::array<int, 2> ends{-1, -1};
    if (pipe(ends.data()) == 0) {
        setFlags(ends[0]);
        setFlags(ends[1]);
        handlerPipe() = {.readEnd = ends[0], .writeEnd = ends[1]};
        handlerDescriptor = ends[1];
    }
    return ends[0];
}

void setAction(int signal, void (*handler)(int))
{
    struct sigaction action { };
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

} // namespace

UnixSignals::UnixSignals(QObject* parent)
    : QObject(parent)
    , m_arrived(openPipe(), QSocketNotifier::Read)
{
    connect(&m_arrived, &QSocketNotifier::activated, this, &UnixSignals::receive);
    for (int const signal : endingSignals)
        setAction(signal, noteSignal);
}

UnixSignals::~UnixSignals()
{
    leaveOnEndingSignals();
    m_arrived.setEnabled(false);
    close(handlerPipe().readEnd);
    close(handlerPipe().writeEnd);
}

void UnixSignals::receive()
{
    std::array<char, 16> bytes{};
    while (read(handlerPipe().readEnd, bytes.data(), bytes.size()) > 0) { }
    Q_EMIT endRequested();
}

} // namespace velmora
