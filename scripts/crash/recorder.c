/* Preloaded before a desk: writes down every change that it makes to the files of one folder, and every sync, in the order in which they happen.
 *
 * KARVEL_RECORD names the folder of the record: `trace` is appended to, `lock` puts the writers of several processes in line, and `control` holds
 * three numbers, the count of syncs and of writes from now on after which one fails, and that of syncs after which the desk is killed in the midst
 * of one (0: none). KARVEL_RECORD_UNDER names the folder that is watched. A sync doesn't reach the disk, which is only acted; it takes as many
 * microseconds as KARVEL_RECORD_PAUSE tells, so that syncs of several threads overlap. power_cut.py reads the record. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <pthread.h>
#include <signal.h>
#include <stdarg.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

enum { kMostHandles = 65536, kSyncs = 0, kWrites = 1, kKills = 2 };

/* What stands before the bytes of a record. A path or what was written follows. */
struct Head {
  uint32_t kind; /* a letter, see power_cut.py */
  uint32_t process;
  uint64_t inode;
  uint64_t place; /* offset, new size, or number of the sync */
  uint32_t first; /* bytes of the first path, or of the data */
  uint32_t second;
};

static pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
static const char* under;
static size_t underLength;
static int trace = -1, line = -1;
static int32_t* control;
static useconds_t pauseOfSync;
static uint64_t syncs;
static unsigned char watched[kMostHandles];

#define NEXT(type, name, ...)                                            \
  static type (*next)(__VA_ARGS__);                                      \
  if (next == NULL) next = (type(*)(__VA_ARGS__))dlsym(RTLD_NEXT, name); \
  Ready()

static int OpenAsEver(const char* path, int flags) {
  int (*next)(const char*, int, ...) = (int (*)(const char*, int, ...))dlsym(RTLD_NEXT, "open");
  return next(path, flags, 0600);
}

static void Begin(void) {
  const char* folder = getenv("KARVEL_RECORD");
  under = getenv("KARVEL_RECORD_UNDER");
  if (folder == NULL || under == NULL) return;
  char path[PATH_MAX];
  snprintf(path, sizeof path, "%s/lock", folder);
  line = OpenAsEver(path, O_RDWR | O_CREAT | O_CLOEXEC);
  snprintf(path, sizeof path, "%s/control", folder);
  const int page = OpenAsEver(path, O_RDWR | O_CLOEXEC);
  if (page >= 0) control = (int32_t*)mmap(NULL, 4096, PROT_READ | PROT_WRITE, MAP_SHARED, page, 0);
  snprintf(path, sizeof path, "%s/trace", folder);
  trace = OpenAsEver(path, O_WRONLY | O_APPEND | O_CLOEXEC);
  if (line < 0 || trace < 0 || control == NULL || control == MAP_FAILED) {
    fprintf(stderr, "recorder: nothing can be recorded in %s\n", folder);
    _exit(70);
  }
  const char* pause = getenv("KARVEL_RECORD_PAUSE");
  if (pause != NULL) pauseOfSync = (useconds_t)atoi(pause);
  underLength = strlen(under);
}

static void Ready(void) {
  static pthread_once_t once = PTHREAD_ONCE_INIT;
  pthread_once(&once, Begin);
}

static void Lock(void) {
  pthread_mutex_lock(&mutex);
  while (flock(line, LOCK_EX) != 0 && errno == EINTR) {
  }
}

/* Whoever asks for the error number after the call must find that of the call. */
static void Unlock(void) {
  const int error = errno;
  flock(line, LOCK_UN);
  pthread_mutex_unlock(&mutex);
  errno = error;
}

static int IsUnder(const char* path) {
  return trace >= 0 && path != NULL && strncmp(path, under, underLength) == 0 && (path[underLength] == '/' || path[underLength] == '\0');
}

static int IsWatched(int handle) {
  return handle >= 0 && handle < kMostHandles && watched[handle];
}

static void Watch(int handle) {
  if (handle >= 0 && handle < kMostHandles) watched[handle] = 1;
}

static uint64_t InodeOf(int handle) {
  struct stat info;
  return fstat(handle, &info) == 0 ? info.st_ino : 0;
}

static uint64_t InodeAt(const char* path) {
  struct stat info;
  return lstat(path, &info) == 0 ? info.st_ino : 0;
}

