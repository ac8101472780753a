#include <bat_FileBytes.h>

#include <bat_MeshError.h>
#include <bat_Task.h>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <new>
#include <poll.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace
{
constexpr std::size_t PIPE_CAPACITY = std::size_t(1) << 16;
// Little enough to be read in a few milliseconds.
constexpr std::size_t LARGEST_READ = std::size_t(1) << 22;
constexpr int WAIT_MILLISECONDS = 10;

[[noreturn]] void RefuseAsSystem(const std::string& path, const char* what)
{
    const int number = errno;
    throw bat_MeshError::OfSystem(path, number,
                                  std::string(what) + ": " + std::generic_category().message(number));
}

/// Closes the descriptor when the scope is left.
struct Descriptor
{
    int number;
    ~Descriptor() { ::close(number); }
};

/// Until there is something to read from a pipe, or the other end was closed.
void Await(int pipe, const bat_Task& task)
{
    pollfd waiting = {pipe, POLLIN, 0};
    while (::poll(&waiting, 1, WAIT_MILLISECONDS) <= 0)
    {
        task.Ask();
    }
}
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

bat_FileBytes::bat_FileBytes(const std::string& path, bat_Watcher& watcher)
{
    // Does not wait for somebody to write to a pipe: the watcher could not be asked meanwhile.
    const int opened = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (opened < 0)
    {
        RefuseAsSystem(path, "cannot be opened");
    }
    const Descriptor descriptor{opened};
    struct stat status = {};
    if (::fstat(opened, &status) != 0)
    {
        RefuseAsSystem(path, "cannot be examined");
    }
    if (S_ISDIR(status.st_mode))
    {
        throw bat_MeshError::OfSystem(path, EISDIR, "is a directory");
    }
    if (!S_ISREG(status.st_mode) && !S_ISFIFO(status.st_mode))
    {
        throw bat_MeshError(path, "is neither a file nor a pipe");
    }
    // One byte more than the file has, so that the read that meets the end needs no more room.
    std::size_t capacity = std::max(static_cast<std::size_t>(status.st_size) + 1, PIPE_CAPACITY);
    Grow(capacity);
    const bool pipe = S_ISFIFO(status.st_mode);
    const bat_Task task(watcher, 0);
    for (;;)
    {
        task.Ask();
        if (pipe)
        {
            Await(opened, task);
        }
        const ssize_t got =
            ::read(opened, bytes_.get() + length_, std::min(capacity - length_, LARGEST_READ));
        if (got == 0)
        {
            return;
        }
        if (got < 0 && errno != EINTR && errno != EAGAIN)
        {
            RefuseAsSystem(path, "cannot be read");
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
