#include <omu_ChangeListener.h>

omu_ChangeListener::~omu_ChangeListener() = default;
