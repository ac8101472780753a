#include <bat_FileBytes.h>

#include <bat_MeshError.h>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace
{
constexpr std::size_t PIPE_CAPACITY = std::size_t(1) << 16;
// The system reads at most this much at once; it takes less where a limit of its own is lower.
constexpr std::size_t LARGEST_READ = std::size_t(1) << 30;

std::string ReasonOf(const char* what, int error)
{
    return std::string(what) + ": " + std::generic_category().message(error);
}

/// Closes the descriptor when the scope is left.
struct Descriptor
{
    int number;
    ~Descriptor() { ::close(number); }
};
}

void bat_FileBytes::Grow(std::size_t capacity)
{
    char* grown = static_cast<char*>(std::realloc(bytes_.get(), capacity));
    if (!grown)
    {
        throw std::bad_alloc();
    }
    static_cast<void>(bytes_.release());
    bytes_.reset(grown);
}

bat_FileBytes::bat_FileBytes(const std::string& path)
{
    const int opened = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (opened < 0)
    {
        throw bat_MeshError(path, ReasonOf("cannot be opened", errno));
    }
    const Descriptor descriptor{opened};
    struct stat status = {};
    if (::fstat(opened, &status) != 0)
    {
        throw bat_MeshError(path, ReasonOf("cannot be examined", errno));
    }
    if (S_ISDIR(status.st_mode))
    {
        throw bat_MeshError(path, "is a directory");
    }
    if (!S_ISREG(status.st_mode) && !S_ISFIFO(status.st_mode))
    {
        throw bat_MeshError(path, "is neither a file nor a pipe");
    }
    // One byte more than the file has, so that the read that meets the end needs no more room.
    std::size_t capacity = std::max(static_cast<std::size_t>(status.st_size) + 1, PIPE_CAPACITY);
    Grow(capacity);
    for (;;)
    {
        const ssize_t got =
            ::read(opened, bytes_.get() + length_, std::min(capacity - length_, LARGEST_READ));
        if (got == 0)
        {
            return;
        }
        if (got < 0 && errno != EINTR)
        {
            throw bat_MeshError(path, ReasonOf("cannot be read", errno));
        }
        if (got > 0)
        {
            length_ += static_cast<std::size_t>(got);
        }
        if (length_ == capacity)
        {
            capacity *= 2;
            Grow(capacity);
        }
    }
}
