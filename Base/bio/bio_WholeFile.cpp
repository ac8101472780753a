#include <bio_WholeFile.h>

#include <cerrno>
#include <fcntl.h>
#include <limits.h>
#include <stdlib.h>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace
{
constexpr mode_t NEW_FILE_MODE = 0666;
constexpr int MOST_LINKS = 40; // in a chain, as in the kernel

class Descriptor
{
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() { static_cast<void>(Close()); }

    int Number() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }
    [[nodiscard]] bool Close()
    {
        const int number = std::exchange(number_, -1);
        return number < 0 || close(number) == 0;
    }

private:
    int number_;
};

// What the last call failed with, at this step.
[[noreturn]] void Refuse(const char* step)
{
    throw std::system_error(errno, std::generic_category(), step);
}

// What a call answered, again while a signal came in between.
template <class F>
auto Again(F call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

// Where the path leads to: the file itself, also behind symbolic links and where it is not there yet.
std::string Resolved(std::string path)
{
    for (int links = 0;; ++links)
    {
        if (char* const real = realpath(path.c_str(), nullptr); real != nullptr)
        {
            path = real;
            free(real);
            return path;
        }
        char target[PATH_MAX];
        const ssize_t length = readlink(path.c_str(), target, sizeof target);
        if (length < 0)
            return path;
        if (links == MOST_LINKS)
        {
            errno = ELOOP;
            Refuse("follow the symbolic link");
        }
        const std::string_view there(target, static_cast<std::size_t>(length));
        path = (there.starts_with('/') ? "" : FolderOf(path)).append(there);
    }
}

// The umask can only be read by setting it, which other threads would notice; the kernel shows it too.
mode_t ModeForNewFile()
{
    const Descriptor status(open("/proc/self/status", O_RDONLY | O_CLOEXEC));
    char text[4096];
    const ssize_t length = status.IsOpen() ? read(status.Number(), text, sizeof text) : 0;
    const std::string_view all(text, length > 0 ? static_cast<std::size_t>(length) : 0);
    const std::size_t at = all.find("Umask:\t");
    unsigned mask = 0077;
    if (at != std::string_view::npos)
    {
        mask = 0;
        for (std::size_t i = at + 7; i < all.size() && all[i] >= '0' && all[i] <= '7'; ++i)
            mask = 8 * mask + static_cast<unsigned>(all[i] - '0');
    }
    return NEW_FILE_MODE & ~static_cast<mode_t>(mask);
}

// A device or a pipe would be gone, a plain file in its place; a folder is refused by its step.
void RequireFile(const std::string& target)
{
    struct stat there = {};
    if (stat(target.c_str(), &there) == 0 && !S_ISREG(there.st_mode) && !S_ISDIR(there.st_mode))
    {
        errno = EINVAL;
        Refuse("replace what is no file");
    }
}

// The temporary file: gone with the object unless it has taken its final name.
class Temporary
{
public:
    explicit Temporary(const std::string& target)
        : target_(target), name_(target + ".XXXXXX"), file_(mkostemp(name_.data(), O_CLOEXEC))
    {
        // Beside a name that is as long as a name may be.
        if (!file_.IsOpen() && errno == ENAMETOOLONG)
        {
            name_ = FolderOf(target) + ".XXXXXX";
            file_ = Descriptor(mkostemp(name_.data(), O_CLOEXEC));
        }
        if (!file_.IsOpen())
            Refuse("create a temporary file beside it");
    }
    ~Temporary()
    {
        if (!renamed_ && file_.IsOpen())
            unlink(name_.c_str());
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    void Write(std::span<const unsigned char> bytes)
    {
        while (!bytes.empty())
        {
            const ssize_t written = Again([&] { return write(file_.Number(), bytes.data(), bytes.size()); });
            if (written < 0)
                Refuse("write");
            bytes = bytes.subspan(static_cast<std::size_t>(written));
        }
    }
    void Install()
    {
        struct stat old = {};
        const mode_t mode = stat(target_.c_str(), &old) == 0 ? old.st_mode & 07777 : ModeForNewFile();
        if (fchmod(file_.Number(), mode) != 0)
            Refuse("set the permissions");
        if (Again([&] { return fsync(file_.Number()); }) != 0)
            Refuse("flush");
        if (rename(name_.c_str(), target_.c_str()) != 0)
            Refuse("rename");
        renamed_ = true;
        if (!file_.Close())
            Refuse("close");
        const Descriptor folder(open(FolderOf(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        // Some file systems have nothing to flush there and say EINVAL.
        if (!folder.IsOpen() || (Again([&] { return fsync(folder.Number()); }) != 0 && errno != EINVAL))
            Refuse("flush its folder");
    }

private:
    const std::string& target_;
    std::string name_;
    Descriptor file_;
    bool renamed_ = false;
};
}

void bio_WriteWholeFile(const std::string& path, std::span<const std::span<const unsigned char>> pieces)
{
    const std::string target = Resolved(path);
    RequireFile(target);
    Temporary temporary(target);
    for (const std::span<const unsigned char> piece : pieces)
        temporary.Write(piece);
    temporary.Install();
}
