// GetInstance: the instance a path designates, through the key index or by comparison, kept
// current when values change, and fast enough for tens of thousands of instances.
#include <chrono>
#include <cmath>

#include "MemoryFixture.h"

namespace vyrtest {
namespace {

using namespace NORXVYR20;

class IndexTest : public MemoryTest {
 protected:
  void SetUp() override {
    fDevice = MakeClass("Device", {},
                        {{"Kind", TCIMValue("disk")},
                         {"Name", TCIMValue("")},
                         {"Slot", TCIMValue(0u)},
                         {"Weight", TCIMValue(0.0)}});
  }

  // The path Device.<bindings>.
  TCIMReference Path(const Properties& bindings, boost::shared_ptr<ICIMClass> cimClass = {}) {
    TCIMReference path(fNamespace, TCIMContext());
    path.SetClass(cimClass ? cimClass : fDevice);
    for (const auto& binding : bindings) path.AddKeyValue(binding.first, binding.second);
    return path;
  }

  // The Name of the instance the path finds, "-" for none.
  std::string Found(const Properties& bindings, boost::shared_ptr<ICIMClass> cimClass = {}) {
    boost::shared_ptr<ICIMInstance> found =
        (cimClass ? cimClass : fDevice)->GetInstance(Path(bindings, cimClass), fContext);
    return found ? found->GetProperty("Name", fContext)->GetValue().ToString() : "-";
  }

