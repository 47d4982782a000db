#include "os/LoadedLibrary.h"

#include <dlfcn.h>

namespace NORXVYR20 {
namespace detail {
// dlerror() returns the text once and then null; a failure without text still gets one.
std::string TakeLoaderError() {
  const char* text = dlerror();
  return text ? text : "unknown dynamic loader error";
}

TLoadedLibrary::TLoadedLibrary(const std::string& path)
    : fHandle(dlopen(path.c_str(), RTLD_NOW | RTLD_GLOBAL)) {
  if (!fHandle) fError = TakeLoaderError();
}

void* TLoadedLibrary::FindSymbol(const std::string& name) {
  dlerror();  // forget any earlier text, so that what follows belongs to this lookup
  void* address = dlsym(fHandle, name.c_str());
  if (!address) fError = TakeLoaderError();
  return address;
}

}  // namespace detail
}  // namespace NORXVYR20
