#pragma once

/// How grave the error is that wip_WIPBase::Error passes on. Reporters decide what each level does;
/// the values are passed across process and language borders: never renumber.
enum wip_errorLevelEnm { wip_INFO = 0, wip_WARNING = 1, wip_ERROR = 2, wip_FATAL = 3 };
