// The wall-clock count's short cut for fields as written against the general March-based count,
// for every year and month the 16-bit fields can hold. The zone sweep compares both with mktime,
// but only over the years mktime is cheap to ask about.
#include <gtest/gtest.h>

#include "cim/CivilTime.h"

using namespace NORXVYR20::detail;

namespace {

TEST(CivilTime, FieldsAsWrittenCountLikeTheGeneralFormula) {
  int mismatches = 0;
  for (int year = 1; year <= 65535; ++year) {
    for (int month = 1; month <= 12; ++month) {
      const std::int64_t general = DaysFromCivil(year, month) * 86400 + 23 * 3600 + 59 * 60 + 58;
      if (WallSeconds(year, month, 1, 23, 59, 58) != general && ++mismatches <= 5)
        ADD_FAILURE() << year << "-" << month;
    }
  }
  EXPECT_EQ(mismatches, 0);
  // Days, hours, minutes and seconds outside their ranges still count linearly, and months
  // outside 1-12 fold into the year, on both sides of the short cut.
  EXPECT_EQ(WallSeconds(2004, 3, 0, 0, 0, 0), WallSeconds(2004, 2, 29, 0, 0, 0));
  EXPECT_EQ(WallSeconds(2004, 13, 1, 0, 0, 0), WallSeconds(2005, 1, 1, 0, 0, 0));
  EXPECT_EQ(WallSeconds(2004, 0, 1, 0, 0, 0), WallSeconds(2003, 12, 1, 0, 0, 0));
  EXPECT_EQ(WallSeconds(1, 1, 1, 0, -1, 0), WallSeconds(0, 12, 31, 23, 59, 0));
  EXPECT_EQ(WallSeconds(1970, 1, 1, 0, 0, -1), -1);
  EXPECT_EQ(WallSeconds(65535, 12, 31, 24, 0, 0), WallSeconds(65536, 1, 1, 0, 0, 0));
}

}  // namespace
