/* Preloaded before a desk: a disk that fails. `KARVEL_BAD_DISK` names a file of five numbers that say what fails from now on under the folder
 * `KARVEL_BAD_DISK_UNDER`: what (1 writes, 2 syncs, 3 reads; 0 nothing), how many of them still work, the error number, how many fail then (0: all), and
 * how many have failed. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <pthread.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <unistd.h>

enum { kWhat, kStillWork, kError, kToFail, kFailed };
enum { kWrites = 1, kSyncs, kReads };

static volatile int32_t* control;
static const char* under;
static size_t underLength;

static void Begin(void) {
  const char* path = getenv("KARVEL_BAD_DISK");
  under = getenv("KARVEL_BAD_DISK_UNDER");
  if (path == NULL || under == NULL) return;
  underLength = strlen(under);
  int (*next)(const char*, int, ...) = (int (*)(const char*, int, ...))dlsym(RTLD_NEXT, "open");
  const int file = next(path, O_RDWR | O_CLOEXEC);
  if (file >= 0) control = mmap(NULL, 4096, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  if (file < 0 || control == MAP_FAILED) {
    fprintf(stderr, "bad_disk: %s can't be read\n", path);
    _exit(70);
  }
}

static int IsUnder(int handle) {
  char link[64], path[PATH_MAX];
  snprintf(link, sizeof link, "/proc/self/fd/%d", handle);
  const ssize_t length = readlink(link, path, sizeof path - 1);
  return length > 0 && (size_t)length >= underLength && strncmp(path, under, underLength) == 0;
}

/* Whether this one fails. errno is set then. */
static int Fails(int what, int handle) {
  static pthread_once_t once = PTHREAD_ONCE_INIT;
  static pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
  pthread_once(&once, Begin);
  if (control == NULL || control[kWhat] != what || !IsUnder(handle)) return 0;
  pthread_mutex_lock(&mutex);
  int fails = 0;
  if (control[kStillWork] > 0) {
    --control[kStillWork];
  } else if (control[kToFail] == 0 || control[kFailed] < control[kToFail]) {
    ++control[kFailed];
    fails = 1;
  }
  pthread_mutex_unlock(&mutex);
  if (fails) errno = control[kError];
  return fails;
}

#define NEXT(type, name, ...)                \
  static type (*next)(__VA_ARGS__);          \
  if (next == NULL) next = (type(*)(__VA_ARGS__))dlsym(RTLD_NEXT, name)

ssize_t write(int handle, const void* data, size_t size) {
  NEXT(ssize_t, "write", int, const void*, size_t);
  return Fails(kWrites, handle) ? -1 : next(handle, data, size);
}

ssize_t pwrite(int handle, const void* data, size_t size, off_t at) {
  NEXT(ssize_t, "pwrite", int, const void*, size_t, off_t);
  return Fails(kWrites, handle) ? -1 : next(handle, data, size, at);
}

ssize_t pwrite64(int handle, const void* data, size_t size, off64_t at) {
  NEXT(ssize_t, "pwrite64", int, const void*, size_t, off64_t);
  return Fails(kWrites, handle) ? -1 : next(handle, data, size, at);
}

ssize_t pread(int handle, void* data, size_t size, off_t at) {
  NEXT(ssize_t, "pread", int, void*, size_t, off_t);
  return Fails(kReads, handle) ? -1 : next(handle, data, size, at);
}

ssize_t pread64(int handle, void* data, size_t size, off64_t at) {
  NEXT(ssize_t, "pread64", int, void*, size_t, off64_t);
  return Fails(kReads, handle) ? -1 : next(handle, data, size, at);
}

int fsync(int handle) {
  NEXT(int, "fsync", int);
  return Fails(kSyncs, handle) ? -1 : next(handle);
}

int fdatasync(int handle) {
  NEXT(int, "fdatasync", int);
  return Fails(kSyncs, handle) ? -1 : next(handle);
}