static void Put(char kind, uint64_t inode, uint64_t place, const void* first, size_t firstLength, const char* second) {
  const int error = errno;
  struct Head head = {(uint32_t)kind, (uint32_t)getpid(), inode, place, (uint32_t)firstLength, second == NULL ? 0 : (uint32_t)strlen(second)};
  struct iovec pieces[3] = {{&head, sizeof head}, {(void*)first, firstLength}, {(void*)second, head.second}};
  ssize_t (*next)(int, const struct iovec*, int) = (ssize_t(*)(int, const struct iovec*, int))dlsym(RTLD_NEXT, "writev");
  if (next(trace, pieces, 3) != (ssize_t)(sizeof head + firstLength + head.second)) _exit(71);
  errno = error;
}

static void PutPath(char kind, const char* path, const char* second) {
  Put(kind, InodeAt(second != NULL ? second : path), 0, path, strlen(path), second);
}

/* Counts down to the one that fails, or kills. */
static int IsToFail(int what) {
  return control[what] > 0 && --control[what] == 0;
}

/* Opening. */

static int Open(int (*next)(const char*, int, ...), const char* path, int flags, mode_t mode) {
  if (!IsUnder(path)) return next(path, flags, mode);
  Lock();
  const int there = InodeAt(path) != 0;
  const int handle = next(path, flags, mode);
  if (handle >= 0) {
    Watch(handle);
    if ((flags & O_TMPFILE) == O_TMPFILE) {
      Put('C', InodeOf(handle), 0, "", 0, NULL);
    } else if (!there) {
      PutPath('C', path, NULL);
    } else if (flags & O_TRUNC) {
      Put('T', InodeOf(handle), 0, NULL, 0, NULL);
    }
  }
  Unlock();
  return handle;
}

#define MODE_OF(flags)                               \
  mode_t mode = 0;                                   \
  if (flags & (O_CREAT | O_TMPFILE)) {               \
    va_list arguments;                               \
    va_start(arguments, flags);                      \
    mode = (mode_t)va_arg(arguments, unsigned int);  \
    va_end(arguments);                               \
  }

int open(const char* path, int flags, ...) {
  NEXT(int, "open", const char*, int, ...);
  MODE_OF(flags)
  return Open(next, path, flags, mode);
}

int open64(const char* path, int flags, ...) {
  NEXT(int, "open64", const char*, int, ...);
  MODE_OF(flags)
  return Open(next, path, flags, mode);
}

int close(int handle) {
  NEXT(int, "close", int);
  if (handle >= 0 && handle < kMostHandles) watched[handle] = 0;
  return next(handle);
}

/* Writing. */

static ssize_t Written(int handle, const void* bytes, ssize_t count, off_t offset) {
  if (count > 0) Put('W', InodeOf(handle), (uint64_t)offset, bytes, (size_t)count, NULL);
  return count;
}

/* What went through a stream, as one write when it is closed: the C library's own writes can't be seen. */
int fclose(FILE* stream) {
  NEXT(int, "fclose", FILE*);
  const int handle = stream == NULL ? -1 : fileno(stream);
  if (!IsWatched(handle)) return next(stream);
  Lock();
  fflush(stream);
  struct stat info;
  if (fstat(handle, &info) == 0 && info.st_size > 0) {
    void* all = mmap(NULL, (size_t)info.st_size, PROT_READ, MAP_SHARED, handle, 0);
    if (all == MAP_FAILED) {
      fprintf(stderr, "recorder: a stream can't be read back\n");
      _exit(72);
    }
    Written(handle, all, info.st_size, 0);
    munmap(all, (size_t)info.st_size);
  }
  watched[handle] = 0;
  const int failed = next(stream);
  Unlock();
  return failed;
}

static int NoRoom(void) {
  if (!IsToFail(kWrites)) return 0;
  errno = ENOSPC;
  return 1;
}

ssize_t write(int handle, const void* bytes, size_t count) {
  NEXT(ssize_t, "write", int, const void*, size_t);
  if (!IsWatched(handle)) return next(handle, bytes, count);
  Lock();
  const off_t offset = lseek(handle, 0, (fcntl(handle, F_GETFL) & O_APPEND) ? SEEK_END : SEEK_CUR);
  const ssize_t done = NoRoom() ? -1 : Written(handle, bytes, next(handle, bytes, count), offset);
  Unlock();
  return done;
}

static ssize_t WriteAt(ssize_t (*next)(int, const void*, size_t, off_t), int handle, const void* bytes, size_t count, off_t offset) {
  if (!IsWatched(handle)) return next(handle, bytes, count, offset);
  Lock();
  const ssize_t done = NoRoom() ? -1 : Written(handle, bytes, next(handle, bytes, count, offset), offset);
  Unlock();
  return done;
}

