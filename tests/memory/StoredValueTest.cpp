// Values as an instance keeps them: whatever compact form a value is stored in, it reads back
// exactly as it was set, and it stays under the declaration it was set under.
#include <cmath>
#include <limits>
#include <map>

#include "MemoryFixture.h"

namespace vyrtest {
namespace {

// Everything a reader can tell about a value, as text: type, null, bound, referenced class, the
// text form and, for strings and reals, the bytes and the sign that the text form hides.
std::string Portrait(const TCIMValue& value) {
  std::string text = std::to_string(value.GetType()) + (value.IsNull() ? " null" : " set") +
                     " bound " + std::to_string(value.GetMaxArraySize()) + " class " +
                     (value.GetReferencedClass() ? "yes" : "no");
  if (value.IsNull()) return text;
  if (value.GetType() == Type::kCIMTypeString) return text + " [" + value.operator std::string() + "]";
  if (value.GetType() == Type::kCIMTypeReal32) text += std::signbit(float(value)) ? " -" : " +";
  if (value.GetType() == Type::kCIMTypeReal64) text += std::signbit(double(value)) ? " -" : " +";
  return text + " " + value.ToString();
}

TCIMValue At(unsigned short hour, unsigned short minute, short utcOffset) {
  return TCIMValue(TCIMDateTime(2024, 3, 1, hour, minute, 0, 0, utcOffset));
}

TCIMValue NullOf(const TCIMValue& value) {
  TCIMValue null;
  null.SetNullValue(value.GetType(), value.GetMaxArraySize());
  return null;
}

// A value of value's type that also names a referenced class (set while it was null).
TCIMValue Carrying(const boost::shared_ptr<ICIMClass>& cimClass, const TCIMValue& value) {
  TCIMValue carrying(value.GetType(), 0);
  carrying.SetReferencedClass(cimClass);
  carrying = value;  // assignment keeps the class
  return carrying;
}

TEST_F(MemoryTest, EveryKindOfValueReadsBackAsItWasSet) {
  auto host = MakeClass("Host", {}, {{"Name", TCIMValue("")}});
  MakeInstance(host, {{"Name", TCIMValue("h1")}});
  TCIMValue expectingHost(Type::kCIMTypeReference, 0);
  expectingHost.SetReferencedClass(host);
  TCIMReference toHost = Path(host, {{"Name", TCIMValue("h1")}});

  const struct {
    const char* what;
    TCIMValue value;
  } cases[] = {
      {"boolean", TCIMValue(true)},
      {"uint8", TCIMValue(static_cast<unsigned char>(255))},
      {"sint8", TCIMValue(static_cast<signed char>(-128))},
      {"uint16", TCIMValue(static_cast<unsigned short>(65535))},
      {"sint16", TCIMValue(static_cast<short>(-32768))},
      {"uint32", TCIMValue(std::numeric_limits<unsigned int>::max())},
      {"sint32", TCIMValue(std::numeric_limits<int>::min())},
      {"uint64", TCIMValue(std::numeric_limits<unsigned long>::max())},
      {"sint64", TCIMValue(std::numeric_limits<long>::min())},
      {"real32 -0", TCIMValue(-0.0f)},
      {"real32 NaN", TCIMValue(std::numeric_limits<float>::quiet_NaN())},
      {"real64 -0", TCIMValue(-0.0)},
      {"real64 infinity", TCIMValue(-std::numeric_limits<double>::infinity())},
      {"real64 smallest", TCIMValue(std::numeric_limits<double>::denorm_min())},
      {"empty string", TCIMValue("")},
      {"16-byte string", TCIMValue("0123456789abcdef")},
      {"17-byte string", TCIMValue("0123456789abcdefg")},
      {"string with NULs", TCIMValue(std::string("a\0b\0", 4))},
      {"long string", TCIMValue(std::string(1000, 'x'))},
      {"absolute date/time", TCIMValue(TCIMDateTime(2024, 2, 29, 23, 59, 59, 999999, -480))},
      {"interval", TCIMValue(TCIMDateTime(99999999, 23, 59, 59, 999999))},
      {"reference", TCIMValue(toHost)},
      {"array", TCIMValue(Type(Type::kCIMTypeUInt32 | Type::kCIMTypeArray), 3,
                          {TCIMValue(1u), TCIMValue(2u)})},
      {"null string", TCIMValue(Type::kCIMTypeString, 0)},
      {"null array with a bound", TCIMValue(Type::kCIMTypeSInt64, 7)},
      {"null reference expecting a class", expectingHost},
      // A copy drops the class a scalar of another type carries; so must the stored form.
      {"string carrying a class", Carrying(host, TCIMValue("s"))},
      {"uint32 carrying a class", Carrying(host, TCIMValue(7u))},
      {"date/time carrying a class", Carrying(host, At(1, 2, 60))},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    auto cimClass = MakeClass(std::string("K_") + std::to_string(&c - cases),  {},
                              {{"P", NullOf(c.value)}, {"Id", TCIMValue(0u)}});
    auto instance = MakeInstance(cimClass, {{"P", c.value}, {"Id", TCIMValue(1u)}});
    // What is set is copied, so it reads back as a copy reads.
    const std::string expected = Portrait(TCIMValue(c.value));
    // The value stays valid while the instance holds it, the property object gone or not.
    const TCIMValue& read = instance->GetProperty("P", fContext)->GetValue();
    EXPECT_EQ(Portrait(read), expected);
    std::vector<std::string> listed;
    boost::function<bool(boost::shared_ptr<ICIMProperty>)> each =
        [&](boost::shared_ptr<ICIMProperty> p) {
          listed.push_back(p->GetName() + " " + Portrait(p->GetValue()));
          return true;
        };
    instance->EnumerateProperties(each, fContext);
    EXPECT_EQ(listed, (std::vector<std::string>{"P " + expected, "Id " + Portrait(TCIMValue(1u))}));
    // The index keys the stored form: a path with the value finds the instance, unless the value
    // equals nothing (a NaN).
    const bool findable = !c.value.IsNull() && !c.value.IsArray() && c.value.ToString() != "nan";
    if (findable) {
      EXPECT_EQ(cimClass->GetInstance(Path(cimClass, {{"P", c.value}}), fContext), instance);
    }
  }
}

TEST_F(MemoryTest, PropertiesHandedOutAreSnapshots) {
  auto cimClass = MakeClass("Item", {}, {{"Label", TCIMValue("")}, {"Count", TCIMValue(0u)}});
  auto instance = MakeInstance(cimClass, {{"Label", TCIMValue("first")}, {"Count", TCIMValue(1u)}});
  const boost::shared_ptr<ICIMProperty> label = instance->GetProperty("Label", fContext);
  const boost::shared_ptr<ICIMProperty> count = instance->GetProperty("Count", fContext);
  instance->SetPropertyValue("Label", TCIMValue(std::string(40, 'L')), fContext);
  instance->SetPropertyValue("Count", TCIMValue(2u), fContext);
  EXPECT_EQ(label->GetValue(), TCIMValue("first"));
  EXPECT_EQ(count->GetValue(), TCIMValue(1u));
  EXPECT_EQ(instance->GetProperty("Label", fContext)->GetValue(), TCIMValue(std::string(40, 'L')));
  EXPECT_EQ(instance->GetProperty("Count", fContext)->GetValue(), TCIMValue(2u));
}

// Slots are looked up by name whatever order the values come in, the declaration order that is
// looked up fastest or any other, with names repeated, inherited or unknown in between.
TEST_F(MemoryTest, ValuesLandInTheirOwnSlotsWhateverTheOrderTheyAreSetIn) {
  auto base = MakeClass("Base", {}, {{"A", TCIMValue("a")}, {"B", TCIMValue("b")}});
  auto derived = MakeClass("Derived", base, {{"C", TCIMValue("c")}, {"Cc", TCIMValue("cc")}});
  const std::vector<std::string> orders[] = {
      {"A", "B", "C", "Cc"}, {"Cc", "C", "B", "A"}, {"B", "B", "A", "Cc"}, {"C", "X", "A", "C"},
      {"Cc", "X", "Cc", "B"}, {}};
  for (const auto& order : orders) {
    auto instance = MakeInstance(derived, {});
    std::map<std::string, std::string> expected = {{"A", "a"}, {"B", "b"}, {"C", "c"}, {"Cc", "cc"}};
    for (std::size_t i = 0; i < order.size(); ++i) {
      const std::string value = order[i] + std::to_string(i);
      if (order[i] == "X") {
        EXPECT_VYR_STATUS(instance->SetPropertyValue("X", TCIMValue(value), fContext),
                          kVYRStatusNotFound);
        continue;
      }
      instance->SetPropertyValue(order[i], TCIMValue(value), fContext);
      expected[order[i]] = value;
    }
    Labels listed;
    for (const auto& e : expected) {
      listed.push_back(Label(instance->GetProperty(e.first, fContext)));
    }
    Labels wanted;
    for (const auto& e : expected) wanted.push_back(e.first + "=" + e.second);
    EXPECT_EQ(listed, wanted) << ::testing::PrintToString(order);
  }
}

// Values live in slots numbered by name, so declarations made after the values were set must
// neither move them nor change the declaration they answer.
TEST_F(MemoryTest, ValuesKeepTheirPlaceAndDeclarationWhenDeclarationsComeLater) {
  auto base = MakeClass("Base", {}, {{"Size", TCIMValue(1u)}});
  auto derived = MakeClass("Derived", base, {{"Name", TCIMValue("")}});
  auto instance = MakeInstance(derived, {{"Size", TCIMValue(5u)}, {"Name", TCIMValue("d")}});
  const boost::shared_ptr<ICIMPropertyDecl> baseSize = base->GetPropertyDecl("Size", fContext);

  base->CreatePropertyDecl("Early", TCIMValue("e"), fContext);
  derived->CreatePropertyDecl("Size", TCIMValue("big"), fContext);  // a string now, below
  EXPECT_EQ(Listed(SIZE_MAX, *instance, &ICIMInstance::EnumerateProperties),
            (Labels{"Size=5", "Early=e", "Name=d"}));
  EXPECT_EQ(instance->GetProperty("Size", fContext)->GetPropertyDecl(), baseSize);

  // A value set from now on goes under the re-declaration.
  EXPECT_VYR_STATUS(instance->SetPropertyValue("Size", TCIMValue(6u), fContext),
                    kVYRStatusTypeMismatch);
  instance->SetPropertyValue("Size", TCIMValue("huge"), fContext);
  EXPECT_EQ(instance->GetProperty("Size", fContext)->GetPropertyDecl(),
            derived->GetPropertyDecl("Size", fContext));
  EXPECT_EQ(Listed(SIZE_MAX, *instance, &ICIMInstance::EnumerateProperties),
            (Labels{"Size=huge", "Early=e", "Name=d"}));
}

}  // namespace
}  // namespace vyrtest

