/* Preload library: makes write, pwrite and writev of regular files below a folder as slow as a disk of
 * SLOW_DISK_BYTES_PER_S bytes a second (default 20 MB/s). SLOW_DISK_UNDER names the folder. platform file: LD_PRELOAD,
 * Linux only. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <time.h>
#include <unistd.h>

static pthread_mutex_t lock = PTHREAD_MUTEX_INITIALIZER;
static double freeAt; /* when the disk has worked off what it was given, s of CLOCK_MONOTONIC */

static double now(void)
{
    struct timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return (double)t.tv_sec + (double)t.tv_nsec * 1e-9;
}

static int slowed(int fd)
{
    const char* under = getenv("SLOW_DISK_UNDER");
    if (!under)
        return 0;
    char link[64];
    char path[4096];
    snprintf(link, sizeof link, "/proc/self/fd/%d", fd);
    const ssize_t length = readlink(link, path, sizeof path - 1);
    if (length <= 0)
        return 0;
    path[length] = 0;
    return strncmp(path, under, strlen(under)) == 0;
}

static void spend(int fd, ssize_t bytes)
{
    if (bytes <= 0 || !slowed(fd))
        return;
    const char* rateText = getenv("SLOW_DISK_BYTES_PER_S");
    const double rate = rateText ? atof(rateText) : 20e6;
    pthread_mutex_lock(&lock);
    const double start = freeAt > now() ? freeAt : now();
    freeAt = start + (double)bytes / rate;
    const double wait = freeAt - now();
    pthread_mutex_unlock(&lock);
    if (wait > 0)
        usleep((useconds_t)(wait * 1e6));
}

ssize_t write(int fd, const void* data, size_t size)
{
    static ssize_t (*real)(int, const void*, size_t);
    if (!real)
        real = (ssize_t(*)(int, const void*, size_t))dlsym(RTLD_NEXT, "write");
    const ssize_t done = real(fd, data, size);
    spend(fd, done);
    return done;
}

ssize_t pwrite64(int fd, const void* data, size_t size, off64_t offset)
{
    static ssize_t (*real)(int, const void*, size_t, off64_t);
    if (!real)
        real = (ssize_t(*)(int, const void*, size_t, off64_t))dlsym(RTLD_NEXT, "pwrite64");
    const ssize_t done = real(fd, data, size, offset);
    spend(fd, done);
    return done;
}

ssize_t pwrite(int fd, const void* data, size_t size, off_t offset)
{
    return pwrite64(fd, data, size, offset);
}

ssize_t writev(int fd, const struct iovec* parts, int count)
{
    static ssize_t (*real)(int, const struct iovec*, int);
    if (!real)
        real = (ssize_t(*)(int, const struct iovec*, int))dlsym(RTLD_NEXT, "writev");
    const ssize_t done = real(fd, parts, count);
    spend(fd, done);
    return done;
}
