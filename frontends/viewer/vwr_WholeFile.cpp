#include <vwr_PictureError.h>
#include <vwr_WholeFile.h>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <nex_RaiseWith.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace
{
constexpr const char* SOURCE = "frontends/viewer/vwr_WholeFile";

[[noreturn]] void Refuse(const std::string& path, int error, int line)
{
    vwr_PictureError failure("cannot write " + path + ": " + std::generic_category().message(error));
    failure.SetCode(error);
    nex_Raise(failure, SOURCE, line);
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

// A file of its own beside the target, gone with the object unless it has taken the target's name.
class Temporary
{
public:
    Temporary(const std::string& shown, const std::string& target) : shown_(shown), target_(target)
    {
        // Not mkstemp: the file shall have the permissions that the process gives to new files.
        for (int tries = 0; number_ < 0 && tries < 1000; ++tries)
        {
            name_ = target + "." + std::to_string(getpid()) + "-" + std::to_string(tries);
            number_ = open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (number_ < 0 && errno != EEXIST)
                break;
        }
        if (number_ < 0)
            Refuse(shown_, errno, __LINE__);
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;
    ~Temporary()
    {
        if (number_ >= 0)
            close(number_);
        if (!renamed_)
            unlink(name_.c_str());
    }

    void Write(std::string_view bytes)
    {
        while (!bytes.empty())
        {
            const ssize_t written = Again([&] { return write(number_, bytes.data(), bytes.size()); });
            if (written < 0)
                Refuse(shown_, errno, __LINE__);
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    void Install()
    {
        struct stat old = {};
        if (stat(target_.c_str(), &old) == 0 && fchmod(number_, old.st_mode & 07777) != 0)
            Refuse(shown_, errno, __LINE__);
        if (Again([&] { return fsync(number_); }) != 0)
            Refuse(shown_, errno, __LINE__);
        const int closing = std::exchange(number_, -1);
        if (close(closing) != 0 || rename(name_.c_str(), target_.c_str()) != 0)
            Refuse(shown_, errno, __LINE__);
        renamed_ = true;
    }

private:
    const std::string& shown_;
    const std::string& target_;
    std::string name_;
    int number_ = -1;
    bool renamed_ = false;
};
}

void vwr_WriteWholeFile(const std::string& path, std::string_view bytes)
{
    std::error_code none;
    const std::filesystem::path real = std::filesystem::canonical(path, none);
    const std::string target = none ? path : real.string();
    Temporary temporary(path, target);
    temporary.Write(bytes);
    temporary.Install();
}
