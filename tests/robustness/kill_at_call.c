/* Loaded in front of the other libraries: ends the program at the call with the number MRD_KILL_AT of those that change files, before it
   is done (as a kill or a power cut would), and counts them in the file MRD_CALL_COUNT when the program ends by itself. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/types.h>
#include <unistd.h>

static long calls;

static void step(void)
{
  const char* at = getenv("MRD_KILL_AT");
  if (at != NULL && ++calls == atol(at))
    raise(SIGKILL);
}

__attribute__((destructor)) static void tell(void)
{
  const char* name = getenv("MRD_CALL_COUNT");
  FILE* file = name == NULL ? NULL : fopen(name, "a");
  if (file != NULL) {
    fprintf(file, "%ld\n", calls);
    fclose(file);
  }
}

#define NEXT(result, name, parameters, arguments)                          \
  result name parameters                                                   \
  {                                                                        \
    static result(*next) parameters;                                       \
    if (next == NULL)                                                      \
      next = (result(*) parameters)dlsym(RTLD_NEXT, #name);                \
    step();                                                                \
    return next arguments;                                                 \
  }

NEXT(ssize_t, pwrite64, (int file, const void* bytes, size_t count, off64_t at), (file, bytes, count, at))
NEXT(ssize_t, pwrite, (int file, const void* bytes, size_t count, off_t at), (file, bytes, count, at))
NEXT(ssize_t, write, (int file, const void* bytes, size_t count), (file, bytes, count))
NEXT(int, fsync, (int file), (file))
NEXT(int, fdatasync, (int file), (file))
NEXT(int, ftruncate64, (int file, off64_t length), (file, length))
NEXT(int, ftruncate, (int file, off_t length), (file, length))
NEXT(int, unlink, (const char* name), (name))
NEXT(int, link, (const char* from, const char* to), (from, to))
NEXT(int, rename, (const char* from, const char* to), (from, to))
NEXT(int, chmod, (const char* name, mode_t mode), (name, mode))
