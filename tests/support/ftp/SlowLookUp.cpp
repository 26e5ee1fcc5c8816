#include "SlowLookUp.h"

#include <atomic>
#include <dlfcn.h>
#include <netdb.h>

namespace {

std::atomic<bool> areHeld = false;
std::atomic<int> waitingLookUps = 0;

} // namespace

SlowLookUp::SlowLookUp()
{
    areHeld = true;
}

SlowLookUp::~SlowLookUp()
{
    release();
}

void SlowLookUp::release()
{
    areHeld = false;
    areHeld.notify_all();
}

int SlowLookUp::waiting() const
{
    return waitingLookUps;
}

// The linker takes this in place of the C library's.
extern "C" int getaddrinfo(const char *host, const char *service, const addrinfo *hints, addrinfo **found)
{
    static const auto original = reinterpret_cast<decltype(&getaddrinfo)>(::dlsym(RTLD_NEXT, "getaddrinfo"));
    ++waitingLookUps;
    areHeld.wait(true);
    --waitingLookUps;
    return original(host, service, hints, found);
}
