#include <idb_Fault.h>
#include <idb_WholeFile.h>

#include <cerrno>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuIdb.m/src/idb_WholeFile";
constexpr mode_t NEW_FILE_MODE = 0666;

class Descriptor
{
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
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

cow_String Reason(int error)
{
    return cow_String(std::generic_category().message(error));
}

[[noreturn]] void RefuseRead(const cow_String& path, int error, const cow_String& reason, int line)
{
    idb_Fault::Raise(SOURCE, line, {.systemNumber = error}, idb_Fault::CANNOT_OPEN, path, reason);
}

[[noreturn]] void RefuseRead(const cow_String& path, int error, int line)
{
    RefuseRead(path, error, Reason(error), line);
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

// Where the path leads to: the file itself, also behind a symbolic link; the path where there is no file yet.
std::string Resolved(const cow_String& path)
{
    char* const real = realpath(path.AsCharPtr(), nullptr);
    if (real == nullptr)
        return path.AsCharPtr();
    std::string resolved = real;
    free(real);
    return resolved;
}

std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
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

// The temporary file: gone with the object unless it has taken its final name.
class Temporary
{
public:
    Temporary(const cow_String& shown, const std::string& target)
        : shown_(shown), target_(target), name_(target + ".XXXXXX"), file_(mkostemp(name_.data(), O_CLOEXEC))
    {
        if (!file_.IsOpen())
            Refuse("create a temporary file beside it", __LINE__);
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
                Refuse("write", __LINE__);
            bytes = bytes.subspan(static_cast<std::size_t>(written));
        }
    }
    void Install()
    {
        struct stat old = {};
        const mode_t mode = stat(target_.c_str(), &old) == 0 ? old.st_mode & 07777 : ModeForNewFile();
        if (fchmod(file_.Number(), mode) != 0)
            Refuse("set the permissions", __LINE__);
        if (Again([&] { return fsync(file_.Number()); }) != 0)
            Refuse("flush", __LINE__);
        if (rename(name_.c_str(), target_.c_str()) != 0)
            Refuse("rename", __LINE__);
        renamed_ = true;
        if (!file_.Close())
            Refuse("close", __LINE__);
        const Descriptor folder(open(FolderOf(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        // Some file systems have nothing to flush there and say EINVAL.
        if (!folder.IsOpen() || (Again([&] { return fsync(folder.Number()); }) != 0 && errno != EINVAL))
            Refuse("flush its folder", __LINE__);
    }

private:
    [[noreturn]] void Refuse(const char* step, int line) const
    {
        const int error = errno;
        idb_Fault::Raise(SOURCE, line, {.systemNumber = error}, idb_Fault::CANNOT_WRITE, shown_, step,
                         Reason(error));
    }

    const cow_String& shown_;
    const std::string& target_;
    std::string name_;
    Descriptor file_;
    bool renamed_ = false;
};
}

std::vector<unsigned char> idb_WholeFile::Read(const cow_String& path, std::uint64_t limit)
{
    // A named pipe must not keep us waiting.
    const Descriptor file(open(path.AsCharPtr(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (!file.IsOpen() || fstat(file.Number(), &status) != 0)
        RefuseRead(path, errno, __LINE__);
    if (!S_ISREG(status.st_mode))
        RefuseRead(path, S_ISDIR(status.st_mode) ? EISDIR : EINVAL, "not a file", __LINE__);
    const auto size = static_cast<std::uint64_t>(status.st_size);
    if (size > limit)
        idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::READ_LIMIT, idb_Fault::TOTAL_BYTES);
    std::vector<unsigned char> bytes(size);
    std::size_t have = 0;
    while (have < bytes.size())
    {
        const ssize_t more =
            Again([&] { return read(file.Number(), bytes.data() + have, bytes.size() - have); });
        if (more < 0)
            RefuseRead(path, errno, __LINE__);
        if (more == 0)
            break;
        have += static_cast<std::size_t>(more);
    }
    bytes.resize(have);
    return bytes;
}

void idb_WholeFile::Write(const cow_String& path, std::span<const std::span<const unsigned char>> pieces)
{
    const std::string target = Resolved(path);
    Temporary temporary(path, target);
    for (const std::span<const unsigned char> piece : pieces)
        temporary.Write(piece);
    temporary.Install();
}
