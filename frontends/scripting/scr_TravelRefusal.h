#pragma once

#include <pybind11/pybind11.h>
#include <string>

/// An argument was not what it should be: raises orvex.TypeError or orvex.ValueError with one
/// sentence, "WHAT: found FOUND, expected EXPECTED".
class scr_TravelRefusal
{
public:
    /// what: "fixed vertices"; expected: "three finite numbers".
    scr_TravelRefusal(std::string what, std::string expected)
        : what_(std::move(what)), expected_(std::move(expected))
    {}

    /// TypeError.
    [[noreturn]] void Type(const std::string& found) const;
    /// TypeError with the name of the object's type.
    [[noreturn]] void Type(pybind11::handle found) const;
    /// ValueError.
    [[noreturn]] void Value(const std::string& found) const;

    /// The object as a float; TypeError, with the place behind its type, for what is no number.
    double Number(pybind11::handle object, const std::string& where = "") const;
    /// The object as a whole number; TypeError for what is none, ValueError for one out of these bounds.
    long WholeNumber(pybind11::handle object, long least, long most) const;

    static std::string TypeName(pybind11::handle object);
    /// The object's ascii(), cut where it is long; raises what that raises.
    static std::string Shown(pybind11::handle object);
    /// A Python text in UTF-8; what UTF-8 cannot say is escaped.
    static std::string Text(pybind11::handle text);

private:
    std::string Sentence(const std::string& found) const;

    std::string what_;
    std::string expected_;
};
