#include "CurlLibrary.h"

#include "RuntimeError.h"

namespace {

constexpr int interfaceVersion = 4;

} // namespace

const CurlLibrary &CurlLibrary::loaded()
{
    static const CurlLibrary library;
    return library;
}

CurlLibrary::CurlLibrary()
    : m_library(QStringLiteral("curl"), interfaceVersion)
{
    resolve(easyInit, "curl_easy_init");
    resolve(easySetOption, "curl_easy_setopt");
    resolve(easyPerform, "curl_easy_perform");
    resolve(easyCleanup, "curl_easy_cleanup");
}

template<class Function>
void CurlLibrary::resolve(Function &function, const char *name)
{
    function = reinterpret_cast<Function>(m_library.resolve(name));
    if (!function)
        throw RuntimeError(ErrorNumber::ModuleNotLoaded, m_library.errorString(), m_library.fileName());
}
