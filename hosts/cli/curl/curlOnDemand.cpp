// The part of libcurl that the netCDF library calls, passed on to libcurl when it is first needed.
// Loading it brings some thirty libraries along, which takes longer than drawing most sections;
// it is needed for data sets at an address only.
#include <curl/curl.h>
#include <dlfcn.h>

#include <cstdarg>
#include <optional>

// The macros that check the types of options would wrap the definitions below.
#undef curl_easy_setopt
#undef curl_easy_getinfo

namespace {

// An option's value is taken out of its argument list as a pointer, whatever it is.
static_assert(sizeof(long) == sizeof(void*) && sizeof(curl_off_t) == sizeof(void*));

// What was asked for before the library was there.
std::optional<long> wantedInitialization;

void* load() {
  void* library = dlopen(KELVANE_CURL_SONAME, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return nullptr;
  const auto init = reinterpret_cast<decltype(&curl_global_init)>(
      dlsym(library, "curl_global_init"));
  if (init != nullptr && wantedInitialization) init(*wantedInitialization);
  return library;
}

void* library(bool mayLoad = true) {
  static void* loaded = nullptr;
  if (loaded == nullptr && mayLoad) loaded = load();
  return loaded;
}

template <class Function>
Function* find(const char* name, bool mayLoad = true) {
  void* const from = library(mayLoad);
  return from == nullptr ? nullptr : reinterpret_cast<Function*>(dlsym(from, name));
}

}  // namespace

extern "C" {

CURLcode curl_global_init(long flags) {
  if (auto* const init = find<decltype(curl_global_init)>("curl_global_init", false)) {
    return init(flags);
  }
  wantedInitialization = flags;
  return CURLE_OK;
}

void curl_global_cleanup() {
  if (auto* const cleanup = find<decltype(curl_global_cleanup)>("curl_global_cleanup", false)) {
    cleanup();
  }
  wantedInitialization.reset();
}

CURL* curl_easy_init() {
  auto* const init = find<decltype(curl_easy_init)>("curl_easy_init");
  return init == nullptr ? nullptr : init();
}

void curl_easy_cleanup(CURL* handle) {
  if (auto* const cleanup = find<decltype(curl_easy_cleanup)>("curl_easy_cleanup")) cleanup(handle);
}

CURLcode curl_easy_perform(CURL* handle) {
  auto* const perform = find<decltype(curl_easy_perform)>("curl_easy_perform");
  return perform == nullptr ? CURLE_FAILED_INIT : perform(handle);
}

CURLcode curl_easy_setopt(CURL* handle, CURLoption option, ...) {
  auto* const set = find<decltype(curl_easy_setopt)>("curl_easy_setopt");
  if (set == nullptr) return CURLE_FAILED_INIT;
  va_list arguments;
  va_start(arguments, option);
  void* const value = va_arg(arguments, void*);
  va_end(arguments);
  return set(handle, option, value);
}

CURLcode curl_easy_getinfo(CURL* handle, CURLINFO info, ...) {
  auto* const get = find<decltype(curl_easy_getinfo)>("curl_easy_getinfo");
  if (get == nullptr) return CURLE_FAILED_INIT;
  va_list arguments;
  va_start(arguments, info);
  void* const place = va_arg(arguments, void*);
  va_end(arguments);
  return get(handle, info, place);
}

const char* curl_easy_strerror(CURLcode code) {
  auto* const text = find<decltype(curl_easy_strerror)>("curl_easy_strerror");
  return text == nullptr ? "libcurl could not be loaded" : text(code);
}

curl_version_info_data* curl_version_info(CURLversion version) {
  if (auto* const info = find<decltype(curl_version_info)>("curl_version_info")) {
    return info(version);
  }
  // Asked for the protocols, without a look at whether there is an answer.
  static const char* const protocols[] = {nullptr};
  static curl_version_info_data none = [] {
    curl_version_info_data data = {};
    data.protocols = protocols;
    return data;
  }();
  return &none;
}

}  // extern "C"
