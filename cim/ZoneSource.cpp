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

constexpr std::size_t kHeaderSize = 44;
// Far beyond any real zone (the largest holds a few hundred transitions and a few dozen types);
// a header asking for more is not a zone file this reader takes.
constexpr std::uint32_t kMostTransitions = 1u << 16;
constexpr std::uint32_t kMostNameBytes = 1u << 12;
constexpr std::size_t kMostFooterBytes = 1024;

std::uint32_t BigEndian32(const unsigned char* bytes) {
  return (std::uint32_t{bytes[0]} << 24) | (std::uint32_t{bytes[1]} << 16) |
         (std::uint32_t{bytes[2]} << 8) | bytes[3];
}

std::int64_t BigEndian64(const unsigned char* bytes) {
  return static_cast<std::int64_t>((std::uint64_t{BigEndian32(bytes)} << 32) |
                                   BigEndian32(bytes + 4));
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
  return counts.fTime <= kMostTransitions && counts.fLeap <= kMostTransitions &&
         counts.fType >= 1 && counts.fType <= 256 && counts.fChar <= kMostNameBytes &&
         counts.fIsStd <= 256 && counts.fIsUt <= 256;
}

// The bytes of one data block whose transition times are timeSize bytes wide.
std::size_t BlockSize(const TCounts& counts, std::size_t timeSize) {
  return counts.fTime * (timeSize + 1) + counts.fType * 6 + counts.fChar +
         counts.fLeap * (timeSize + 4) + counts.fIsStd + counts.fIsUt;
}

// One data block: transition times of timeSize bytes, their type indexes, the types; the names,
// leap seconds and indicators after them are skipped.
bool ReadBlock(int fd, const TCounts& counts, std::size_t timeSize, TZoneFile& file) {
  const std::size_t size = BlockSize(counts, timeSize);
  std::vector<unsigned char> block(size);
  if (!ReadExactly(fd, block.data(), size)) return false;
  const unsigned char* p = block.data();
  file.fTransitions.resize(counts.fTime);
  for (std::int64_t& transition : file.fTransitions) {
    transition = timeSize == 8 ? BigEndian64(p) : static_cast<std::int32_t>(BigEndian32(p));
    p += timeSize;
  }
  file.fTypeAfter.assign(p, p + counts.fTime);
  p += counts.fTime;
  file.fTypes.resize(counts.fType);
  for (TZoneFile::TType& type : file.fTypes) {
    // glibc refuses a daylight-saving flag other than 0 or 1.
    if (p[4] > 1) return false;
    type = {static_cast<std::int32_t>(BigEndian32(p)), p[4] == 1};
    p += 6;
  }
  file.fLeapSeconds = counts.fLeap;
  for (std::size_t i = 0; i < file.fTransitions.size(); ++i) {
    if (file.fTypeAfter[i] >= counts.fType) return false;
    if (i > 0 && file.fTransitions[i] <= file.fTransitions[i - 1]) return false;
  }
  return true;
}

// The footer of a version 2 or later file: "\n", the rule, "\n", at the very end.
bool ReadFooter(int fd, std::string& footer) {
  unsigned char bytes[kMostFooterBytes + 3];
  std::size_t size = 0;
  for (;;) {
    const ssize_t got =
        RetryOnEintr([&] { return ::read(fd, bytes + size, sizeof bytes - size); });
    if (got < 0) return false;
    if (got == 0) break;
    size += static_cast<std::size_t>(got);
    if (size == sizeof bytes) return false;
  }
  if (size < 2 || bytes[0] != '\n' || bytes[size - 1] != '\n') return false;
  footer.assign(reinterpret_cast<const char*>(bytes) + 1, size - 2);
  return footer.find('\n') == std::string::npos && footer.find('\0') == std::string::npos;
}

// glibc reads the 64-bit block and the footer of a file of any version but the first (whose
// version byte is NUL), and the 32-bit block of a first-version file.
EZoneSource ReadZoneFile(const std::string& path, TZoneFile& file) {
  UniqueFd fd;
  fd.Reset(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!fd.IsValid()) return EZoneSource::kRule;
  char version = 0;
  TCounts counts{};
  if (!ReadHeader(fd.Get(), version, counts)) return EZoneSource::kUnreadable;
  if (version == '\0')
    return ReadBlock(fd.Get(), counts, 4, file) ? EZoneSource::kFile : EZoneSource::kUnreadable;
  // glibc passes over the 32-bit block unread, and so does this.
  if (::lseek(fd.Get(), static_cast<off_t>(BlockSize(counts, 4)), SEEK_CUR) == -1 ||
      !ReadHeader(fd.Get(), version, counts) ||
      !ReadBlock(fd.Get(), counts, 8, file) || !ReadFooter(fd.Get(), file.fFooter))
    return EZoneSource::kUnreadable;
  return EZoneSource::kFile;
}

// The name glibc looks TZ up by: "" means "Universal", and a leading ":" is dropped.
const char* GlibcZoneName(const char* tz) {
  if (tz && *tz == '\0') return "Universal";
  return tz && *tz == ':' ? tz + 1 : tz;
}

}  // namespace

EZoneSource ReadZoneSource(const char* tz, TZoneFile& file) {
  tz = GlibcZoneName(tz);
  const bool systemDefault = !tz || *tz == '\0';
  std::string path = systemDefault ? "/etc/localtime" : tz;
  if (path[0] != '/') {
    const char* directory = std::getenv("TZDIR");
    path = std::string(directory && *directory ? directory : "/usr/share/zoneinfo") + "/" + path;
  }
  file = TZoneFile();
  const EZoneSource source = ReadZoneFile(path, file);
  // No zone file: glibc falls back to UTC for the system default, and reads a POSIX rule else.
  if (source == EZoneSource::kRule && systemDefault) return EZoneSource::kDefaultUtc;
  return source;
}

bool StandardOnlyRule(const char* rule, std::int32_t& east) {
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
  // POSIX counts the offset west of UTC; glibc caps hours at 24 and minutes and seconds at 59.
  const int sign = *p == '-' ? -1 : 1;
  if (*p == '+' || *p == '-') ++p;
  const int caps[] = {24, 59, 59};
  const int unitSeconds[] = {3600, 60, 1};
  std::int32_t west = 0;
  for (int part = 0; part < 3; ++part) {
    if (part > 0) {
      if (*p != ':') break;
      ++p;
    }
    int digits = 0, value = 0;
    while (std::isdigit(static_cast<unsigned char>(*p)) && digits < 2)
      value = value * 10 + (*p++ - '0'), ++digits;
    if (digits == 0) return false;
    west += (value < caps[part] ? value : caps[part]) * unitSeconds[part];
  }
  if (*p != '\0') return false;
  east = -sign * west;
  return true;
}

bool HasOneOffset(const char* tz, EZoneSource source, const TZoneFile& file) {
  std::int32_t east = 0;
  switch (source) {
    // With no transition glibc gives every instant the first type; no leap second may move it.
    case EZoneSource::kFile:
      return file.fTransitions.empty() && file.fLeapSeconds == 0 && file.fTypes.size() == 1 &&
             !file.fTypes[0].fDaylight;
    case EZoneSource::kRule: return StandardOnlyRule(GlibcZoneName(tz), east);
    case EZoneSource::kDefaultUtc: return true;
    case EZoneSource::kUnreadable: return false;
  }
  return false;
}

}  // namespace detail
}  // namespace NORXVYR20
