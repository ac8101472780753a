// A file is there whole or not at all, whatever happens to its writer.

#include <idb_MementoException.h>
#include <idb_MementoRead.h>
#include <idb_MementoWrite.h>
#include <omu_PrimString.h>
#include <testing/ExpectRaise.h>
#include <testing/LibraryGuard.h>
#include <testing/MementoMaker.h>
#include <testing/ScratchFolder.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace
{
namespace fs = std::filesystem;

class MementoFile : public testing::Test
{
protected:
    static void Save(const std::string& path, const std::string& text)
    {
        idb_MementoWrite memento(cow_String(path.c_str()));
        memento.Add("text", omu_PrimString(cow_String(text)));
        memento.Finish();
    }
    static std::string Saved(const std::string& path)
    {
        omu_PrimString text;
        idb_MementoRead(cow_String(path.c_str())).Root("text", text);
        return std::string(text.Value().View());
    }
    int FilesThere() const
    {
        return static_cast<int>(std::distance(fs::directory_iterator(folder_.Path()), {}));
    }
    /// What a child process that runs the function exits with; a signal's number below 0.
    template <class F>
    static int InChild(F run, std::chrono::microseconds patience = std::chrono::minutes(2))
    {
        const pid_t child = fork();
        if (child == 0)
            std::_Exit(run());
        if (patience < std::chrono::minutes(1))
        {
            std::this_thread::sleep_for(patience);
            kill(child, SIGKILL);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    const LibraryGuard running_;
    const ScratchFolder folder_;
    const std::string path_ = folder_ / "a.oxm";
};

TEST_F(MementoFile, ReplacesTheOldOneWhole)
{
    const mode_t before = umask(0027);
    Save(path_, "old");
    umask(before);
    EXPECT_EQ(fs::status(path_).permissions(), fs::perms(0640));
    fs::permissions(path_, fs::perms(0604));
    fs::create_symlink(path_, folder_ / "link");
    Save(folder_ / "link", "new");
    EXPECT_EQ(Saved(path_), "new");
    EXPECT_TRUE(fs::is_symlink(folder_ / "link") && fs::status(path_).permissions() == fs::perms(0604));
    EXPECT_EQ(FilesThere(), 2);
    {
        idb_MementoWrite abandoned(cow_String(path_.c_str()));
        abandoned.Add("text", omu_PrimString("never"));
    }
    EXPECT_EQ(Saved(path_), "new");
}

TEST_F(MementoFile, FollowsLinksAndTakesNamesAsLongAsNamesMayBe)
{
    fs::create_symlink("b", folder_ / "a");
    fs::create_symlink("c.oxm", folder_ / "b");
    Save(folder_ / "a", "new");
    EXPECT_TRUE(fs::is_symlink(folder_ / "a") && fs::is_symlink(folder_ / "b"));
    EXPECT_EQ(Saved(folder_ / "c.oxm"), "new");
    fs::create_symlink("loop", folder_ / "loop");
    EXPECT_RAISE(Save(folder_ / "loop", "x"), idb_MementoException,
                 "idb_MementoWrite: cannot write " + (folder_ / "loop") +
                     ": follow the symbolic link: Too many levels of symbolic links");
    const std::string name = folder_ / std::string(255, 'n');
    Save(name, "long");
    const std::string pipe = folder_ / "pipe";
    EXPECT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_RAISE(Save(pipe, "x"), idb_MementoException,
                 "idb_MementoWrite: cannot write " + pipe + ": replace what is no file: Invalid argument");
    EXPECT_TRUE(Saved(name) == "long" && fs::is_fifo(pipe) && FilesThere() == 6);
}

// Killed at any moment, it leaves the old file or the new one.
TEST_F(MementoFile, SurvivesAKilledWriter)
{
    const std::string texts[] = {std::string(300000, 'a'), std::string(200000, 'b')};
    Save(path_, texts[0]);
    std::mt19937 random(4);
    int killed = 0;
    for (int i = 0; i < 40; ++i)
    {
        const int code = InChild(
            [&] {
                for (int n = 0; n < 100000; ++n)
                    Save(path_, texts[n % 2]);
                return 0;
            },
            std::chrono::microseconds(random() % 20000));
        killed += code == -SIGKILL ? 1 : 0;
        const std::string found = Saved(path_);
        ASSERT_TRUE(found == texts[0] || found == texts[1]);
    }
    EXPECT_EQ(killed, 40);
}

// The limit makes the system refuse to write on, as a full disk does.
TEST_F(MementoFile, AFailingWriteLeavesTheOldFileAndNothingElse)
{
    Save(path_, "old");
    const int code = InChild([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {100000, 100000};
        setrlimit(RLIMIT_FSIZE, &limit);
        const std::string wanted = "idb_MementoWrite: cannot write " + path_ + ": write: File too large";
        idb_MementoWrite memento(cow_String(path_.c_str()));
        memento.Add("text", omu_PrimString(cow_String(std::string(500000, 'x'))));
        for (int i = 0; i < 2; ++i)
            if (orvex_testing::Raised<idb_MementoException>([&] { memento.Finish(); }) != wanted)
                return 1;
        return 0;
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(Saved(path_), "old");
    EXPECT_EQ(FilesThere(), 1);
}

TEST_F(MementoFile, FailuresAreNamed)
{
    Save(path_, "old");
    const std::string below = path_ + "/b.oxm";
    EXPECT_RAISE(Save(below, "x"), idb_MementoException,
                 "idb_MementoWrite: cannot write " + below +
                     ": create a temporary file beside it: Not a directory");
    const std::string folder = folder_ / "folder";
    fs::create_directory(folder);
    EXPECT_RAISE(Save(folder, "x"), idb_MementoException,
                 "idb_MementoWrite: cannot write " + folder + ": rename: Is a directory");
    EXPECT_EQ(FilesThere(), 2);
    EXPECT_RAISE(Saved(folder), idb_MementoException,
                 "idb_MementoRead: cannot read " + folder + ": not a file");
    EXPECT_RAISE(Saved(below), idb_MementoException,
                 "idb_MementoRead: cannot read " + below + ": Not a directory");
    idb_MementoLimits limits;
    limits.bytes = 50;
    EXPECT_RAISE(idb_MementoRead(cow_String(path_.c_str()), limits), idb_MementoException,
                 "idb_MementoRead: limit exceeded: total bytes");
    EXPECT_EQ(Saved(path_), "old");
}
}
