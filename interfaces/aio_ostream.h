#pragma once
// A minimal output stream. aio_cout, the one stream the system writes to, goes to standard output
// unless a sink is set; a sink receives the bytes instead, as when a test captures the output.

// Receiver of a stream's bytes.
class aio_ostreamSink
{
public:
    virtual ~aio_ostreamSink() = default;
    virtual void Write(char const* bytes, int count) = 0;
    virtual void Flush() = 0;
};

class aio_ostream
{
public:
    typedef aio_ostream& (*Manipulator)(aio_ostream&);

    constexpr aio_ostream() : m_sink(nullptr) {}
    aio_ostream(aio_ostream const&) = delete;
    aio_ostream& operator=(aio_ostream const&) = delete;

    // Writes the text; a null text writes nothing.
    aio_ostream& print(char const* text);
    // Writes the decimal text of the number.
    aio_ostream& print_int(int number);
    aio_ostream& put(char character);
    aio_ostream& flush();

    aio_ostream& operator<<(char const* text) { return print(text); }
    aio_ostream& operator<<(int number) { return print_int(number); }
    aio_ostream& operator<<(Manipulator manipulator) { return manipulator(*this); }

    // Sends the stream's bytes to sink from now on (null: standard output); gives the previous sink.
    aio_ostreamSink* SetSink(aio_ostreamSink* sink);

private:
    void Write(char const* bytes, int count);

    aio_ostreamSink* m_sink;
};

// Ends a line: a line feed, then flush().
aio_ostream& endl(aio_ostream& stream);

extern aio_ostream aio_cout;
