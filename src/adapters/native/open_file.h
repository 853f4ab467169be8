#pragma once

#include "platform/files.h"
#include "system/output_buffer.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace inin {

// The open files of the port, the same on each system but for the calls. `Calls` has the types Handle, Path and Error
// and these static operations:
//
//     Error lastError(); void setLastError(Error);       0 is success
//     [[noreturn]] void fail(Error, const Path &);       raises the runtime's error
//     std::int64_t position(const Handle &);             negative if it is unknown
//     void cutAt(const Handle &, std::int64_t size);     a failure is ignored

template <class Calls> class OpenFile {
protected:
    OpenFile(typename Calls::Handle file, typename Calls::Path path) : m_file(std::move(file)), m_path(std::move(path))
    {
    }
    [[noreturn]] void fail() const { Calls::fail(Calls::lastError(), m_path); }

    typename Calls::Handle m_file;
    typename Calls::Path m_path;
};

template <class Calls> class OpenInput : public InputFile, private OpenFile<Calls> {
public:
    OpenInput(typename Calls::Handle file, typename Calls::Path path)
        : OpenFile<Calls>(std::move(file), std::move(path))
    {
    }

    std::string read(std::size_t size) override
    {
        std::string bytes;
        if (!readUpTo(this->m_file, size, bytes)) this->fail();
        return bytes;
    }
};

/// A file that is locked as long as it is open.
template <class Calls> class OpenLockedOutput : public OutputFile, private OpenFile<Calls> {
public:
    OpenLockedOutput(typename Calls::Handle file, typename Calls::Path path)
        : OpenFile<Calls>(std::move(file), std::move(path))
    {
    }

    void write(std::string_view bytes) override
    {
        if (!writeAll(this->m_file, bytes)) this->fail();
    }

    void close() override
    {
        if (this->m_file.isOpen() && !this->m_file.close()) this->fail();
    }
};

/// A file whose last line end is written by close(), see OutputBuffer.
template <class Calls> class OpenOutput : public OutputFile, private OpenFile<Calls> {
public:
    OpenOutput(typename Calls::Handle file, typename Calls::Path path)
        : OpenFile<Calls>(std::move(file), std::move(path))
    {
    }
    ~OpenOutput() override
    {
        if (this->m_file.isOpen()) (void)put(m_buffer.takeCutOff()); // a destructor cannot report a failure
    }

    void write(std::string_view bytes) override
    {
        m_buffer.add(bytes);
        const std::string due = m_buffer.takeDue(); // freeing it may change the last error
        if (!put(due)) this->fail();
    }

    void close() override
    {
        if (!this->m_file.isOpen()) return;
        using Error = typename Calls::Error;
        const Error writeError = put(m_buffer.takeAll()) ? Error{} : Calls::lastError();
        const Error closeError = this->m_file.close() ? Error{} : Calls::lastError();
        if (writeError != Error{} || closeError != Error{})
            Calls::fail(writeError != Error{} ? writeError : closeError, this->m_path);
    }

private:
    /// After a failure nothing more is written: the file stays as it is.
    bool put(std::string_view bytes)
    {
        if (writeAll(this->m_file, bytes)) {
            m_size += static_cast<std::int64_t>(bytes.size());
            return true;
        }
        const typename Calls::Error error = Calls::lastError();
        removeLineEnd(bytes);
        m_buffer = {};
        Calls::setLastError(error);
        return false;
    }

    /// A failed write may have stored the bytes up to the end of a line; remove that line end.
    void removeLineEnd(std::string_view bytes) const
    {
        const std::int64_t end = Calls::position(this->m_file);
        if (end <= m_size) return;
        const std::string_view stored = bytes.substr(0, static_cast<std::size_t>(end - m_size));
        const std::size_t kept = lengthWithoutLineEnd(stored);
        if (kept < stored.size()) Calls::cutAt(this->m_file, m_size + static_cast<std::int64_t>(kept));
    }

    std::int64_t m_size = 0; ///< of what was written successfully
    OutputBuffer m_buffer;
};

} // namespace inin
