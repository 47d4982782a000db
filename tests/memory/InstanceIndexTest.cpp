// GetInstance: the first committed instance a path designates, found through the key indexes.
#include <dlfcn.h>

#include <cmath>
#include <ctime>

#include "MemoryFixture.h"

namespace {

// Date/time equality calls mktime for each absolute operand, so counting mktime calls counts the
// date/time comparisons (and index keys) the namespace makes. This definition takes the place of
// the C library's in every library of the program.
long gMktimeCalls = 0;

}  // namespace

extern "C" std::time_t mktime(std::tm* fields) {
  static const auto real = reinterpret_cast<std::time_t (*)(std::tm*)>(dlsym(RTLD_NEXT, "mktime"));
  ++gMktimeCalls;
  return real(fields);
}

namespace vyrtest {
namespace {

TCIMValue At(unsigned short hour, unsigned short minute, short utcOffset = 0) {
  return TCIMValue(TCIMDateTime(2024, 3, 1, hour, minute, 0, 0, utcOffset));
}

TCIMValue Interval(unsigned int days) { return TCIMValue(TCIMDateTime(days, 0, 0, 0, 0)); }

class IndexTest : public MemoryTest {
 protected:
  // The Name of the Device instance the path finds, "-" for none.
  std::string Found(const Properties& bindings) {
    boost::shared_ptr<ICIMInstance> found = fDevice->GetInstance(Path(fDevice, bindings), fContext);
    return found ? found->GetProperty("Name", fContext)->GetValue().ToString() : "-";
  }

  // A reference value holding the path <class>.<bindings>.
  TCIMValue To(const boost::shared_ptr<ICIMClass>& cimClass, const Properties& bindings) {
    TCIMReference path = Path(cimClass, bindings);
    return TCIMValue(path);
  }

