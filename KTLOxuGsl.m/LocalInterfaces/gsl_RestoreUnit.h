#pragma once

class gsl_PersistentVector;

/// Makes a vector that was read good as a unit vector: one that is already, within the linear tolerance,
/// keeps its bits, another one is normalised. false, and the vector becomes zero, when it has no direction.
[[nodiscard]] bool gsl_RestoreUnit(gsl_PersistentVector& vector);
