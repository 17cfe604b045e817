// Prints what a song sounds like: "tagwright-fingerprint FILE". Started by the full program for
// each song that is to be known by its sound. Exit status 1, with the reason on standard error,
// when it cannot be told.

#include "base/bytes.h"
#include "sound/fingerprint.h"

#include <cstdio>
#include <new>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#endif

#if defined(__SANITIZE_ADDRESS__)
#define TAGWRIGHT_SHADOWED_MEMORY
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TAGWRIGHT_SHADOWED_MEMORY
#endif
#endif

namespace {

#ifdef Q_OS_UNIX
void setLimit(int what, rlim_t limit)
{
    const rlimit limits{limit, limit};
    ::setrlimit(static_cast<__rlimit_resource_t>(what), &limits);
}
#endif

/// A song that takes more than that is made to do harm: an honest one takes a second and 50 MB
/// beside the libraries.
void limitWhatASongMayTake()
{
#ifdef Q_OS_UNIX
    constexpr rlim_t time = 30; // seconds of work
    constexpr rlim_t files = 16;
    constexpr rlim_t written = 64 << 10; // bytes
    setLimit(RLIMIT_CPU, time);
    setLimit(RLIMIT_NOFILE, files);
    setLimit(RLIMIT_FSIZE, written);
    setLimit(RLIMIT_CORE, 0);
#ifndef TAGWRIGHT_SHADOWED_MEMORY // of which the sanitizer takes terabytes
    constexpr rlim_t memory = rlim_t(1) << 30; // bytes
    setLimit(RLIMIT_AS, memory);
#endif
#endif
}

int fail(const char *reason)
{
    std::fprintf(stderr, "%s\n", reason);
    return 1;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        return fail("usage: tagwright-fingerprint FILE");
    limitWhatASongMayTake();
    try {
        std::puts(fingerprintOfSong(argv[1]).constData());
    } catch (const MalformedData &fault) {
        return fail(fault.what());
    } catch (const std::bad_alloc &) {
        return fail("the sound takes more memory than a song may");
    }
    return 0;
}
