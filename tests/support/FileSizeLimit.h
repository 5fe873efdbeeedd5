#pragma once

#include <csignal>

#include <sys/resource.h>

// For its lifetime, files cannot grow beyond a number of bytes, as on a disk that is full.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
        : FHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &FFormer);
        rlimit limit = FFormer;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &FFormer);
        std::signal(SIGXFSZ, FHandler);
    }

private:
    void (*FHandler)(int);
    rlimit FFormer {};
};