namespace vyrtest {
namespace {

// A reference as a reader sees it: its namespace's name and its path.
std::string ReferencePortrait(const TCIMValue& value) {
  const TCIMReference reference = value;
  return reference.GetNamespace()->GetName() + " " + reference.GetPath();
}

// Consecutive instances setting equal references share one stored value; a reference that equals
// the previous one but would read back differently must get its own.
TEST_F(MemoryTest, EqualReferencesThatReadDifferentlyAreKeptApart) {
  auto holder = MakeClass("Holder", {}, {{"Ref", TCIMValue(Type::kCIMTypeReference, 0)}});
  auto named = MakeClass("Named", {}, {{"Name", TCIMValue("")}});
  auto real = MakeClass("RealKeyed", {}, {{"K", TCIMValue(0.0)}});
  auto timed = MakeClass("TimeKeyed", {}, {{"K", TCIMValue(TCIMDateTime(2024, 1, 1, 0, 0, 0, 0, 0))}});
  boost::shared_ptr<ICIMNamespace> other = TMemoryNamespace::Create("root/other");
  ScopedEnv zone("TZ", "UTC");

  auto pathIn = [&](boost::shared_ptr<ICIMNamespace> space, boost::shared_ptr<ICIMClass> cimClass,
                    const TCIMValue& key) {
    TCIMReference path(space, TCIMContext());
    path.SetClass(cimClass);
    path.AddKeyValue(cimClass == named ? "Name" : "K", key);
    return TCIMValue(path);
  };
  const struct {
    const char* what;
    TCIMValue first, second;
  } cases[] = {
      {"another namespace", pathIn(fNamespace, named, TCIMValue("n")),
       pathIn(other, named, TCIMValue("n"))},
      {"0 and -0", pathIn(fNamespace, real, TCIMValue(0.0)),
       pathIn(fNamespace, real, TCIMValue(-0.0))},
      {"one instant in two offsets", pathIn(fNamespace, timed, At(12, 0, 0)),
       pathIn(fNamespace, timed, At(13, 0, 60))},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    ASSERT_EQ(c.first, c.second);
    ASSERT_NE(ReferencePortrait(c.first), ReferencePortrait(c.second));
    auto first = MakeInstance(holder, {{"Ref", c.first}});
    auto second = MakeInstance(holder, {{"Ref", c.second}});
    EXPECT_EQ(ReferencePortrait(first->GetProperty("Ref", fContext)->GetValue()),
              ReferencePortrait(c.first));
    EXPECT_EQ(ReferencePortrait(second->GetProperty("Ref", fContext)->GetValue()),
              ReferencePortrait(c.second));
  }
}

// A stored reference is checked against its class's declarations as they are now, even when it
// equals the one stored just before.
TEST_F(MemoryTest, AReferenceWhoseKeyWasRedeclaredSinceIsRefused) {
  auto holder = MakeClass("Holder", {}, {{"Ref", TCIMValue(Type::kCIMTypeReference, 0)}});
  auto keyed = MakeClass("Keyed", {}, {{"K", TCIMValue(0)}});
  auto derived = MakeClass("Derived", keyed);
  TCIMReference path = Path(derived, {{"K", TCIMValue(1)}});
  const TCIMValue bound(path);
  MakeInstance(holder, {{"Ref", bound}});
  derived->CreatePropertyDecl("K", TCIMValue(""), fContext);  // K is a string from now on
  auto second = MakeInstance(holder, {});
  EXPECT_VYR_STATUS(second->SetPropertyValue("Ref", bound, fContext), kVYRStatusTypeMismatch);
}

}  // namespace
}  // namespace vyrtest
