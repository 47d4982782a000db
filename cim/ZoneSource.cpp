#include "cim/ZoneSource.h"

#include <fcntl.h>
#include <unistd.h>

#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "os/Eintr.h"
#include "os/UniqueFd.h"

namespace NORXVYR20 {
namespace detail {

namespace {

enum class EZoneFile { kMissing, kOneOffset, kOther };

constexpr std::size_t kHeaderSize = 44;

std::uint32_t BigEndian32(const unsigned char* bytes) {
  return (std::uint32_t{bytes[0]} << 24) | (std::uint32_t{bytes[1]} << 16) |
         (std::uint32_t{bytes[2]} << 8) | bytes[3];
}

bool ReadExactly(int fd, unsigned char* buffer, std::size_t size) {
  std::size_t done = 0;
  while (done < size) {
    const ssize_t got = RetryOnEintr([&] { return ::read(fd, buffer + done, size - done); });
    if (got <= 0) return false;
    done += static_cast<std::size_t>(got);
  }
  return true;
}

bool Skip(int fd, std::uint64_t bytes) {
  return ::lseek(fd, static_cast<off_t>(bytes), SEEK_CUR) != static_cast<off_t>(-1);
}

// The counts of one TZif header: isutcnt, isstdcnt, leapcnt, timecnt, typecnt, charcnt.
struct TCounts {
  std::uint32_t fIsUt, fIsStd, fLeap, fTime, fType, fChar;
};

bool ReadHeader(int fd, char& version, TCounts& counts) {
  unsigned char header[kHeaderSize];
  if (!ReadExactly(fd, header, kHeaderSize) || header[0] != 'T' || header[1] != 'Z' ||
      header[2] != 'i' || header[3] != 'f')
    return false;
  version = static_cast<char>(header[4]);
  counts = {BigEndian32(header + 20), BigEndian32(header + 24), BigEndian32(header + 28),
            BigEndian32(header + 32), BigEndian32(header + 36), BigEndian32(header + 40)};
  return true;
}

// glibc reads the 64-bit block of a version 2 or later file and the 32-bit block otherwise; the
// zone has one offset when that block has no transition, no leap second and a single type that
// is not daylight saving time (with no transition, glibc gives every instant that type).
EZoneFile ReadZoneFile(const std::string& path) {
  UniqueFd fd;
  fd.Reset(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!fd.IsValid()) return EZoneFile::kMissing;
  char version = 0;
  TCounts counts{};
  if (!ReadHeader(fd.Get(), version, counts)) return EZoneFile::kOther;
  if (version >= '2') {
    const std::uint64_t firstBlock = counts.fTime * 5ull + counts.fType * 6ull + counts.fChar +
                                     counts.fLeap * 8ull + counts.fIsStd + counts.fIsUt;
    if (!Skip(fd.Get(), firstBlock) || !ReadHeader(fd.Get(), version, counts))
      return EZoneFile::kOther;
  }
  if (counts.fTime != 0 || counts.fLeap != 0 || counts.fType != 1) return EZoneFile::kOther;
  unsigned char type[6];
  if (!ReadExactly(fd.Get(), type, sizeof type)) return EZoneFile::kOther;
  return type[4] == 0 ? EZoneFile::kOneOffset : EZoneFile::kOther;
}

// A POSIX rule with a standard part only: a name of three or more letters (or "<...>" quoting
// three or more letters, digits and signs), then an offset [+-]hh[:mm[:ss]], then nothing.
// Stricter than glibc's reader on purpose: whatever this accepts, glibc reads as one offset.
bool IsStandardOnlyRule(const char* rule) {
  const char* p = rule;
  const char* nameStart = p;
  if (*p == '<') {
    nameStart = ++p;
    while (std::isalnum(static_cast<unsigned char>(*p)) || *p == '+' || *p == '-') ++p;
    if (*p != '>' || p - nameStart < 3) return false;
    ++p;
  } else {
    while (std::isalpha(static_cast<unsigned char>(*p))) ++p;
    if (p - nameStart < 3) return false;
  }
  if (*p == '+' || *p == '-') ++p;
  for (int part = 0; part < 3; ++part) {
    if (part > 0) {
      if (*p != ':') break;
      ++p;
    }
    int digits = 0;
    while (std::isdigit(static_cast<unsigned char>(*p)) && digits < 2) ++p, ++digits;
    if (digits == 0) return false;
  }
  return *p == '\0';
}

}  // namespace

bool HasOneOffset(const char* tz) {
  if (tz && *tz == '\0') tz = "Universal";
  if (tz && *tz == ':') ++tz;
  const bool systemDefault = !tz || *tz == '\0';
  std::string path = systemDefault ? "/etc/localtime" : tz;
  if (path[0] != '/') {
    const char* directory = std::getenv("TZDIR");
    path = std::string(directory && *directory ? directory : "/usr/share/zoneinfo") + "/" + path;
  }
  switch (ReadZoneFile(path)) {
    case EZoneFile::kOneOffset: return true;
    case EZoneFile::kOther: return false;
    case EZoneFile::kMissing: break;
  }
  // No zone file: glibc falls back to UTC for the system default, and reads a POSIX rule else.
  return systemDefault || IsStandardOnlyRule(tz);
}

}  // namespace detail
}  // namespace NORXVYR20
