#include <gsl_Indent.h>
#include <ostream>

aio_ostream& operator<<(aio_ostream& stream, const gsl_Indent& indent)
{
    for (int i = 0; i < indent.count; ++i)
    {
        stream.put(' ');
    }
    return stream;
}
