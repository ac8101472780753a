#include <algorithm>
#include <bat_Interrupted.h>
#include <bat_Task.h>

void bat_Task::Ask() const
{
    const double done = total_ == 0 ? 0.0 : static_cast<double>(done_) / static_cast<double>(total_);
    if (!watcher_.Proceed(std::min(done, 1.0)))
        throw bat_Interrupted();
}
