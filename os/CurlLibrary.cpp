#include "os/CurlLibrary.h"

#include <dlfcn.h>

#include "core/Fail.h"
#include "os/LoadedLibrary.h"

namespace NORXVYR20 {
namespace detail {
namespace {

const std::string kPrefix = "TOSSpecific|FTPFile: ";

// Looks name up in the library; the loader's error state is cleared first and checked after, as
// a symbol may legitimately have the address 0.
template <typename Function>
void LookUp(void* library, const char* name, Function& target) {
  dlerror();
  void* address = dlsym(library, name);
  if (const char* error = dlerror()) {
    const std::string text = error;
    dlclose(library);  // the constructor throws: no destructor will
    FailWithLog(kVYRStatusLibCurlFailure, kPrefix + "Error loading curl library: " + text);
  }
  target = reinterpret_cast<Function>(address);
}

}  // namespace

TCurlLibrary::TCurlLibrary() : fHandle(dlopen("libcurl.so", RTLD_LAZY)) {
  if (!fHandle)
    FailWithLog(kVYRStatusLibCurlFailure,
                kPrefix + "Error opening curl library: " + TakeLoaderError());
  LookUp(fHandle, "curl_global_init", fGlobalInit);
  LookUp(fHandle, "curl_easy_init", fEasyInit);
  LookUp(fHandle, "curl_easy_setopt", fEasySetopt);
  LookUp(fHandle, "curl_easy_perform", fEasyPerform);
  LookUp(fHandle, "curl_easy_cleanup", fEasyCleanup);
  LookUp(fHandle, "curl_global_cleanup", fGlobalCleanup);
}

TCurlLibrary::~TCurlLibrary() { dlclose(fHandle); }

TCurlEasy::TCurlEasy(const TCurlLibrary& curl) : fCurl(curl), fHandle(curl.fEasyInit()) {
  if (!fHandle) FailWithLog(kVYRStatusLibCurlFailure, kPrefix + "Error initalizing curl");
}

TCurlEasy::~TCurlEasy() { fCurl.fEasyCleanup(fHandle); }

void TCurlEasy::FailOption(const std::string& failureMessage) {
  FailWithLog(kVYRStatusLibCurlFailure, kPrefix + failureMessage);
}

int TCurlEasy::Perform() { return fCurl.fEasyPerform(fHandle); }

}  // namespace detail
}  // namespace NORXVYR20