ssize_t pwrite(int handle, const void* bytes, size_t count, off_t offset) {
  NEXT(ssize_t, "pwrite", int, const void*, size_t, off_t);
  return WriteAt(next, handle, bytes, count, offset);
}

ssize_t pwrite64(int handle, const void* bytes, size_t count, off_t offset) {
  NEXT(ssize_t, "pwrite64", int, const void*, size_t, off_t);
  return WriteAt(next, handle, bytes, count, offset);
}

static int Resize(int (*next)(int, off_t), int handle, off_t size) {
  if (!IsWatched(handle)) return next(handle, size);
  Lock();
  const int failed = next(handle, size);
  if (failed == 0) Put('T', InodeOf(handle), (uint64_t)size, NULL, 0, NULL);
  Unlock();
  return failed;
}

int ftruncate(int handle, off_t size) {
  NEXT(int, "ftruncate", int, off_t);
  return Resize(next, handle, size);
}

int ftruncate64(int handle, off_t size) {
  NEXT(int, "ftruncate64", int, off_t);
  return Resize(next, handle, size);
}

/* Syncing. What was written while it ran isn't sure to be on the disk, so its begin and its end are told. */

static int Sync(int (*next)(int), int handle) {
  if (!IsWatched(handle)) return next(handle);
  const uint64_t inode = InodeOf(handle);
  Lock();
  if (IsToFail(kKills)) kill(getpid(), SIGKILL);
  const int fails = IsToFail(kSyncs);
  const uint64_t number = ++syncs;
  if (!fails) Put('S', inode, number, NULL, 0, NULL);
  Unlock();
  if (pauseOfSync > 0) usleep(pauseOfSync);
  if (fails) {
    errno = EIO;
    return -1;
  }
  Lock();
  Put('E', inode, number, NULL, 0, NULL);
  Unlock();
  return 0;
}

int fsync(int handle) {
  NEXT(int, "fsync", int);
  return Sync(next, handle);
}

int fdatasync(int handle) {
  NEXT(int, "fdatasync", int);
  return Sync(next, handle);
}

/* Names. */

static int Rename(const char* from, const char* to, int failed) {
  if (failed == 0) PutPath('R', from, to);
  return failed;
}

int rename(const char* from, const char* to) {
  NEXT(int, "rename", const char*, const char*);
  if (!IsUnder(from) && !IsUnder(to)) return next(from, to);
  Lock();
  const int failed = Rename(from, to, next(from, to));
  Unlock();
  return failed;
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned int flags) {
  NEXT(int, "renameat2", int, const char*, int, const char*, unsigned int);
  if (!IsUnder(from) && !IsUnder(to)) return next(fromFolder, from, toFolder, to, flags);
  Lock();
  const int failed = Rename(from, to, next(fromFolder, from, toFolder, to, flags));
  Unlock();
  return failed;
}

int link(const char* from, const char* to) {
  NEXT(int, "link", const char*, const char*);
  if (!IsUnder(to)) return next(from, to);
  Lock();
  const int failed = next(from, to);
  if (failed == 0) PutPath('L', to, NULL);
  Unlock();
  return failed;
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
  NEXT(int, "linkat", int, const char*, int, const char*, int);
  if (!IsUnder(to)) return next(fromFolder, from, toFolder, to, flags);
  Lock();
  const int failed = next(fromFolder, from, toFolder, to, flags);
  if (failed == 0) PutPath('L', to, NULL);
  Unlock();
  return failed;
}

static int Gone(const char* path, int (*next)(const char*)) {
  if (!IsUnder(path)) return next(path);
  Lock();
  const int failed = next(path);
  if (failed == 0) Put('U', 0, 0, path, strlen(path), NULL);
  Unlock();
  return failed;
}

int unlink(const char* path) {
  NEXT(int, "unlink", const char*);
  return Gone(path, next);
}

int rmdir(const char* path) {
  NEXT(int, "rmdir", const char*);
  return Gone(path, next);
}

int remove(const char* path) {
  NEXT(int, "remove", const char*);
  return Gone(path, next);
}

int mkdir(const char* path, mode_t mode) {
  NEXT(int, "mkdir", const char*, mode_t);
  if (!IsUnder(path)) return next(path, mode);
  Lock();
  const int failed = next(path, mode);
  if (failed == 0) PutPath('M', path, NULL);
  Unlock();
  return failed;
}
