#pragma once

/// The start counter of one module, behind its KTLOxu<Module>_initialize(int&) and
/// KTLOxu<Module>_finalize(int&): counts calls, not starts, and tells the two calls that matter.
///
/// Asymmetric on purpose: a stop without a start leaves the counter at -1, the next start reads -1, which is
/// not zero, and does nothing; only the start after that reads 0 and really starts. Stops at 0 or below
/// subtract nothing. Not locked: a library is started and stopped on one thread, before any other use.
class oxu_StartCounter
{
public:
    /// Counts a start. True when the module has to start now; running has then grown by one.
    [[nodiscard]] bool Start(int& running) noexcept
    {
        if (called_++ != 0)
            return false;
        ++running;
        return true;
    }

    /// Counts a stop. True when the module has to stop now; running has then shrunk by one.
    [[nodiscard]] bool Stop(int& running) noexcept
    {
        if (--called_ != 0)
            return false;
        --running;
        return true;
    }

private:
    int called_ = 0;
};