  ScopedEnv fZone{"TZ", "UTC"};
  boost::shared_ptr<ICIMClass> fDevice =
      MakeClass("Device", {},
                {{"Name", TCIMValue("")},
                 {"Bay", TCIMValue(0u)},
                 {"Weight", TCIMValue(0.0)},
                 {"Host", TCIMValue(Type::kCIMTypeReference, 0)},
                 {"Since", TCIMValue(Type::kCIMTypeDateTime, 0)}});
};

TEST_F(IndexTest, PathsFindTheFirstCommittedInstanceWithEqualValues) {
  boost::shared_ptr<ICIMInstance> sda = MakeInstance(fDevice, {{"Name", TCIMValue("sda")}});
  const TCIMValue toSda = To(fDevice, {{"Name", TCIMValue("sda")}});
  const TCIMValue toSdb = To(fDevice, {{"Name", TCIMValue("sdb")}});
  MakeInstance(fDevice, {{"Name", TCIMValue("sdb")}, {"Bay", TCIMValue(2u)}, {"Since", At(9, 0)}});
  MakeInstance(fDevice, {{"Name", TCIMValue("sdc")}, {"Bay", TCIMValue(2u)}, {"Host", toSda}});
  MakeInstance(fDevice, {{"Name", TCIMValue("sdd")}, {"Weight", TCIMValue(std::nan(""))}});
  MakeInstance(fDevice, {{"Name", TCIMValue("sde")}}, false);
  MakeInstance(fDevice, {{"Name", TCIMValue("sdg")}, {"Since", Interval(3)}, {"Host", toSdb}});
  MakeInstance(MakeClass("Removable", fDevice), {{"Name", TCIMValue("usb")}});
  const struct {
    Properties bindings;
    std::string expected;
  } cases[] = {
      {{{"Bay", TCIMValue(2u)}}, "sdb"},  // two match: the first committed
      {{{"Bay", TCIMValue(0u)}, {"Weight", TCIMValue(0.0)}}, "sda"},  // unset: the default
      {{{"Weight", TCIMValue(-0.0)}}, "sda"},                         // -0.0 equals 0.0
      {{{"Host", TCIMValue(Type::kCIMTypeReference, 0)}}, "sda"},     // a null default
      {{{"Host", toSda}}, "sdc"},
      {{{"Host", toSda}, {"Name", TCIMValue("sdb")}}, "-"},
      {{{"Host", toSdb}}, "sdg"},
      {{{"Since", At(9, 0)}}, "sdb"},
      {{{"Since", At(10, 0, 60)}}, "sdb"},  // the same instant
      {{{"Since", At(9, 1)}}, "-"},
      {{{"Since", Interval(3)}}, "sdg"},
      {{{"Name", TCIMValue("usb")}}, "-"},           // an instance of the subclass, not of Device
      {{{"Weight", TCIMValue(std::nan(""))}}, "-"},  // a NaN equals nothing
      {{{"Name", TCIMValue("sde")}}, "-"},           // never committed
      {{}, "sda"},                                   // no binding: every instance qualifies
  };
  for (std::size_t i = 0; i < sizeof cases / sizeof cases[0]; ++i) {
    EXPECT_EQ(Found(cases[i].bindings), cases[i].expected) << "case " << i;
  }
  // The indexes built by now follow instances committed and values changed later.
  MakeInstance(fDevice, {{"Name", TCIMValue("sdf")}});
  EXPECT_EQ(Found({{"Name", TCIMValue("sdf")}}), "sdf");
  sda->SetPropertyValue("Name", TCIMValue("hda"), fContext);
  sda->SetPropertyValue("Bay", TCIMValue(2u), fContext);
  EXPECT_EQ(Found({{"Name", TCIMValue("sda")}}), "-");
  EXPECT_EQ(Found({{"Bay", TCIMValue(2u)}}), "hda");
  sda->SetPropertyValue("Bay", TCIMValue(Type::kCIMTypeUInt32, 0), fContext);
  EXPECT_EQ(Found({{"Bay", TCIMValue(2u)}}), "sdb");
  sda->SetPropertyValue("Host", toSdb, fContext);
  EXPECT_EQ(Found({{"Host", toSdb}}), "hda");
}

// A point in time and an interval cannot be compared: their equality throws. GetInstance used to
// let that escape when a stored value and the path's were of different kinds.
TEST_F(IndexTest, DateTimesOfTheOtherKindAreNoMatch) {
  MakeInstance(fDevice, {{"Name", TCIMValue("point")}, {"Since", At(9, 0)}});
  MakeInstance(fDevice, {{"Name", TCIMValue("span")}, {"Since", Interval(1)}});
  const struct {
    TCIMValue since;
    std::string expected;
  } cases[] = {
      {Interval(1), "span"},
      {Interval(2), "-"},
      {At(9, 0), "point"},
      {At(8, 0), "-"},
      {TCIMValue(TCIMDateTime()), "-"},  // an unset date/time equals nothing
  };
  for (const auto& c : cases) {
    std::string found;
    EXPECT_NO_THROW(found = Found({{"Since", c.since}})) << c.expected;
    EXPECT_EQ(found, c.expected);
  }
}

// An absolute date/time's key is the instant mktime makes of it, which moves with the time zone.
TEST_F(IndexTest, DateTimeKeysFollowTheTimeZone) {
  MakeInstance(fDevice, {{"Name", TCIMValue("sda")}, {"Since", At(9, 0)}});
  EXPECT_EQ(Found({{"Since", At(9, 0)}}), "sda");
  ScopedEnv berlin("TZ", "Europe/Berlin");
  EXPECT_EQ(Found({{"Since", At(9, 0)}}), "sda");
  EXPECT_EQ(Found({{"Since", At(10, 0)}}), "-");
}

// A declaration made after the instances gives them another default, in the class or below it.
TEST_F(IndexTest, DefaultsFollowDeclarationsMadeLater) {
  boost::shared_ptr<ICIMClass> middle = MakeClass("Middle", fDevice);
  boost::shared_ptr<ICIMClass> leaf = MakeClass("Leaf", middle);
  MakeInstance(leaf, {{"Name", TCIMValue("leaf")}});
  auto found = [&](unsigned int bay) {
    return static_cast<bool>(leaf->GetInstance(Path(leaf, {{"Bay", TCIMValue(bay)}}), fContext));
  };
  EXPECT_TRUE(found(0));
  middle->CreatePropertyDecl("Bay", TCIMValue(5u), fContext);
  EXPECT_FALSE(found(0));
  EXPECT_TRUE(found(5));
  leaf->CreatePropertyDecl("Bay", TCIMValue(7u), fContext);
  EXPECT_FALSE(found(5));
  EXPECT_TRUE(found(7));
}

// Associations are keyed by references, here to instances keyed by date/times. Every one used to
// be compared on every lookup: 300 lookups made about 45,000 date/time comparisons. Indexed, a
// lookup makes the path's key (two mktime calls) and compares nothing.
TEST_F(IndexTest, AssociationsAreFoundWithoutComparingTheOthers) {
  const int count = 300;
  boost::shared_ptr<ICIMClass> stamp = MakeClass("Stamp", {}, {{"At", At(0, 0)}});
  const TCIMValue noReference(Type::kCIMTypeReference, 0);
  boost::shared_ptr<ICIMClass> link =
      MakeClass("Link", {}, {{"Left", noReference}, {"Right", noReference}});
  auto stampAt = [&](int i) { return To(stamp, {{"At", At(i / 60, i % 60)}}); };
  auto keys = [&](int i) { return Properties{{"Left", stampAt(i)}, {"Right", stampAt(i + 1)}}; };
  for (int i = 0; i <= count; ++i) MakeInstance(stamp, {{"At", At(i / 60, i % 60)}});
  std::vector<boost::shared_ptr<ICIMInstance>> links;
  std::vector<TCIMReference> paths;
  for (int i = 0; i < count; ++i) {
    links.push_back(MakeInstance(link, keys(i)));
    paths.push_back(Path(link, keys(i)));
  }

  gMktimeCalls = 0;
  int found = 0;
  for (int i = count - 1; i >= 0; --i) found += link->GetInstance(paths[i], fContext) == links[i];
  EXPECT_EQ(found, count);
  // The first lookup keys every instance once; each lookup keys its own path.
  EXPECT_GE(gMktimeCalls, 2 * count) << "mktime calls are not counted";
  EXPECT_LE(gMktimeCalls, 5 * count);
}

// A NaN is neither less nor greater than anything: kept in an ordered index it would send searches
// down the wrong branch. With NaNs among them in this order, 39 was once lost that way.
TEST_F(IndexTest, NaNValuesDoNotMisleadTheIndex) {
  const double nan = std::nan("");
  const std::vector<double> weights = {39, nan, nan, 13, 41, 32, nan, 16,
                                       13, nan, 21,  16, 93, 4,  76,  52};
  for (std::size_t i = 0; i < weights.size(); ++i) {
    MakeInstance(fDevice,
                 {{"Name", TCIMValue(std::to_string(i))}, {"Weight", TCIMValue(weights[i])}});
  }
  // The first instance of each weight.
  for (std::size_t i : {0, 3, 4, 5, 7, 10, 12, 13, 14, 15}) {
    EXPECT_EQ(Found({{"Weight", TCIMValue(weights[i])}}), std::to_string(i)) << weights[i];
  }
}

}  // namespace
}  // namespace vyrtest
