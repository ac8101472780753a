#include <atomic>
#include <bat_ExitCode.h>
#include <bat_Interrupt.h>
#include <string_view>
#include <unistd.h>

namespace
{
// Lock-free, so that the handler may touch it.
std::atomic<bool> requested{false};
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void OnInterrupt(int)
{
    if (!requested.exchange(true))
        return;
    constexpr std::string_view WORDS = "\norvex: interrupted\n";
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, WORDS.data(), WORDS.size());
    _exit(static_cast<int>(bat_ExitCode::INTERRUPTED));
}
}

bat_Interrupt::bat_Interrupt()
{
    requested = false;
    struct sigaction action = {};
    action.sa_handler = OnInterrupt;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, &former_);
}

bat_Interrupt::~bat_Interrupt()
{
    sigaction(SIGINT, &former_, nullptr);
}

bool bat_Interrupt::IsRequested() noexcept
{
    return requested.load(std::memory_order_relaxed);
}
