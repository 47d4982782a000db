// Paths.cpp: joining a relative path onto a base directory. Pure text; no file-system access.
#include <vyrcore/OSSpecific.h>

namespace NORXVYR20 {

std::string TOSSpecific::RelocateRelativePath(std::string base, std::string path) {
  if (base.empty() || (!path.empty() && path.front() == '/')) return path;
  if (base.back() != '/') base += '/';
  return base + path;
}

}  // namespace NORXVYR20
