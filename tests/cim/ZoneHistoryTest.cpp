// The zone history against glibc in every zone installed: it must agree with localtime wherever
// it answers, and wherever it answers a wall clock, mktime (daylight saving 0) must give that same
// instant whatever offset its search starts from. And it must answer nearly everywhere, or the
// agreement proves nothing.
#include <algorithm>
#include <ctime>
#include <filesystem>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cim/ZoneHistory.h"
#include "cim/ZoneSource.h"
#include "ZoneTransitions.h"
#include "support/TestSupport.h"

using namespace NORXVYR20::detail;

namespace {

const std::string kZoneDirectory = "/usr/share/zoneinfo";

// Every zone file once (links and copies share content; the first name in order is kept),
// outside the "posix" and "right" copies.
std::vector<std::string> ListZones() {
  namespace fs = std::filesystem;
  std::vector<std::string> names;
  for (auto entry = fs::recursive_directory_iterator(kZoneDirectory);
       entry != fs::recursive_directory_iterator(); ++entry) {
    const std::string name = fs::relative(entry->path(), kZoneDirectory).string();
    if (entry->is_directory() && (name == "posix" || name == "right"))
      entry.disable_recursion_pending();
    else if (entry->is_regular_file() && name != "localtime")
      names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  std::set<std::string> contents;
  std::vector<std::string> zones;
  for (const std::string& name : names) {
    const std::string bytes = vyrtest::ReadFile(kZoneDirectory + "/" + name);
    if (bytes.compare(0, 4, "TZif") == 0 && contents.insert(bytes).second) zones.push_back(name);
  }
  return zones;
}

// mktime of a wall clock, daylight saving 0, as the library asks it.
std::time_t MktimeOfWall(std::int64_t wall) {
  const std::time_t asTimeT = static_cast<std::time_t>(wall);
  std::tm fields;
  gmtime_r(&asTimeT, &fields);
  fields.tm_isdst = 0;
  return std::mktime(&fields);
}

// Leaves mktime starting its next search from the offset of instant: mktime of instant's own
// local time, with its own daylight-saving flag, answers instant.
void StartMktimeFrom(std::int64_t instant) {
  const std::time_t asTimeT = static_cast<std::time_t>(instant);
  std::tm fields;
  localtime_r(&asTimeT, &fields);
  std::mktime(&fields);
}

struct TTally {
  long fAsked = 0, fAnswered = 0, fWrong = 0;
  std::string fFirst;
  void Wrong(const std::string& what) {
    if (++fWrong <= 5) fFirst += "  " + what + "\n";
  }
};

class TZoneCheck {
 public:
  TZoneCheck(const std::string& zone, const TZoneHistory& history,
             const std::vector<std::int64_t>& transitions)
      : fZone(zone), fHistory(history) {
    // mktime's two starting points: the middles of the periods of least and greatest offset.
    bool first = true;
    for (std::size_t i = 0; i + 1 < transitions.size(); ++i) {
      const TZonePeriod* period = fHistory.Find(transitions[i]);
      if (!period) continue;
      const std::int64_t middle = transitions[i] + (transitions[i + 1] - transitions[i]) / 2;
      if (first || period->fEast < fLeast) fLeast = period->fEast, fStarts[0] = middle;
      if (first || period->fEast > fGreatest) fGreatest = period->fEast, fStarts[1] = middle;
      first = false;
    }
  }

  void BreakDown(std::int64_t instant, TTally& tally) const {
    ++tally.fAsked;
    const TZonePeriod* period = fHistory.Find(instant);
    if (!period) return;
    ++tally.fAnswered;
    const std::time_t asTimeT = static_cast<std::time_t>(instant);
    std::tm fields;
    if (!localtime_r(&asTimeT, &fields) || fields.tm_gmtoff != period->fEast ||
        fields.tm_isdst != (period->fDaylight ? 1 : 0) || timezone != period->fSecondsWest)
      tally.Wrong(fZone + ": localtime of " + std::to_string(instant));
  }

  // mktime starts from each of the two offsets in turn, one per wall clock checked.
  void Instant(std::int64_t wall, TTally& tally) const {
    ++tally.fAsked;
    std::int64_t instant = 0;
    if (!fHistory.Instant(wall, instant)) return;
    const std::int64_t start = fStarts[tally.fAnswered++ % 2];
    StartMktimeFrom(start);
    const std::time_t expected = MktimeOfWall(wall);
    if (expected != instant)
      tally.Wrong(fZone + ": mktime of wall clock " + std::to_string(wall) + " is " +
                  std::to_string(expected) + ", not " + std::to_string(instant) +
                  ", starting from " + std::to_string(start));
  }

 private:
  const std::string& fZone;
  const TZoneHistory& fHistory;
  std::int32_t fLeast = 0, fGreatest = 0;
  std::int64_t fStarts[2] = {0, 0};
};

TEST(ZoneHistoryTest, AgreesWithLocaltimeAndMktimeInEveryInstalledZone) {
  const std::vector<std::string> zones = ListZones();
  ASSERT_GT(zones.size(), 300u) << kZoneDirectory << " lacks zones (package tzdata)";
  TTally breakDowns, instants;
  int withHistory = 0;
  std::mt19937 random(5);
  for (const std::string& zone : zones) {
    vyrtest::ScopedEnv scoped("TZ", zone.c_str());
    tzset();
    TZoneFile file;
    ASSERT_EQ(EZoneSource::kFile, ReadZoneSource(zone.c_str(), file)) << zone;
    TZoneHistory history(file);
    const bool read = !history.Empty();
    history.Confirm();
    // Confirm drops a history that glibc disagrees with anywhere: no installed zone may.
    EXPECT_EQ(read, !history.Empty()) << zone << ": glibc disagrees with the zone file as read";
    if (history.Empty()) continue;
    ++withHistory;

    // 1900 to 2037: after the last transition of a file a daylight-saving rule is glibc's.
    const std::vector<std::int64_t> transitions =
        vyrtest::LocalTransitions(-2208988800, 2114380800, 7 * 86400);
    const TZoneCheck check(zone, history, transitions);
    for (std::size_t i = 0; i < transitions.size(); ++i) {
      const std::int64_t t = transitions[i];
      for (const std::int64_t instant : {t - 1, t, t + 1}) check.BreakDown(instant, breakDowns);
      // Both wall-clock readings of the transition, and wall clocks out to past the margin.
      for (const std::int64_t side : {t - 1, t}) {
        const TZonePeriod* period = history.Find(side);
        if (!period) continue;
        const std::int64_t margin = TZoneHistory::kSearchMargin;
        for (const std::int64_t away : {std::int64_t{0}, margin - 1, margin, margin + 1})
          for (const int sign : {-1, 1})
            check.Instant(side + period->fEast + sign * away, instants);
      }
      // Inside a daylight-saving period, where mktime looks for the nearest standard time:
      // about once a week, at a random time of day.
      const TZonePeriod* period = history.Find(t);
      if (!period || !period->fDaylight || i + 1 == transitions.size()) continue;
      for (std::int64_t at = t + 86400; at < transitions[i + 1];
           at += 6 * 86400 + random() % 86400) {
        check.BreakDown(at, breakDowns);
        check.Instant(at + period->fEast, instants);
      }
    }
  }
  EXPECT_GT(withHistory, 300);
  EXPECT_EQ(0, breakDowns.fWrong) << breakDowns.fFirst;
  EXPECT_EQ(0, instants.fWrong) << instants.fFirst;
  // Declining is always safe, so the history must also show that it answers: localtime
  // everywhere, mktime everywhere but within the search margin of a transition (a third of the
  // wall clocks asked about here).
  EXPECT_EQ(breakDowns.fAsked, breakDowns.fAnswered);
  EXPECT_GT(instants.fAnswered * 2, instants.fAsked);
  std::printf("%zu zones, %d with a history; localtime answered %ld of %ld, mktime %ld of %ld\n",
              zones.size(), withHistory, breakDowns.fAnswered, breakDowns.fAsked,
              instants.fAnswered, instants.fAsked);
}

}  // namespace
