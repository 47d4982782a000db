#include "cim/LocalZone.h"

#include <sys/stat.h>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

#include "cim/CivilTime.h"
#include "cim/ZoneHistory.h"
#include "cim/ZoneSource.h"

namespace NORXVYR20 {
namespace detail {

namespace {

const char* const kSystemZoneFile = "/etc/localtime";

// What glibc compares to decide that the system zone file changed (tzfile.c keeps the same three).
struct TFileIdentity {
  bool fExists = false;
  dev_t fDevice = 0;
  ino_t fInode = 0;
  time_t fModified = 0;

  bool operator==(const TFileIdentity& other) const {
    return fExists == other.fExists && fDevice == other.fDevice && fInode == other.fInode &&
           fModified == other.fModified;
  }
};

TFileIdentity SystemZoneFileIdentity() {
  TFileIdentity identity;
  struct stat status;
  if (::stat(kSystemZoneFile, &status) != 0) return identity;
  identity.fExists = true;
  identity.fDevice = status.st_dev;
  identity.fInode = status.st_ino;
  identity.fModified = status.st_mtime;
  return identity;
}

std::int64_t CoarseNanoseconds() {
  timespec now;
  clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return now.tv_sec * std::int64_t{1000000000} + now.tv_nsec;
}

// Instants spread over the years the fields can reach (1843 to 2920, and now), and wall clocks
// mktime is asked about. They cannot prove a single offset (HasOneOffset does, from the zone's
// own data); they catch a zone that HasOneOffset chose differently from glibc.
const std::time_t kProbeInstants[] = {-4000000000, -2147483648LL, -86400, 0, 951782400,
                                      2147483647, 4102444800, 30000000000};
const int kProbeWallClocks[][6] = {
    {1850, 6, 1, 12, 0, 0}, {1969, 12, 31, 23, 59, 59}, {2004, 3, 28, 2, 30, 0},
    {2004, 10, 31, 2, 30, 0}, {2038, 1, 19, 3, 14, 8}, {2500, 7, 1, 0, 0, 0}};

bool AgreesWithGlibc(TLocalZone& zone) {
  std::tm fields;
  const std::time_t now = std::time(nullptr);
  if (!localtime_r(&now, &fields) || fields.tm_isdst != 0) return false;
  zone.fEastSeconds = fields.tm_gmtoff;
  for (const std::time_t instant : kProbeInstants) {
    if (!localtime_r(&instant, &fields) || fields.tm_isdst != 0 ||
        fields.tm_gmtoff != zone.fEastSeconds)
      return false;
  }
  for (const auto& wall : kProbeWallClocks) {
    std::tm record = {};
    record.tm_year = wall[0] - 1900;
    record.tm_mon = wall[1] - 1;
    record.tm_mday = wall[2];
    record.tm_hour = wall[3];
    record.tm_min = wall[4];
    record.tm_sec = wall[5];
    const std::int64_t expected =
        WallSeconds(wall[0], wall[1], wall[2], wall[3], wall[4], wall[5]) - zone.fEastSeconds;
    if (std::mktime(&record) != expected) return false;
  }
  zone.fSecondsWest = timezone;
  return true;
}

class TZoneCache {
 public:
  const TLocalZone& Current() {
    if (fScopes > 0) return fZone;
    const char* tz = std::getenv("TZ");
    if (!fBuilt || (tz != nullptr) != fTzSet || (tz && std::strcmp(tz, fTzText.c_str()) != 0)) {
      Rebuild(tz);
    } else if (!tz) {
      const std::int64_t now = CoarseNanoseconds();
      if (now - fLastFileCheck >= kZoneFileRecheckNanoseconds) {
        fLastFileCheck = now;
        if (!(SystemZoneFileIdentity() == fFile)) Rebuild(tz);
      }
    }
    return fZone;
  }

 private:
  friend class NORXVYR20::detail::TLocalZoneScope;

  void Rebuild(const char* tz) {
    fBuilt = true;
    fTzSet = tz != nullptr;
    fTzText = tz ? tz : "";
    // The identity first: a change between this stat and glibc's own read shows at the next look.
    if (!tz) {
      fFile = SystemZoneFileIdentity();
      fLastFileCheck = CoarseNanoseconds();
    }
    tzset();
    fZone = TLocalZone();
    TZoneFile file;
    const EZoneSource source = ReadZoneSource(tz, file);
    fZone.fOneOffset = HasOneOffset(tz, source, file) && AgreesWithGlibc(fZone);
    fHistory = TZoneHistory();
    if (fZone.fOneOffset || source != EZoneSource::kFile) return;
    fHistory = TZoneHistory(file);
    fHistory.Confirm();
    if (!fHistory.Empty()) fZone.fHistory = &fHistory;
  }

  int fScopes = 0;  // TLocalZoneScopes alive
  bool fBuilt = false;
  bool fTzSet = false;
  std::string fTzText;
  TFileIdentity fFile;
  std::int64_t fLastFileCheck = 0;
  TZoneHistory fHistory;
  TLocalZone fZone;
};

TZoneCache& Cache() {
  static TZoneCache cache;
  return cache;
}

}  // namespace

const TLocalZone& CurrentLocalZone() { return Cache().Current(); }

TLocalZoneScope::TLocalZoneScope() {
  Cache().Current();
  ++Cache().fScopes;
}

TLocalZoneScope::~TLocalZoneScope() { --Cache().fScopes; }

}  // namespace detail
}  // namespace NORXVYR20