  boost::shared_ptr<ICIMClass> fDevice;
};

TEST_F(IndexTest, PathsFindTheFirstCommittedInstanceWithEqualValues) {
  MakeInstance(fDevice, {{"Name", TCIMValue("sda")}, {"Slot", TCIMValue(1u)}});
  MakeInstance(fDevice,
               {{"Name", TCIMValue("sdb")}, {"Slot", TCIMValue(2u)}, {"Kind", TCIMValue("ssd")}});
  MakeInstance(fDevice,
               {{"Name", TCIMValue("sdc")}, {"Slot", TCIMValue(2u)}, {"Weight", TCIMValue(1.5)}});
  MakeInstance(fDevice, {{"Name", TCIMValue("sdd")}, {"Weight", TCIMValue(std::nan(""))}});
  MakeInstance(fDevice, {{"Name", TCIMValue("sdb")}, {"Slot", TCIMValue(9u)}},
               false);  // never committed
  boost::shared_ptr<ICIMClass> subclass = MakeClass("Removable", fDevice);
  MakeInstance(subclass, {{"Name", TCIMValue("usb")}, {"Slot", TCIMValue(2u)}});

  const struct {
    Properties bindings;
    std::string expected;
  } cases[] = {
      {{{"Name", TCIMValue("sdb")}}, "sdb"},
      {{{"Name", TCIMValue("sdb")}, {"Slot", TCIMValue(2u)}}, "sdb"},
      {{{"Slot", TCIMValue(2u)}}, "sdb"},  // two match: the first committed
      {{{"Slot", TCIMValue(2u)}, {"Kind", TCIMValue("disk")}}, "sdc"},  // Kind unset: its default
      {{{"Kind", TCIMValue("disk")}}, "sda"},
      {{{"Kind", TCIMValue("ssd")}}, "sdb"},
      {{{"Slot", TCIMValue(0u)}}, "sdd"},  // unset, default 0
      {{{"Weight", TCIMValue(1.5)}}, "sdc"},
      {{{"Name", TCIMValue("sdb")}, {"Slot", TCIMValue(1u)}}, "-"},
      {{{"Name", TCIMValue("SDA")}}, "-"},
      {{{"Name", TCIMValue("usb")}}, "-"},           // an instance of the subclass, not of Device
      {{{"Weight", TCIMValue(std::nan(""))}}, "-"},  // a NaN equals nothing
      {{{"Slot", TCIMValue(9u)}}, "-"},
      {{}, "sda"},  // no binding: every instance qualifies
  };
  // Twice: the first round builds the indexes, the second uses them.
  for (int round = 0; round < 2; ++round) {
    for (const auto& c : cases) {
      std::string text;
      for (const auto& b : c.bindings) text += b.first + "=" + b.second.ToString() + " ";
      EXPECT_EQ(Found(c.bindings), c.expected) << text << "round " << round;
    }
  }
  EXPECT_EQ(Found({{"Name", TCIMValue("usb")}}, subclass), "usb");
}

TEST_F(IndexTest, IndexFollowsValuesChangedAfterCommit) {
  boost::shared_ptr<ICIMInstance> sda = MakeInstance(fDevice, {{"Name", TCIMValue("sda")}});
  MakeInstance(fDevice, {{"Name", TCIMValue("sdb")}, {"Slot", TCIMValue(4u)}});
  ASSERT_EQ(Found({{"Name", TCIMValue("sda")}}), "sda");
  ASSERT_EQ(Found({{"Slot", TCIMValue(4u)}}), "sdb");

  sda->SetPropertyValue("Name", TCIMValue("hda"), fContext);
  sda->SetPropertyValue("Slot", TCIMValue(4u), fContext);
  EXPECT_EQ(Found({{"Name", TCIMValue("sda")}}), "-");
  EXPECT_EQ(Found({{"Name", TCIMValue("hda")}}), "hda");
  EXPECT_EQ(Found({{"Slot", TCIMValue(4u)}}), "hda");  // committed first
  sda->SetPropertyValue("Slot", TCIMValue(TCIMValue::TCIMType::kCIMTypeUInt32, 0), fContext);
  EXPECT_EQ(Found({{"Slot", TCIMValue(4u)}}), "sdb");
  sda->SetPropertyValue("Slot", TCIMValue(4u), fContext);
  EXPECT_EQ(Found({{"Slot", TCIMValue(4u)}}), "hda");
}

TEST_F(IndexTest, KeysThatCannotBeOrderedAreCompared) {
  // Reference keys (as associations have) and arrays are left by the index to comparison.
  boost::shared_ptr<ICIMClass> link =
      MakeClass("Link", {},
                {{"Part", TCIMValue(TCIMValue::TCIMType::kCIMTypeReference, 0)},
                 {"Name", TCIMValue("")},
                 {"Sizes", TCIMValue(TCIMValue::TCIMType::kCIMTypeUInt32, 2)}});
  MakeInstance(fDevice, {{"Name", TCIMValue("sda")}});
  MakeInstance(fDevice, {{"Name", TCIMValue("sdb")}});
  TCIMReference toA = Path({{"Name", TCIMValue("sda")}});
  TCIMReference toB = Path({{"Name", TCIMValue("sdb")}});
  const std::vector<TCIMValue> sizes = {TCIMValue(1u), TCIMValue(2u)};
  MakeInstance(link, {{"Name", TCIMValue("first")}, {"Part", TCIMValue(toA)}});
  MakeInstance(link, {{"Name", TCIMValue("second")},
                      {"Part", TCIMValue(toB)},
                      {"Sizes", TCIMValue(TCIMValue::TCIMType::kCIMTypeUInt32, 2, sizes)}});

  EXPECT_EQ(Found({{"Part", TCIMValue(toB)}}, link), "second");
  EXPECT_EQ(Found({{"Part", TCIMValue(toA)}}, link), "first");
  EXPECT_EQ(Found({{"Part", TCIMValue(toA)}, {"Name", TCIMValue("second")}}, link), "-");
  EXPECT_EQ(Found({{"Sizes", TCIMValue(TCIMValue::TCIMType::kCIMTypeUInt32, 2, sizes)}}, link),
            "second");
}

// A NaN is neither less nor greater than anything: kept in the ordered index it would send
// searches down the wrong branch. With NaNs among them in this order, 39 was lost that way.
TEST_F(IndexTest, NaNValuesDoNotMisleadTheIndex) {
  const double nan = std::nan("");
  const double weights[] = {39, nan, nan, 13, 41, 32, nan, 16, 13, nan, 21, 16, 93, 4, 76, 52};
  for (std::size_t i = 0; i < sizeof weights / sizeof weights[0]; ++i) {
    MakeInstance(fDevice,
                 {{"Name", TCIMValue(std::to_string(i))}, {"Weight", TCIMValue(weights[i])}});
  }
  for (std::size_t i = 0; i < sizeof weights / sizeof weights[0]; ++i) {
    if (std::isnan(weights[i])) continue;
    std::size_t first = 0;
    while (weights[first] != weights[i]) ++first;
    EXPECT_EQ(Found({{"Weight", TCIMValue(weights[i])}}), std::to_string(first)) << weights[i];
  }
}

// 20000 instances keyed, as schemas often are, by a class name that all of them share and a name
// of their own; each is looked up. Indexed, finding them all costs about what making them did; a
// lookup that compared every instance would make some 200 million comparisons, a hundred times
// more. Measuring against the making keeps the bound fair in plain and sanitized builds alike.
TEST_F(IndexTest, TwentyThousandInstancesAreEachFoundQuickly) {
  const int count = 20000;
  boost::shared_ptr<ICIMClass> element = MakeClass(
      "Element", {},
      {{"CreationClassName", TCIMValue("")}, {"Name", TCIMValue("")}, {"Index", TCIMValue(0u)}});
  auto seconds = [](std::chrono::steady_clock::time_point since) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
  };
  auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < count; ++i) {
    MakeInstance(element, {{"CreationClassName", TCIMValue("Element")},
                           {"Name", TCIMValue("element-" + std::to_string(i))},
                           {"Index", TCIMValue(static_cast<unsigned int>(i))}});
  }
  const double making = seconds(start);

  start = std::chrono::steady_clock::now();
  int found = 0;
  for (int i = count - 1; i >= 0; --i) {
    TCIMReference path = Path({{"CreationClassName", TCIMValue("Element")},
                               {"Name", TCIMValue("element-" + std::to_string(i))}},
                              element);
    boost::shared_ptr<ICIMInstance> instance = element->GetInstance(path, fContext);
    if (instance && instance->GetProperty("Index", fContext)->GetValue() ==
                        TCIMValue(static_cast<unsigned int>(i))) {
      ++found;
    }
  }
  const double finding = seconds(start);
  EXPECT_EQ(found, count);
  EXPECT_LT(finding, 10 * making) << "making " << making << " s, finding " << finding << " s";

  std::size_t enumerated = 0;
  boost::function<bool(boost::shared_ptr<ICIMInstance>)> counter =
      [&enumerated](boost::shared_ptr<ICIMInstance>) { return ++enumerated > 0; };
  element->EnumerateInstances(counter, false, fContext);
  EXPECT_EQ(enumerated, static_cast<std::size_t>(count));
}

}  // namespace
}  // namespace vyrtest
