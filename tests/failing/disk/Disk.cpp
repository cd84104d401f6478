#include "failing/disk/Disk.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <set>

namespace failing {
namespace {

struct State {
  int failing = 0;
  int error = 0;
  std::vector<std::string> calls;
  std::set<int> parts;  // descriptors
};
State* state = nullptr;

// Takes down a call; whether it is to fail.
bool fails(const char* call) {
  state->calls.emplace_back(call);
  if (static_cast<int>(state->calls.size()) != state->failing) return false;
  errno = state->error;
  return true;
}

bool isPart(const char* name) { return std::strstr(name, ".kelvane-") != nullptr; }
bool ofPart(int descriptor) { return state != nullptr && state->parts.contains(descriptor); }

template <class Call>
Call systems(const char* name) {
  return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name));
}

}  // namespace

Disk::Disk(int n, int error) {
  state = new State;
  state->failing = n;
  state->error = error;
}
Disk::~Disk() {
  delete state;
  state = nullptr;
}
const std::vector<std::string>& Disk::calls() const { return state->calls; }

}  // namespace failing

using namespace failing;

// The program's own functions come before the system's.
extern "C" int open(const char* name, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  const bool part = state != nullptr && isPart(name);
  if (part && fails("open")) return -1;
  static const auto real = systems<int (*)(const char*, int, ...)>("open");
  const int descriptor = real(name, flags, mode);
  if (part && descriptor >= 0) state->parts.insert(descriptor);
  return descriptor;
}

extern "C" ssize_t write(int descriptor, const void* bytes, size_t length) {
  static const auto real = systems<ssize_t (*)(int, const void*, size_t)>("write");
  if (!ofPart(descriptor)) return real(descriptor, bytes, length);
  // A disk that becomes full takes what still fits.
  const size_t fitting = length > 1 ? length / 2 : length;
  return fails("write") ? -1 : real(descriptor, bytes, fitting);
}

extern "C" int fsync(int descriptor) {
  static const auto real = systems<int (*)(int)>("fsync");
  return ofPart(descriptor) && fails("fsync") ? -1 : real(descriptor);
}

extern "C" int fchmod(int descriptor, mode_t mode) noexcept {
  static const auto real = systems<int (*)(int, mode_t)>("fchmod");
  return ofPart(descriptor) && fails("fchmod") ? -1 : real(descriptor, mode);
}

extern "C" int close(int descriptor) {
  static const auto real = systems<int (*)(int)>("close");
  if (!ofPart(descriptor)) return real(descriptor);
  state->parts.erase(descriptor);
  const bool failed = fails("close");
  const int error = errno;
  const int result = real(descriptor);
  errno = error;
  return failed ? -1 : result;
}

extern "C" int rename(const char* from, const char* to) noexcept {
  static const auto real = systems<int (*)(const char*, const char*)>("rename");
  return state != nullptr && isPart(from) && fails("rename") ? -1 : real(from, to);
}
