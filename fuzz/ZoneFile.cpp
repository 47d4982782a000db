// Fuzz target: a zone file (TZ may name any file) read by ReadZoneSource and turned into a zone
// history, which glibc then confirms.
//
// The input bytes go to the reader as they are. glibc, though, gets what was read written back
// as a well-formed file (each type with its own name, the footer kept when it is a rule of one
// offset and replaced by a valid daylight-saving rule otherwise): its own reader fails an
// assertion on some malformed files, and the point here is whether the history answers as glibc
// does for every zone it can be given, not glibc's robustness. Checks beyond "no crash":
// - a history the confirmation keeps answers localtime exactly as glibc does (offset, daylight-
//   saving flag, `timezone`) at every instant it answers for, next to every transition and far out;
// - wherever it answers a wall clock, glibc's mktime (daylight saving 0) gives that instant.
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "FuzzCheck.h"
#include "cim/ZoneHistory.h"
#include "cim/ZoneSource.h"

using namespace NORXVYR20::detail;

namespace {

// The file the input is written to, and its /proc path, which TZ names it by.
struct TZoneFileSlot {
  int fFd;
  std::string fPath;
};

const TZoneFileSlot& Slot() {
  static const TZoneFileSlot slot = [] {
    const int fd = memfd_create("zone", 0);
    if (fd < 0) std::abort();
    return TZoneFileSlot{fd, "/proc/self/fd/" + std::to_string(fd)};
  }();
  return slot;
}

const char* ZonePath() { return Slot().fPath.c_str(); }

void WriteZone(const void* data, std::size_t size) {
  const int fd = Slot().fFd;
  if (ftruncate(fd, 0) != 0 ||
      (size > 0 && pwrite(fd, data, size, 0) != static_cast<ssize_t>(size)))
    std::abort();
}

void Append32(std::string& out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>(value >> shift);
}

std::string Header(std::uint32_t transitions, std::uint32_t types) {
  std::string header("TZif2");
  header.append(15, '\0');
  for (const std::uint32_t count : {0u, 0u, 0u, transitions, types, types * 4})
    Append32(header, count);
  return header;
}

// A version 2 file of the transitions and types read: an empty 32-bit block (glibc skips it),
// the 64-bit block with names "A00", "A01"..., and the footer.
std::string WellFormed(const TZoneFile& file) {
  const auto types = static_cast<std::uint32_t>(file.fTypes.size());
  std::string out = Header(0, 1);
  out.append("\0\0\0\0\0\0UTC\0", 10);
  out += Header(static_cast<std::uint32_t>(file.fTransitions.size()), types);
  for (const std::int64_t transition : file.fTransitions) {
    Append32(out, static_cast<std::uint32_t>(static_cast<std::uint64_t>(transition) >> 32));
    Append32(out, static_cast<std::uint32_t>(transition));
  }
  out.append(file.fTypeAfter.begin(), file.fTypeAfter.end());
  for (std::uint32_t i = 0; i < types; ++i) {
    Append32(out, static_cast<std::uint32_t>(file.fTypes[i].fEast));
    out += static_cast<char>(file.fTypes[i].fDaylight ? 1 : 0);
    out += static_cast<char>(i * 4);
  }
  for (std::uint32_t i = 0; i < types; ++i) {
    const char name[4] = {'A', static_cast<char>('0' + i / 16), static_cast<char>('a' + i % 16),
                          '\0'};
    out.append(name, 4);
  }
  std::int32_t east = 0;
  const bool oneOffset = StandardOnlyRule(file.fFooter.c_str(), east);
  out += "\n" + (file.fFooter.empty() || oneOffset ? file.fFooter : "CET-1CEST,M3.5.0,M10.5.0/3") +
         "\n";
  return out;
}

// glibc reloads a zone only when TZ changes: name another zone first, then the input's.
void LoadInGlibc() {
  setenv("TZ", "UTC", 1);
  tzset();
  setenv("TZ", ZonePath(), 1);
  tzset();
}

void CheckBreakDown(const TZoneHistory& history, std::int64_t instant) {
  const TZonePeriod* period = history.Find(instant);
  if (!period) return;
  const std::time_t asTimeT = static_cast<std::time_t>(instant);
  std::tm fields;
  VYR_FUZZ_CHECK(localtime_r(&asTimeT, &fields) != nullptr);
  VYR_FUZZ_CHECK(fields.tm_gmtoff == period->fEast);
  VYR_FUZZ_CHECK(fields.tm_isdst == (period->fDaylight ? 1 : 0));
  VYR_FUZZ_CHECK(timezone == period->fSecondsWest);
}

void CheckInstant(const TZoneHistory& history, std::int64_t wall) {
  std::int64_t instant = 0;
  if (!history.Instant(wall, instant)) return;
  const std::time_t asTimeT = static_cast<std::time_t>(wall);
  std::tm fields;
  gmtime_r(&asTimeT, &fields);
  fields.tm_isdst = 0;
  VYR_FUZZ_CHECK(std::mktime(&fields) == instant);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  WriteZone(data, size);
  TZoneFile file;
  if (ReadZoneSource(ZonePath(), file) != EZoneSource::kFile) return 0;
  TZoneHistory history(file);
  if (history.Empty()) return 0;
  const std::string wellFormed = WellFormed(file);
  WriteZone(wellFormed.data(), wellFormed.size());
  TZoneFile reread;
  VYR_FUZZ_CHECK(ReadZoneSource(ZonePath(), reread) == EZoneSource::kFile);
  VYR_FUZZ_CHECK(reread.fTransitions == file.fTransitions && reread.fTypeAfter == file.fTypeAfter &&
                 reread.fTypes.size() == file.fTypes.size());
  LoadInGlibc();
  history.Confirm();
  if (!history.Empty()) {
    // Next to each transition (a few hundred at most are looked at), and far out on both sides.
    std::vector<std::int64_t> instants = {-62135596800, -2208988800, 0, 2145916800, 253402300799};
    for (std::size_t i = 0; i < file.fTransitions.size() && i < 300; ++i)
      for (const std::int64_t away : {-TZoneHistory::kSearchMargin - 86400, std::int64_t{-1},
                                      std::int64_t{0}, TZoneHistory::kSearchMargin + 86400})
        instants.push_back(file.fTransitions[i] + away);
    for (const std::int64_t instant : instants) {
      CheckBreakDown(history, instant);
      if (const TZonePeriod* period = history.Find(instant))
        CheckInstant(history, instant + period->fEast);
    }
  }
  setenv("TZ", "UTC", 1);
  tzset();
  return 0;
}
