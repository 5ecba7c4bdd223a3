#include "fault/injector.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <new>

#include "support/outside_library.h"

namespace zeapi::testing {
namespace {

bool armed = false;
bool halfReads = false;
int countdown = 0;
int counted = 0;
const char* failedFunction = "";
const char* exportNow = "";
const char* exportFailed = "";
std::set<std::string> tried;

// True when this call is the one that is to fail.
bool Fails(const char* function, int error) {
  if (!armed || outsideLibrary != 0) return false;
  ++counted;
  if (countdown == 0 || --countdown != 0) return false;
  failedFunction = function;
  exportFailed = exportNow;
  errno = error;
  return true;
}

}  // namespace

void ArmFault(int failing) {
  countdown = failing;
  counted = 0;
  failedFunction = "";
  exportNow = exportFailed = "";
  armed = true;
}

void FailingReadsGiveHalf(bool half) { halfReads = half; }
void DisarmFault() { armed = false; }
int CountedCalls() { return counted; }
std::string FailedFunction() { return failedFunction; }
std::string FailedExport() { return exportFailed; }
const std::set<std::string>& TriedExports() { return tried; }

void NoteExport(const char* name) {
  if (!armed) return;
  const OutsideLibrary own;  // what the note takes is not counted
  exportNow = name;
  tried.insert(name);
}

std::size_t OpenDescriptors() {
  const std::filesystem::directory_iterator all("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

}  // namespace zeapi::testing

using zeapi::testing::Fails;
using zeapi::testing::halfReads;

// A call that fails does nothing, but for closing: what was to be closed is closed all the same.
#define FAULT_POINT(type, name, parameters, arguments, error, failure) \
  extern "C" type __real_##name parameters;                            \
  extern "C" type __wrap_##name parameters;                            \
  extern "C" type __wrap_##name parameters {                           \
    if (Fails(#name, error)) return failure;                           \
    return __real_##name arguments;                                    \
  }
#define CLOSING_FAULT_POINT(name, parameter, argument)      \
  extern "C" int __real_##name(parameter);                  \
  extern "C" int __wrap_##name(parameter);                  \
  extern "C" int __wrap_##name(parameter argument) {        \
    if (!Fails(#name, EIO)) return __real_##name(argument); \
    __real_##name(argument);                                \
    errno = EIO;                                            \
    return -1;                                              \
  }

FAULT_POINT(void*, malloc, (std::size_t size), (size), ENOMEM, nullptr)
FAULT_POINT(void*, calloc, (std::size_t count, std::size_t size), (count, size), ENOMEM, nullptr)
FAULT_POINT(std::FILE*, fopen, (const char* path, const char* mode), (path, mode), EACCES, nullptr)
FAULT_POINT(std::FILE*, fdopen, (int file, const char* mode), (file, mode), ENOMEM, nullptr)
FAULT_POINT(std::FILE*, fopencookie,
            (void* cookie, const char* mode, cookie_io_functions_t functions),
            (cookie, mode, functions), ENOMEM, nullptr)
FAULT_POINT(std::size_t, fwrite,
            (const void* data, std::size_t size, std::size_t count, std::FILE* file),
            (data, size, count, file), ENOSPC, 0)
FAULT_POINT(int, fflush, (std::FILE * file), (file), ENOSPC, EOF)
FAULT_POINT(int, fputs, (const char* text, std::FILE* file), (text, file), ENOSPC, EOF)
FAULT_POINT(ssize_t, read, (int file, void* buffer, std::size_t size), (file, buffer, size), EIO,
            -1)
FAULT_POINT(ssize_t, write, (int file, const void* data, std::size_t size), (file, data, size),
            ENOSPC, -1)
FAULT_POINT(off_t, lseek, (int file, off_t offset, int origin), (file, offset, origin), EIO, -1)
FAULT_POINT(int, fseek, (std::FILE * file, long offset, int origin), (file, offset, origin), EIO,
            -1)
FAULT_POINT(int, ftruncate, (int file, off_t size), (file, size), EIO, -1)
FAULT_POINT(int, access, (const char* path, int mode), (path, mode), EACCES, -1)
FAULT_POINT(int, stat, (const char* path, struct stat* status), (path, status), EACCES, -1)
FAULT_POINT(int, lstat, (const char* path, struct stat* status), (path, status), EACCES, -1)
FAULT_POINT(int, fstat, (int file, struct stat* status), (file, status), EIO, -1)
FAULT_POINT(int, mkdir, (const char* path, mode_t mode), (path, mode), EACCES, -1)
FAULT_POINT(int, mkdirat, (int folder, const char* path, mode_t mode), (folder, path, mode), EACCES,
            -1)
FAULT_POINT(int, utimensat, (int folder, const char* path, const timespec* times, int flags),
            (folder, path, times, flags), EACCES, -1)
FAULT_POINT(int, mkstemp, (char* name), (name), EACCES, -1)
FAULT_POINT(int, unlink, (const char* path), (path), EACCES, -1)
FAULT_POINT(DIR*, opendir, (const char* path), (path), EACCES, nullptr)
FAULT_POINT(dirent*, readdir, (DIR * folder), (folder), EIO, nullptr)
CLOSING_FAULT_POINT(close, int, file)
CLOSING_FAULT_POINT(fclose, std::FILE*, file)
CLOSING_FAULT_POINT(closedir, DIR*, folder)

// Reading from a stream also leaves its mark in the stream.
std::FILE* MarkError(std::FILE* file) {
  file->_flags |= _IO_ERR_SEEN;
  return file;
}
extern "C" std::size_t __real_fread(void* buffer, std::size_t size, std::size_t count,
                                    std::FILE* file);
extern "C" std::size_t __wrap_fread(void* buffer, std::size_t size, std::size_t count,
                                    std::FILE* file);
extern "C" std::size_t __wrap_fread(void* buffer, std::size_t size, std::size_t count,
                                    std::FILE* file) {
  if (!Fails("fread", EIO)) return __real_fread(buffer, size, count, file);
  const std::size_t read = halfReads ? __real_fread(buffer, size, count / 2, file) : 0;
  MarkError(file);
  return read;
}
FAULT_POINT(char*, fgets, (char* line, int size, std::FILE* file), (line, size, file), EIO,
            (MarkError(file), nullptr))

extern "C" int __real_open(const char* path, int flags, ...);
extern "C" int __wrap_open(const char* path, int flags, ...);
extern "C" int __wrap_open(const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : mode_t{0};
  va_end(arguments);
  return Fails("open", EACCES) ? -1 : __real_open(path, flags, mode);
}

extern "C" int __real_openat(int folder, const char* path, int flags, ...);
extern "C" int __wrap_openat(int folder, const char* path, int flags, ...);
extern "C" int __wrap_openat(int folder, const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : mode_t{0};
  va_end(arguments);
  return Fails("openat", EACCES) ? -1 : __real_openat(folder, path, flags, mode);
}

void* operator new(std::size_t size) {
  if (Fails("new", ENOMEM)) throw std::bad_alloc();
  if (void* block = __real_malloc(size)) return block;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Fails("new", ENOMEM) ? nullptr : __real_malloc(size);
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
