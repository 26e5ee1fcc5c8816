#pragma once

// The library's checks of types are macros over its functions, which are called by pointers here.
#define CURL_DISABLE_TYPECHECK
#include <curl/curl.h>
#undef curl_easy_setopt

#include <QLibrary>

/// The functions of libcurl that requests need. The library is loaded when it is first needed, for it brings
/// thirty others, which the start of the suite would pay for.
class CurlLibrary
{
public:
    /// Throws RuntimeError 48 where it is not installed.
    static const CurlLibrary &loaded();

    decltype(&::curl_easy_init) easyInit;
    decltype(&::curl_easy_setopt) easySetOption;
    decltype(&::curl_easy_perform) easyPerform;
    decltype(&::curl_easy_cleanup) easyCleanup;

private:
    CurlLibrary();

    template<class Function>
    void resolve(Function &function, const char *name);

    QLibrary m_library;
};
