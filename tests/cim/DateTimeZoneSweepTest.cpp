// Absolute date/times against the platform itself: validity, ordering, the wall clock of a sum and
// the logger's local time must be exactly what mktime and localtime give, in every kind of zone
// (TZ unset, UTC spelt three ways, fixed and daylight-saving POSIX rules, zone files with daylight
// saving, with negative daylight saving and with standard offsets that changed in history), over
// every day of four centuries, every transition, boundary fields and random records; and when TZ
// or the system zone file changes under a running process.
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/OSSpecific.h>

#include "ZoneTransitions.h"
#include "support/TestSupport.h"

using namespace NORXVYR20;
using vyrtest::ScopedEnv;

namespace {

const char* const kZoneDirectory = "/usr/share/zoneinfo/";

// nullptr: TZ unset (the system zone file). The others cover every path of the zone lookup.
const char* const kZones[] = {
    nullptr,
    "UTC",
    "",                               // read as "Universal"
    "Etc/GMT+5",                      // a zone file with one offset
    "<+0530>-5:30",                   // a POSIX rule without daylight saving, off the hour
    "EST5EDT,M3.2.0,M11.1.0",         // a POSIX rule with daylight saving
    "Europe/Berlin",
    "Europe/Moscow",                  // standard offset changed (2011, 2014)
    "Asia/Kolkata",                   // LMT, then half-hour offsets
    "Europe/Dublin",                  // negative daylight saving in winter
    "Australia/Lord_Howe",            // half an hour of daylight saving
    "Pacific/Apia",                   // skipped 2011-12-30 entirely
};

std::string ZoneName(const char* zone) {
  return zone ? "TZ=\"" + std::string(zone) + "\"" : "TZ unset";
}

struct TFields {
  int year, month, day, hour, minute, second, offset;
  unsigned micros;
};

std::string WallClockText(long year, int month, int day, int hour, int minute, int second,
                          unsigned micros);

// mktime of the fields with the given minute, daylight saving 0.
std::time_t Mktime(const TFields& f, int minute) {
  std::tm record = {};
  record.tm_year = f.year - 1900;
  record.tm_mon = f.month - 1;
  record.tm_mday = f.day;
  record.tm_hour = f.hour;
  record.tm_min = minute;
  record.tm_sec = f.second;
  record.tm_isdst = 0;
  return std::mktime(&record);
}

// mktime of the record that validity and ordering use: minute less the offset, no DST.
std::time_t OracleInstant(const TFields& f) { return Mktime(f, f.minute - f.offset); }

// The wall clock of value + 0 interval: mktime without the offset, localtime, an hour back under
// daylight saving time. Empty when localtime refuses or the year leaves 16 bits.
std::string OracleSameWallClock(const TFields& f) {
  const std::time_t instant = Mktime(f, f.minute);
  if (instant == -1) return "refused";
  // The sum keeps the sign of the microsecond count on the microseconds and takes the magnitude
  // of the whole seconds, truncated toward zero.
  const long long count = instant * 1000000LL + f.micros;
  std::time_t seconds = count / 1000000;
  if (seconds < 0) seconds = -seconds;
  std::tm* local = std::localtime(&seconds);
  if (local && local->tm_isdst > 0) {
    seconds -= 3600;
    local = std::localtime(&seconds);
  }
  if (!local || local->tm_year + 1900L > 65535) return "refused";
  return WallClockText(local->tm_year + 1900L, local->tm_mon + 1, local->tm_mday, local->tm_hour,
                       local->tm_min, local->tm_sec, static_cast<unsigned>(count % 1000000));
}

bool Constructs(const TFields& f) {
  try {
    TCIMDateTime value(static_cast<unsigned short>(f.year), static_cast<unsigned short>(f.month),
                       static_cast<unsigned>(f.day), static_cast<unsigned short>(f.hour),
                       static_cast<unsigned short>(f.minute), static_cast<unsigned short>(f.second),
                       f.micros, static_cast<short>(f.offset));
    return true;
  } catch (const TVYRException&) {
    return false;
  }
}

TCIMDateTime Make(const TFields& f) {
  return TCIMDateTime(static_cast<unsigned short>(f.year), static_cast<unsigned short>(f.month),
                      static_cast<unsigned>(f.day), static_cast<unsigned short>(f.hour),
                      static_cast<unsigned short>(f.minute), static_cast<unsigned short>(f.second),
                      f.micros, static_cast<short>(f.offset));
}

std::string WallClockText(long year, int month, int day, int hour, int minute, int second,
                          unsigned micros) {
  char text[64];
  std::snprintf(text, sizeof text, "%04ld%02d%02d%02d%02d%02d.%u", year, month, day, hour, minute,
                second, micros);
  return text;
}

std::string SameWallClock(const TCIMDateTime& value) {
  try {
    const TCIMDateTime sum = value + TCIMDateTime(0, 0, 0, 0, 0);
    return WallClockText(sum.GetYear(), sum.GetMonth(), static_cast<int>(sum.GetDay()),
                         sum.GetHour(), sum.GetMinute(), sum.GetSecond(), sum.GetMicroSeconds());
  } catch (const TVYRException&) {
    return "refused";
  }
}

// glibc's mktime starts its search from the offset of its previous answer, and for a few wall
// clocks next to a change of standard offset (Moscow 1922, Apia 1910 and 2011) where it ends
// depends on that start. So the oracle and the library each start from the same answer, that of
// this record, before every comparison: they must then agree call for call.
void ResetMktime() {
  std::tm record = {};
  record.tm_year = 100;
  record.tm_mday = 1;
  std::mktime(&record);
}

// Counts disagreements and keeps the first few for the failure message.
class TMismatches {
 public:
  void Check(bool same, const std::string& what) {
    if (same) return;
    if (++fCount <= 5) fFirst += "  " + what + "\n";
  }
  int Count() const { return fCount; }
  const std::string& First() const { return fFirst; }

