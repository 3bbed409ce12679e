#include "aio_ostream.h"

#include <cstdio>
#include <cstring>

constinit aio_ostream aio_cout;

void aio_ostream::Write(char const* bytes, int count)
{
    if (m_sink)
        m_sink->Write(bytes, count);
    else
        std::fwrite(bytes, 1, static_cast<std::size_t>(count), stdout);
}

aio_ostream& aio_ostream::print(char const* text)
{
    if (text)
        Write(text, static_cast<int>(std::strlen(text)));
    return *this;
}

aio_ostream& aio_ostream::print_int(int number)
{
    char text[16];
    Write(text, std::snprintf(text, sizeof text, "%d", number));
    return *this;
}

aio_ostream& aio_ostream::put(char character)
{
    Write(&character, 1);
    return *this;
}

aio_ostream& aio_ostream::flush()
{
    if (m_sink)
        m_sink->Flush();
    else
        std::fflush(stdout);
    return *this;
}

aio_ostreamSink* aio_ostream::SetSink(aio_ostreamSink* sink)
{
    aio_ostreamSink* previous = m_sink;
    m_sink = sink;
    return previous;
}

aio_ostream& endl(aio_ostream& stream)
{
    return stream.put('\n').flush();
}
