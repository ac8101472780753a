#pragma once

#include <bat_MeshError.h>
#include <bat_Task.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Walks the words of a text file, counting lines, and reads numbers independently of the locale.
///
/// Lines end at LF, CR LF or CR. Words are separated by blanks, tabs, vertical tabs and form feeds.
/// A copy is a place to come back to. The text and the file name must outlive the cursor.
class bat_TextCursor
{
public:
    static constexpr const char* COORDINATES[] = {"x coordinate", "y coordinate", "z coordinate"};

    enum class Comments { NONE, HASH };          ///< HASH: a word that begins with # ends its line
    enum class Continuation { NONE, BACKSLASH }; ///< BACKSLASH: one before the line's end joins the next line

    bat_TextCursor(std::string_view text, const std::string& file, Comments comments,
                   Continuation continuation = Continuation::NONE);

    /// Every word read from now on is a step of the task, which must outlive the cursor and its copies.
    void CountFor(bat_Task& task) { task_ = &task; }

    /// The next word, on this line or a later one; empty at the end of the text.
    std::string_view Next();
    /// The next word of this line; empty at its end.
    std::string_view NextOnLine();
    /// The words left of this line as they stand, without the blanks around them.
    std::string_view RestOfLine();
    /// Goes to the start of the next line, however much is left of this one; false at the end.
    bool SkipLine();

    std::size_t BytesLeft() const { return static_cast<std::size_t>(end_ - at_); }

    /// A number, infinities and NaNs included; none when the word is no number. What is too large
    /// for a double is infinite, what is too small is zero.
    static std::optional<double> Number(std::string_view word);
    static std::optional<std::int64_t> Integer(std::string_view word);
    /// The finite number that the word is; raises bat_MeshError otherwise. name: one of COORDINATES.
    double Finite(std::string_view word, const char* name) const;
    /// Raises bat_MeshError with the line of the word read last.
    [[noreturn]] void Refuse(const std::string& reason) const;

    /// The word in single quotes, printable and shortened.
    static std::string Quoted(std::string_view word);

private:
    void SkipBlanks();
    bool AtLineEnd() const;
    void EatLineEnd();
    const char* BehindContinuation(const char* at) const;

    const char* at_;
    const char* end_;
    const std::string* file_;
    std::uint64_t line_ = 1;
    std::uint64_t wordLine_ = 1;
    Comments comments_;
    Continuation continuation_;
    bat_Task* task_ = nullptr;
};
