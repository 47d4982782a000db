// OsReleaseReader.h: the operating system and the host, from os-release and the running kernel.
//
// The distribution describes itself in <root>/etc/os-release, or, only when that file does not
// exist, in <root>/usr/lib/os-release: KEY=value lines whose values may be quoted in shell style.
// The kernel release and the host name come from uname(2), which always answers: they belong to
// the running kernel, not to a file tree, so a fixture root does not change them. A missing or
// unreadable os-release file is explained by a debug line in the core log and leaves the name at
// os-release's own default, "Linux", and the version at the kernel's. Nothing throws.
#ifndef VYRCORE_PLUGINS_LINUX_OSRELEASEREADER_H
#define VYRCORE_PLUGINS_LINUX_OSRELEASEREADER_H

#include <map>
#include <string>

#include "SourceFile.h"

namespace vyrlinux {

struct TOperatingSystem {
  std::string fName;           // NAME, or "Linux"
  std::string fVersion;        // "<VERSION, else VERSION_ID, else BUILD_ID>, kernel <release>"
  std::string fKernelRelease;  // uname's release
  std::string fHostName;       // uname's node name
};

TOperatingSystem ReadOperatingSystem(const TSourceRoot& root);

// The assignments of an os-release text, a later one of a key replacing an earlier. Values are
// read as the shell reads them: '...' literally, "..." with \ escaping $ " \ and `, and outside
// quotes \ escaping any character; unquoted blanks inside a value are kept, trailing ones are not.
// Comment lines (#), blank lines, lines without a valid KEY= and lines with an unterminated quote
// are skipped.
std::map<std::string, std::string> ParseOsRelease(const std::string& text);

}  // namespace vyrlinux

#endif
