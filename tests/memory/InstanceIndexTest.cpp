// GetInstance: the first committed instance a path designates, found through the key indexes.
#include <chrono>
#include <cmath>

#include "MemoryFixture.h"

namespace vyrtest {
namespace {

class IndexTest : public MemoryTest {
 protected:
  // The Name of the Device instance the path finds, "-" for none.
  std::string Found(const Properties& bindings) {
    boost::shared_ptr<ICIMInstance> found = fDevice->GetInstance(Path(fDevice, bindings), fContext);
    return found ? found->GetProperty("Name", fContext)->GetValue().ToString() : "-";
  }

  boost::shared_ptr<ICIMClass> fDevice =
      MakeClass("Device", {},
                {{"Name", TCIMValue("")},
                 {"Bay", TCIMValue(0u)},
                 {"Weight", TCIMValue(0.0)},
                 {"Host", TCIMValue(Type::kCIMTypeReference, 0)}});
};

TEST_F(IndexTest, PathsFindTheFirstCommittedInstanceWithEqualValues) {
  boost::shared_ptr<ICIMInstance> sda = MakeInstance(fDevice, {{"Name", TCIMValue("sda")}});
  TCIMReference sdaPath = Path(fDevice, {{"Name", TCIMValue("sda")}});
  const TCIMValue toSda(sdaPath);
  MakeInstance(fDevice, {{"Name", TCIMValue("sdb")}, {"Bay", TCIMValue(2u)}});
  MakeInstance(fDevice, {{"Name", TCIMValue("sdc")}, {"Bay", TCIMValue(2u)}, {"Host", toSda}});
  MakeInstance(fDevice, {{"Name", TCIMValue("sdd")}, {"Weight", TCIMValue(std::nan(""))}});
  MakeInstance(fDevice, {{"Name", TCIMValue("sde")}}, false);
  MakeInstance(MakeClass("Removable", fDevice), {{"Name", TCIMValue("usb")}});
  const struct {
    Properties bindings;
    std::string expected;
  } cases[] = {
      {{{"Bay", TCIMValue(2u)}}, "sdb"},  // two match: the first committed
      {{{"Bay", TCIMValue(0u)}, {"Weight", TCIMValue(0.0)}}, "sda"},  // unset: the default
      {{{"Host", toSda}}, "sdc"},  // a reference is compared, not indexed
      {{{"Host", toSda}, {"Name", TCIMValue("sdb")}}, "-"},
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
}

// A NaN is neither less nor greater than anything: kept in the ordered index it would send
// searches down the wrong branch. With NaNs among them in this order, 39 was lost that way.
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

// Keyed, as schemas often are, by a value all share (here Bay) and a name of their own. Indexed,
// finding costs about what making did; comparing every instance would cost a hundred times more.
TEST_F(IndexTest, TwentyThousandInstancesAreEachFoundQuickly) {
  auto keys = [](int i) {
    return Properties{{"Bay", TCIMValue(0u)}, {"Name", TCIMValue(std::to_string(i))}};
  };
  auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 20000; ++i) MakeInstance(fDevice, keys(i));
  const std::chrono::duration<double> making = std::chrono::steady_clock::now() - start;
  start = std::chrono::steady_clock::now();
  int found = 0;
  for (int i = 20000 - 1; i >= 0; --i) found += Found(keys(i)) == std::to_string(i);
  const std::chrono::duration<double> finding = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(found, 20000);
  EXPECT_LT(finding.count(), 10 * making.count()) << "making " << making.count() << " s";
}

}  // namespace
}  // namespace vyrtest
