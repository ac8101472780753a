#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <sys/wait.h>
#include <testing/ProgramRun.h>
#include <unistd.h>

namespace
{
[[noreturn]] void Execute(const std::vector<std::string>& command)
{
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    execv(arguments[0], arguments.data());
    _exit(127);
}

void CloseBoth(int (&ends)[2])
{
    close(ends[0]);
    close(ends[1]);
}
}

ProgramRun::ProgramRun(const std::vector<std::string>& command, const Setting& setting)
{
    int out[2];
    int err[2];
    if (pipe2(out, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    winsize size = {};
    size.ws_col = 80;
    size.ws_row = 25;
    if (setting.terminal ? openpty(&err[0], &err[1], nullptr, nullptr, &size) != 0
                         : pipe2(err, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe or terminal");
    child_ = fork();
    if (child_ < 0)
        throw std::runtime_error("cannot fork");
    if (child_ == 0)
    {
        const int to = setting.outFile.empty() ? out[1] : open(setting.outFile.c_str(), O_WRONLY);
        dup2(to, STDOUT_FILENO);
        dup2(err[1], STDERR_FILENO);
        if (setting.terminal)
        {
            CloseBoth(err);
            setenv("TERM", "xterm", 1);
        }
        Execute(command);
    }
    close(out[1]);
    close(err[1]);
    outPipe_ = out[0];
    errPipe_ = err[0];
}

ProgramRun::~ProgramRun()
{
    if (child_ > 0)
    {
        kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
    }
    close(outPipe_);
    close(errPipe_);
}

bool ProgramRun::ReadSome(Clock::time_point deadline)
{
    std::array<pollfd, 2> ends = {pollfd{outPipe_, POLLIN, 0}, pollfd{errPipe_, POLLIN, 0}};
    if (outPipe_ < 0 && errPipe_ < 0)
        return false;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    const int ready = poll(ends.data(), ends.size(), static_cast<int>(std::max<long>(left.count(), 0)));
    if (ready <= 0)
        return ready < 0 && errno == EINTR;
    std::array<char, 4096> bytes;
    for (const pollfd& end : ends)
    {
        if (end.fd < 0 || end.revents == 0)
            continue;
        const ssize_t count = read(end.fd, bytes.data(), bytes.size());
        std::string& text = end.fd == outPipe_ ? out_ : err_;
        if (count > 0)
            text.append(bytes.data(), static_cast<std::size_t>(count));
        else // a terminal whose other side is closed gives an error, not an end
        {
            close(end.fd);
            (end.fd == outPipe_ ? outPipe_ : errPipe_) = -1;
        }
    }
    return true;
}

bool ProgramRun::WaitForErr(const std::string& text)
{
    const Clock::time_point deadline = Clock::now() + PATIENCE;
    while (err_.find(text) == std::string::npos)
        if (!ReadSome(deadline))
            return false;
    return true;
}

void ProgramRun::Signal(int number) const
{
    kill(child_, number);
}

ProgramRun& ProgramRun::Finish()
{
    const Clock::time_point deadline = Clock::now() + PATIENCE;
    while (ReadSome(deadline))
        continue;
    if (outPipe_ >= 0 || errPipe_ >= 0)
        kill(child_, SIGKILL);
    int status = 0;
    waitpid(child_, &status, 0);
    child_ = -1;
    code_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return *this;
}
