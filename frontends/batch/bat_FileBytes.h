#pragma once

#include <bat_Watcher.h>

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

/// The bytes of a file or pipe, read whole and in one go into memory of its own: a file that shrinks
/// while it is read gives a short read, never a fault. Raises bat_MeshError when the path names a
/// directory or device or cannot be opened or read.
class bat_FileBytes
{
public:
    /// The watcher is asked between blocks, and while the other end of a pipe keeps it waiting;
    /// bat_Interrupted when it wants no more.
    explicit bat_FileBytes(const std::string& path, bat_Watcher& watcher = bat_Watcher::Nobody());

    std::string_view View() const { return {bytes_.get(), length_}; }

private:
    struct Release
    {
        void operator()(char* bytes) const { std::free(bytes); }
    };

    void Grow(std::size_t capacity);

    std::unique_ptr<char, Release> bytes_;
    std::size_t length_ = 0;
};
