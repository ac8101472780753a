#include <atomic>
#include <chrono>
#include <cls_Uid.h>

#include <pthread.h>
#include <sys/random.h>
#include <unistd.h>

namespace
{
constexpr std::uint64_t BLOCK_LENGTH = 4096;

std::atomic<std::uint64_t> processNonce{0};
std::atomic<std::uint64_t> nextCount{1};

// The part of the counter that this thread may use up without asking anyone. Its few bytes fit into the room
// that the loader keeps for libraries loaded late, so the direct way to them is safe.
struct Block
{
    std::uint64_t nonce = 0;
    std::uint64_t next = 0;
    std::uint64_t end = 0;
};
__attribute__((tls_model("initial-exec"))) constinit thread_local Block block;

std::uint64_t FreshNonce() noexcept
{
    std::uint64_t nonce = 0;
    if (getrandom(&nonce, sizeof nonce, GRND_NONBLOCK) != static_cast<ssize_t>(sizeof nonce) || nonce == 0)
    {
        // Before the kernel has gathered randomness: clock and process id, spread over all bits.
        nonce = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
        nonce = (nonce ^ (static_cast<std::uint64_t>(getpid()) << 44)) * 0x9E3779B97F4A7C15u;
        nonce |= 1u;
    }
    return nonce;
}

// A forked child has one thread, the one that runs this: it must not go on in the parent's block.
void BeginInChild()
{
    processNonce.store(FreshNonce(), std::memory_order_relaxed);
    block = Block();
}

void Refill() noexcept
{
    static const bool prepared = []() noexcept {
        processNonce.store(FreshNonce(), std::memory_order_relaxed);
        // Where the handler cannot be entered, only identifiers made on both sides of a fork are at risk.
        return pthread_atfork(nullptr, nullptr, BeginInChild) == 0;
    }();
    static_cast<void>(prepared);
    block.nonce = processNonce.load(std::memory_order_relaxed);
    block.next = nextCount.fetch_add(BLOCK_LENGTH, std::memory_order_relaxed);
    block.end = block.next + BLOCK_LENGTH;
}
}

cls_Uid::cls_Uid() noexcept
{
    if (block.next == block.end)
        Refill();
    nonce_ = block.nonce;
    count_ = block.next++;
}

cow_String cls_Uid::AsString() const
{
    constexpr char DIGITS[] = "0123456789abcdef";
    char text[32];
    char* out = text;
    for (const unsigned char byte : AsBytes())
    {
        *out++ = DIGITS[byte >> 4];
        *out++ = DIGITS[byte & 0xF];
    }
    return cow_String(text, sizeof text);
}
