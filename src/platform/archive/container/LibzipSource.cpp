#include "LibzipSource.h"

LibzipSource::LibzipSource()
{
    zip_error_init(&m_error);
}

LibzipSource::~LibzipSource()
{
    zip_error_fini(&m_error);
}

zip_source_t *LibzipSource::create()
{
    return zip_source_function_create(&LibzipSource::call, this, &m_error);
}

/// No exception passes through libzip.
zip_int64_t LibzipSource::call(void *self, void *data, zip_uint64_t size, zip_source_cmd_t command)
{
    auto *source = static_cast<LibzipSource *>(self);
    try {
        if (command == ZIP_SOURCE_ERROR)
            return zip_error_to_data(&source->m_error, data, size);
        return source->handle(command, data, size);
    } catch (...) {
        source->m_failure = std::current_exception();
        return source->fail(ZIP_ER_INTERNAL, 0);
    }
}

zip_int64_t LibzipSource::fail(int code, int systemCode)
{
    zip_error_set(&m_error, code, systemCode);
    return -1;
}
