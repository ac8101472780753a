#pragma once

#include <bas_Export.h>

/// Start and stop of the base libraries, counted and not locked: from one thread, before and after all
/// other use. The first start adds one to `running` and enters the component tables of the exceptions (0x1F)
/// and the collections (0x23); further starts only count. The stop that meets the first start takes one from
/// `running`. A stop without a start is kept in the count, on purpose as in every module: the start after it
/// does nothing.
BAS_EXPORT void KTLBas_initialize(int& running);
BAS_EXPORT void KTLBas_finalize(int& running);
