#include <idb_CollectionWriter.h>

idb_CollectionWriter::~idb_CollectionWriter() = default;

void idb_CollectionWriter::Finish()
{
    if (finished_)
        return;
    finished_ = true;
    Emit(out_);
}

void idb_CollectionWriter::FinishQuietly() noexcept
{
    try
    {
        Finish();
    }
    catch (...)
    {
        out_.MarkFailed();
    }
}
