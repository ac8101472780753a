#include <bio_WholeFile.h>
#include <idb_Fault.h>
#include <idb_WholeFile.h>

#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <stdio.h>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuIdb.m/src/idb_WholeFile";

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

}

std::vector<unsigned char> idb_WholeFile::Read(const cow_String& path, std::uint64_t limit)
{
    // A named pipe must not keep us waiting.
    const int number = open(path.AsCharPtr(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (number < 0)
        RefuseRead(path, errno, __LINE__);
    const std::unique_ptr<FILE, int (*)(FILE*)> file(fdopen(number, "rb"), &fclose);
    if (file == nullptr)
    {
        const int error = errno;
        close(number);
        RefuseRead(path, error, __LINE__);
    }
    struct stat status = {};
    if (fstat(number, &status) != 0)
        RefuseRead(path, errno, __LINE__);
    if (!S_ISREG(status.st_mode))
        RefuseRead(path, S_ISDIR(status.st_mode) ? EISDIR : EINVAL, "not a file", __LINE__);
    const auto size = static_cast<std::uint64_t>(status.st_size);
    if (size > limit)
        idb_Fault::Raise(SOURCE, __LINE__, {}, idb_Fault::READ_LIMIT, idb_Fault::TOTAL_BYTES);
    std::vector<unsigned char> bytes(size);
    bytes.resize(fread(bytes.data(), 1, bytes.size(), file.get()));
    if (ferror(file.get()) != 0)
        RefuseRead(path, errno, __LINE__);
    return bytes;
}

void idb_WholeFile::Write(const cow_String& path, std::span<const std::span<const unsigned char>> pieces)
try
{
    bio_WriteWholeFile(path.AsCharPtr(), pieces);
}
catch (const std::system_error& failure)
{
    idb_Fault::Raise(SOURCE, __LINE__, {.systemNumber = failure.code().value()}, idb_Fault::CANNOT_WRITE,
                     path, failure.what());
}
