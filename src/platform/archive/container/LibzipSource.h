#pragma once

#include <exception>
#include <zip.h>

/// Data that libzip reads through functions of ours. It has to exist for as long as the zip_source_t that
/// create() makes.
class LibzipSource
{
public:
    LibzipSource();
    virtual ~LibzipSource();
    LibzipSource(const LibzipSource &) = delete;
    LibzipSource &operator=(const LibzipSource &) = delete;

    zip_source_t *create();

    /// What a function in here has thrown, which libzip knows as some error only; null when nothing was.
    std::exception_ptr failure() const { return m_failure; }

protected:
    /// \a data, \a size and the result are those of libzip's source functions. May throw.
    virtual zip_int64_t handle(zip_source_cmd_t command, void *data, zip_uint64_t size) = 0;

    zip_int64_t fail(int code, int systemCode);
    zip_error_t *error() { return &m_error; }

private:
    static zip_int64_t call(void *self, void *data, zip_uint64_t size, zip_source_cmd_t command);

    zip_error_t m_error;
    std::exception_ptr m_failure;
};
