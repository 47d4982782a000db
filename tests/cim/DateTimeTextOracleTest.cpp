// The hand-written text forms of TCIMDateTime against the string streams they replaced, on field
// values at every width boundary and on random values, for absolute values and intervals.
#include <cstdlib>
#include <iomanip>
#include <random>
#include <sstream>
#include <string>

#include <vyrcore/CIMDateTime.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

// The stream formatting that ToString used before.
std::string StreamText(const TCIMDateTime& v) {
  std::ostringstream out;
  out << std::setfill('0');
  if (v.IsInterval())
    out << std::setw(8) << v.GetDay();
  else
    out << std::setw(4) << v.GetYear() << std::setw(2) << v.GetMonth() << std::setw(2) << v.GetDay();
  out << std::setw(2) << v.GetHour() << std::setw(2) << v.GetMinute() << std::setw(2)
      << v.GetSecond() << '.' << std::setw(6) << v.GetMicroSeconds();
  if (v.IsInterval())
    out << ":000";
  else
    out << (v.GetUTCOffset() < 0 ? '-' : '+') << std::setw(3)
        << std::abs(static_cast<int>(v.GetUTCOffset()));
  return out.str();
}

// The stream formatting that ToUIString used before.
std::string StreamUIText(const TCIMDateTime& v) {
  std::ostringstream out;
  if (!v.IsInterval()) {
    out << std::setfill('0') << std::setw(2) << v.GetMonth() << '/' << std::setw(2) << v.GetDay()
        << '/' << std::setw(4) << v.GetYear() << ' ' << std::setw(2) << v.GetHour() << ':'
        << std::setw(2) << v.GetMinute() << ':' << std::setw(2) << v.GetSecond();
    return out.str();
  }
  const struct {
    unsigned long count;
    const char* unit;
  } pieces[] = {{v.GetDay(), "day"},
                {v.GetHour(), "hour"},
                {v.GetMinute(), "minute"},
                {v.GetSecond(), "second"},
                {v.GetMicroSeconds() / 1000, "millisecond"},
                {v.GetMicroSeconds() % 1000, "microsecond"}};
  for (const auto& piece : pieces)
    if (piece.count != 0) out << piece.count << ' ' << piece.unit << (piece.count == 1 ? " " : "s ");
  return out.str();
}

// And a 25-character text reads back as the value that wrote it.
void ExpectSameAsStreams(const TCIMDateTime& value) {
  const std::string text = value.ToString();
  EXPECT_EQ(StreamText(value), text);
  EXPECT_EQ(StreamUIText(value), value.ToUIString());
  if (text.size() == 25) {
    EXPECT_EQ(text, TCIMDateTime(text).ToString());
  }
}

TEST(DateTimeTextOracleTest, WritesWhatTheStreamsWrote) {
  vyrtest::ScopedEnv utc("TZ", "UTC");
  // Every field at 0, 1, the last value of each width and the first that needs one more digit.
  for (unsigned year : {0u, 1u, 9u, 10u, 999u, 1000u, 9999u, 10000u, 65535u})
    for (unsigned small : {0u, 1u, 9u, 10u, 99u, 100u, 65535u})
      for (unsigned micros : {0u, 1u, 999999u, 1000000u, 4294967295u})
        for (int offset : {-32768, -1000, -999, -1, 0, 1, 99, 999, 1000, 32767}) {
          ExpectSameAsStreams(TCIMDateTime(static_cast<unsigned short>(year),
                                           static_cast<unsigned short>(small), small,
                                           static_cast<unsigned short>(small),
                                           static_cast<unsigned short>(small),
                                           static_cast<unsigned short>(small), micros,
                                           static_cast<short>(offset)));
        }
  for (unsigned days : {0u, 1u, 2u, 99999999u, 100000000u, 4294967295u})
    for (unsigned short hms : {0, 1, 2, 9, 10, 23})
      for (unsigned micros : {0u, 1u, 999u, 1000u, 1001u, 2002u, 999999u})
        ExpectSameAsStreams(TCIMDateTime(days, hms, static_cast<unsigned short>(hms * 2),
                                         static_cast<unsigned short>(hms * 2 + 13 % 60), micros));

  std::mt19937 random(5);
  for (int i = 0; i < 2000; ++i) {
    ExpectSameAsStreams(TCIMDateTime(
        static_cast<unsigned short>(random()), static_cast<unsigned short>(random() % 100),
        static_cast<unsigned>(random() % 100), static_cast<unsigned short>(random() % 100),
        static_cast<unsigned short>(random() % 100), static_cast<unsigned short>(random() % 100),
        static_cast<unsigned>(random() % 1000000), static_cast<short>(random())));
    ExpectSameAsStreams(TCIMDateTime(static_cast<unsigned>(random()),
                                     static_cast<unsigned short>(random() % 24),
                                     static_cast<unsigned short>(random() % 60),
                                     static_cast<unsigned short>(random() % 60),
                                     static_cast<unsigned>(random() % 1000000)));
  }
}

}  // namespace
