#pragma once

/// Base of classes whose allocation the application may want to steer; empty, they use the global heap.
class mem_AllocationOperators
{};
