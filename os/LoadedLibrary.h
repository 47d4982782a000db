// LoadedLibrary.h: one dlopen of a module, with the loader's error text caught where it happens.
//
// The constructor opens the file with RTLD_NOW | RTLD_GLOBAL (every symbol bound at once, and
// made visible to modules loaded later) and never throws: on failure IsLoaded() is false and
// Error() holds dlerror()'s text, read before anything else can overwrite it. Copyable; the copy
// shares the handle. The handle is never closed: plug-ins, providers and consumers stay loaded
// for the life of the process (their objects and code are in use until exit). dlerror's text is
// per thread, so loads on several threads do not mix their messages.
#ifndef VYRCORE_OS_LOADEDLIBRARY_H
#define VYRCORE_OS_LOADEDLIBRARY_H

#include <string>

namespace NORXVYR20 {
namespace detail {

// dlerror()'s text of the failure that just happened (a fixed text when the loader gives none).
std::string TakeLoaderError();

class TLoadedLibrary {
 public:
  explicit TLoadedLibrary(const std::string& path);

  bool IsLoaded() const { return fHandle != nullptr; }
  void* Handle() const { return fHandle; }
  // The loader's text of the last failure of this object ("" when none).
  const std::string& Error() const { return fError; }

  // The address of the symbol, or null (with Error() set) when the module does not define it.
  void* FindSymbol(const std::string& name);

 private:
  void* fHandle;
  std::string fError;
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