 private:
  int fCount = 0;
  std::string fFirst;
};

std::string Describe(const TFields& f) {
  char text[96];
  std::snprintf(text, sizeof text, "%d-%d-%d %d:%d:%d.%06u offset %d", f.year, f.month, f.day,
                f.hour, f.minute, f.second, f.micros, f.offset);
  return text;
}

// One record as checked: its oracle instant and, when valid, the library's value.
struct TChecked {
  TFields fields;
  std::time_t instant;
  TCIMDateTime value;
};

// Validity and (unless validityOnly) the wall clock of a sum for one record, and its ordering
// against the previous record.
TChecked CheckRecord(const TFields& f, const TChecked* previous, TMismatches& mismatches,
                     bool validityOnly = false) {
  ResetMktime();
  TChecked checked{f, OracleInstant(f), TCIMDateTime()};
  const bool valid = checked.instant != -1;
  bool constructed = true;
  ResetMktime();
  try {
    checked.value = Make(f);
  } catch (const TVYRException&) {
    constructed = false;
  }
  mismatches.Check(constructed == valid, "validity of " + Describe(f));
  if (!valid || !constructed || validityOnly) return checked;
  ResetMktime();
  const std::string expectedSum = OracleSameWallClock(f);
  ResetMktime();
  mismatches.Check(SameWallClock(checked.value) == expectedSum, "sum of " + Describe(f));
  if (!previous || previous->value.IsNull()) return checked;
  // Both operators look at their left operand first, as the oracle does here.
  ResetMktime();
  const std::time_t a = OracleInstant(previous->fields), b = OracleInstant(f);
  const unsigned microsA = previous->fields.micros, microsB = f.micros;
  ResetMktime();
  const bool less = previous->value < checked.value;
  ResetMktime();
  const bool equal = previous->value == checked.value;
  mismatches.Check(less == (a != b ? a < b : microsA < microsB) &&
                       equal == (a == b && microsA == microsB),
                   "order of " + Describe(previous->fields) + " and " + Describe(f));
  return checked;
}

// Every day from 1880 to 2120, at a time of day, offset and microsecond that move from day to day:
// validity every day, the sum and the order against the previous such day every eighth day.
void SweepDays(TMismatches& mismatches) {
  const int offsets[] = {0, -300, 330, 840, -720, 999, -999, 60};
  TChecked previous{};
  int index = 0;
  for (int year = 1880; year < 2120; ++year) {
    for (int month = 1; month <= 12; ++month) {
      for (int day = 1; day <= 31; ++day, ++index) {
        const TFields f{year, month, day, index % 24, (index * 7) % 60, (index * 13) % 60,
                        offsets[index % 8], static_cast<unsigned>(index % 3)};
        if (index % 8 != 0) {
          CheckRecord(f, nullptr, mismatches, true);
          continue;
        }
        previous = CheckRecord(f, index == 0 ? nullptr : &previous, mismatches);
      }
    }
  }
}

// Around every transition: the wall clocks of both sides every 20 minutes over six hours, and the
// seconds next to both readings of the transition instant.
void SweepTransitions(TMismatches& mismatches) {
  // Wall clocks are stepped as UTC readings so that every field stays in its range.
  auto fieldsOf = [](std::time_t wall) {
    std::tm utc;
    gmtime_r(&wall, &utc);
    return TFields{utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min,
                   utc.tm_sec, 0, 0};
  };
  // Every day from 1900 to 2100 is stepped over.
  for (const std::time_t transition : vyrtest::LocalTransitions(-2208988800, 4102444800, 86400)) {
    for (const std::time_t side : {transition - 1, transition}) {
      std::tm local;
      localtime_r(&side, &local);
      const std::time_t wall = timegm(&local);
      TChecked previous = CheckRecord(fieldsOf(wall), nullptr, mismatches);
      for (int seconds = -3 * 3600; seconds <= 3 * 3600; seconds += 1200)
        previous = CheckRecord(fieldsOf(wall + seconds), &previous, mismatches);
      for (int seconds = -2; seconds <= 2; ++seconds)
        previous = CheckRecord(fieldsOf(wall + seconds), &previous, mismatches);
    }
  }
}

// Fields at the edges of what the text form and the setters carry, and the records next to the
// instant -1, which mktime refuses: every offset from -999 to 999 applied to 1969-12-31 23:59:xx.
void SweepBoundaries(TMismatches& mismatches) {
  for (int year : {0, 1, 1899, 1900, 1901, 1969, 1970, 2037, 2038, 9999, 65535})
    for (int month : {0, 1, 2, 12, 13, 99})
      for (int day : {0, 1, 29, 31, 99})
        for (int hour : {0, 23, 99})
          for (int second : {0, 59, 99}) {
            const TFields f{year, month, day, hour, 99, second, -999, 999999};
            CheckRecord(f, nullptr, mismatches);
          }
  TChecked previous = CheckRecord(TFields{1969, 12, 31, 23, 59, 58, -999, 0}, nullptr, mismatches);
  for (int offset = -999; offset <= 999; ++offset)
    for (int second : {58, 59, 60})
      previous =
          CheckRecord(TFields{1969, 12, 31, 23, 59, second, offset, 0}, &previous, mismatches);
}

// Random records read from their text form, ordered against the one before.
void SweepRandom(TMismatches& mismatches, unsigned seed) {
  std::mt19937 random(seed);
  auto upTo = [&random](int n) { return static_cast<int>(random() % (n + 1)); };
  TChecked previous{};
  for (int i = 0; i < 2000; ++i) {
    const int year = i % 4 == 0 ? upTo(9999) : 1800 + upTo(500);
    const TFields f{year, upTo(99), upTo(99), upTo(99), upTo(99), upTo(99), upTo(1998) - 999,
                    static_cast<unsigned>(upTo(999999))};
    char text[96];
    std::snprintf(text, sizeof text, "%04d%02d%02d%02d%02d%02d.%06u%c%03d", f.year, f.month, f.day,
                  f.hour, f.minute, f.second, f.micros, f.offset < 0 ? '-' : '+',
                  f.offset < 0 ? -f.offset : f.offset);
    bool parsed = true;
    try {
      TCIMDateTime value{std::string(text)};
    } catch (const TVYRException&) {
      parsed = false;
    }
    mismatches.Check(parsed == (OracleInstant(f) != -1), std::string("parse of ") + text);
    previous = CheckRecord(f, i == 0 ? nullptr : &previous, mismatches);
  }
}

// The logger's time stamp against localtime of the same second (retried when a second boundary
// falls between the two readings).
void CheckLocalTime(TMismatches& mismatches) {
  for (int attempt = 0; attempt < 5; ++attempt) {
    timeval before, after;
    gettimeofday(&before, nullptr);
    const TCIMDateTime now = TOSSpecific::GetLocalTime();
    gettimeofday(&after, nullptr);
    if (after.tv_sec != before.tv_sec) continue;
    const std::time_t second = before.tv_sec;
    std::tm local = *std::localtime(&second);
    tzset();
    const int offset = static_cast<int>(-timezone / 60) + (local.tm_isdst > 0 ? 60 : 0);
    mismatches.Check(now.GetYear() == local.tm_year + 1900 && now.GetMonth() == local.tm_mon + 1 &&
                         static_cast<int>(now.GetDay()) == local.tm_mday &&
                         now.GetHour() == local.tm_hour && now.GetMinute() == local.tm_min &&
                         now.GetSecond() == local.tm_sec && now.GetUTCOffset() == offset,
                     "local time " + now.ToString() + " under " + ZoneName(std::getenv("TZ")) +
                         ", localtime gives isdst " + std::to_string(local.tm_isdst) +
                         ", timezone " + std::to_string(timezone));
    return;
  }
}

bool ZoneAvailable(const char* zone) {
  if (!zone || !*zone || std::strchr(zone, ',') || zone[0] == '<' || zone[0] == ':') return true;
  struct stat status;
  return ::stat((kZoneDirectory + std::string(zone)).c_str(), &status) == 0;
}

TEST(DateTimeZoneSweepTest, AbsoluteValuesAreThoseOfMktimeAndLocaltimeInEveryZone) {
  for (const char* zone : kZones) {
    ASSERT_TRUE(ZoneAvailable(zone)) << kZoneDirectory << zone << " is missing (package tzdata)";
    ScopedEnv scoped("TZ", zone);
    TMismatches mismatches;
    SweepDays(mismatches);
    SweepTransitions(mismatches);
    SweepBoundaries(mismatches);
    SweepRandom(mismatches, 7);
    CheckLocalTime(mismatches);
    EXPECT_EQ(0, mismatches.Count()) << ZoneName(zone) << ":\n" << mismatches.First();
  }
}

// TZ set, changed and unset between calls: each call follows the TZ of its moment.
TEST(DateTimeZoneSweepTest, FollowsEveryChangeOfTZAtOnce) {
  TMismatches mismatches;
  std::mt19937 random(11);
  TChecked previous{};
  for (int i = 0; i < 3000; ++i) {
    const char* zone = kZones[random() % (sizeof kZones / sizeof kZones[0])];
    ScopedEnv scoped("TZ", zone);
    // Dates near transitions and near the instant -1, where zones disagree most.
    const TFields f{i % 2 ? 1969 : 2004, i % 2 ? 12 : 3, i % 2 ? 31 : 28,
                    static_cast<int>(random() % 24), static_cast<int>(random() % 60), 59,
                    static_cast<int>(random() % 1441) - 720, 0};
    previous = CheckRecord(f, i == 0 ? nullptr : &previous, mismatches);
    CheckLocalTime(mismatches);
  }
  EXPECT_EQ(0, mismatches.Count()) << mismatches.First();
}

// With TZ unset the system zone file decides; mounting another file over it (in a private mount
// namespace of a child) is followed as glibc follows it, within the re-check interval.
TEST(DateTimeZoneSweepTest, FollowsAChangeOfTheSystemZoneFile) {
  ScopedEnv scoped("TZ", nullptr);
  const int result = vyrtest::RunInChild([] {
    if (unshare(CLONE_NEWNS) != 0 ||
        mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
      return 100;
    // 1969-12-31 23:59:59 at offset +000 is the instant -1 under UTC only.
    const TFields edge{1969, 12, 31, 23, 59, 59, 0, 0};
    for (const char* zone : {"Etc/UTC", "Asia/Tokyo", "Europe/Berlin", "Etc/UTC"}) {
      const std::string file = kZoneDirectory + std::string(zone);
      umount2("/etc/localtime", MNT_DETACH);  // the earlier round's file, if any
      if (mount(file.c_str(), "/etc/localtime", nullptr, MS_BIND, nullptr) != 0) return 101;
      usleep(50 * 1000);  // past the re-check interval
      TMismatches mismatches;
      CheckRecord(edge, nullptr, mismatches);
      CheckLocalTime(mismatches);
      SweepTransitions(mismatches);
      if (mismatches.Count() != 0) {
        std::fprintf(stderr, "under %s:\n%s", zone, mismatches.First().c_str());
        return 1;
      }
      const bool utc = std::strcmp(zone, "Etc/UTC") == 0;
      if (Constructs(edge) == utc) return 2;
      if ((TOSSpecific::GetLocalTime().GetUTCOffset() == 0) != utc) return 3;
    }
    return 0;
  });
  if (result == 100) GTEST_SKIP() << "the kernel refused a private mount namespace";
  EXPECT_EQ(0, result) << "101: bind mount refused; 1: a result differs from mktime/localtime; "
                          "2: validity did not follow the file; 3: the local time's offset did not";
}

}  // namespace
