// Numbers and booleans to and from text, held to the string streams that first defined those
// texts (TextOracle.h): every verdict, every value and every printed text must be the stream's,
// on tables of boundary texts and values and on a seeded random sweep.
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <vector>

#include "TextOracle.h"
#include "cim/NumberText.h"
#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

typedef TCIMValue::TCIMType TCIMType;

const unsigned kSeed = 20261124;

bool Fast(const std::string& text, bool& value) { return detail::ReadBoolean(text, value); }
bool Fast(const std::string& text, float& value) { return detail::ReadReal(text, value); }
bool Fast(const std::string& text, double& value) { return detail::ReadReal(text, value); }
template <typename Integer>
bool Fast(const std::string& text, Integer& value) {
  return detail::ReadInteger(text, value);
}

// Bit for bit, so that -0 and 0 differ.
template <typename Number>
bool SameBits(Number a, Number b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

template <typename Number>
std::string Shown(Number value) {
  std::ostringstream text;
  text.precision(17);
  text << +value;
  return text.str();
}

// Collects the texts a reader or writer disagrees with the stream on; reports the first few.
class TDisagreements {
 public:
  explicit TDisagreements(const char* what) : fWhat(what) {}
  ~TDisagreements() {
    EXPECT_EQ(fCount, 0u) << fWhat << ", for example:" << fExamples;
  }
  void Add(const std::string& example) {
    if (++fCount <= 8) fExamples += "\n  " + example;
  }

 private:
  const char* fWhat;
  unsigned fCount = 0;
  std::string fExamples;
};

template <typename Number>
void CompareRead(const std::string& text, TDisagreements& disagreements) {
  Number fast = Number(1);
  Number stream = Number(1);
  const bool fastRead = Fast(text, fast);
  const bool streamRead = vyrtest::StreamRead(text, stream);
  if (fastRead != streamRead || !SameBits(fast, stream))
    disagreements.Add("'" + text + "': read " + std::to_string(fastRead) + " " + Shown(fast) +
                      ", stream " + std::to_string(streamRead) + " " + Shown(stream));
}

void CompareEveryReader(const std::string& text, TDisagreements& disagreements) {
  CompareRead<bool>(text, disagreements);
  CompareRead<unsigned short>(text, disagreements);
  CompareRead<short>(text, disagreements);
  CompareRead<unsigned int>(text, disagreements);
  CompareRead<int>(text, disagreements);
  CompareRead<unsigned long>(text, disagreements);
  CompareRead<long>(text, disagreements);
  CompareRead<float>(text, disagreements);
  CompareRead<double>(text, disagreements);
}

// Signs, prefixes and blanks, around bodies at the edges of every width and of the two real
// formats, followed by what a stream stops at.
std::vector<std::string> BoundaryTexts() {
  const char* const prefixes[] = {"", " ", "\t\n\v\f\r", "+", "-", "0", "00", "0x", "0X",
                                  "-0x", "+0", "--", "+-", "\xa0"};
  const char* const bodies[] = {
      "", "0", "1", "7", "8", "9", "a", "F", "g", "x", "127", "128", "255", "256", "377", "400",
      "ff", "100", "32767", "32768", "65535", "65536", "177777", "200000", "7fffffff", "80000000",
      "ffffffff", "100000000", "2147483647", "2147483648", "4294967295", "4294967296",
      "37777777777", "40000000000", "7fffffffffffffff", "8000000000000000", "ffffffffffffffff",
      "10000000000000000", "9223372036854775807", "9223372036854775808",
      "18446744073709551615", "18446744073709551616", "1777777777777777777777",
      "2000000000000000000000", "99999999999999999999999", "1.5", "1e3", "1E-3", "1e", "1e+",
      "1e-5x", "1ee5", "1.2.3", ".5", ".", "5.", "e5", ".e5", "0.0", "3.4028235e38",
      "3.4028236e38", "1.7976931348623157e308", "1.7976931348623159e308", "1e-45", "1e-46",
      "2.4703282292062328e-324", "2.4703282292062327e-324", "4e-320", "1e-400", "1e400",
      "123456789012345678901234567890", "nan", "NaN", "inf", "-inf", "infinity", "true",
      "false", "True", "tru", "fals", "truex", "falsey", "0x1p3", "1,000"};
  const char* const suffixes[] = {"", " 9", "x", ".", "e9", "\n"};
  std::vector<std::string> texts;
  for (const char* prefix : prefixes)
    for (const char* body : bodies)
      for (const char* suffix : suffixes) texts.push_back(std::string(prefix) + body + suffix);
  return texts;
}

TEST(NumberTextTest, ReadersGiveTheStreamVerdictAndValueOnBoundaryTexts) {
  TDisagreements disagreements("boundary texts");
  for (const std::string& text : BoundaryTexts()) CompareEveryReader(text, disagreements);
}

TEST(NumberTextTest, ReadersGiveTheStreamVerdictAndValueOnRandomTexts) {
  std::mt19937 random(kSeed);
  const std::string alphabet = "0123456789abcdefxX+-.eE \ttrufls";
  TDisagreements disagreements("random texts");
  for (int i = 0; i < 20000; ++i) {
    std::string text(random() % 16, ' ');
    for (char& c : text) c = alphabet[random() % alphabet.size()];
    CompareEveryReader(text, disagreements);
  }
  // Real numerals: correctly rounded conversions from many digits, and exponents across the
  // ends of both formats, where the values underflow to subnormals or zero and overflow.
  for (int i = 0; i < 20000; ++i) {
    std::uint64_t bits = (std::uint64_t(random()) << 32) | random();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    char text[64];
    std::snprintf(text, sizeof text, i % 2 ? "%.17g" : "%.9g", value);
    CompareRead<double>(text, disagreements);
    CompareRead<float>(text, disagreements);
    std::snprintf(text, sizeof text, "%" PRIu64 "e%d", bits >> (random() % 64),
                  static_cast<int>(random() % 740) - 370);
    CompareRead<double>(text, disagreements);
    CompareRead<float>(text, disagreements);
  }
}

// Texts printed by every type with every radix it allows.
TEST(NumberTextTest, WritersPrintWhatTheStreamPrints) {
  std::vector<TCIMValue> values = {TCIMValue(true), TCIMValue(false)};
  const auto addIntegers = [&values](auto zero) {
    typedef decltype(zero) Integer;
    typedef std::numeric_limits<Integer> Limits;
    for (Integer value : {Integer(0), Integer(1), Integer(7), Integer(8), Integer(10), Integer(15),
                          Integer(16), Integer(Limits::max() - 1), Limits::max(), Limits::min(),
                          Integer(Limits::min() + 1), Integer(-1)})
      values.push_back(TCIMValue(value));
  };
  addIntegers(static_cast<unsigned char>(0));
  addIntegers(static_cast<signed char>(0));
  addIntegers(static_cast<unsigned short>(0));
  addIntegers(short(0));
  addIntegers(0u);
  addIntegers(0);
  addIntegers(0ul);
  addIntegers(0l);
  typedef std::numeric_limits<double> Double;
  for (double value : {0.0, -0.0, 1.5, 0.1, 1e-7, 123456789.0, 999999.5, 9999995.0, 1e21,
                       Double::max(), Double::min(), Double::denorm_min(), Double::infinity(),
                       -Double::infinity(), Double::quiet_NaN(), -Double::quiet_NaN()}) {
    values.push_back(TCIMValue(value));
    values.push_back(TCIMValue(static_cast<float>(value)));
  }
  std::mt19937 random(kSeed);
  for (int i = 0; i < 20000; ++i) {
    const std::uint64_t bits = (std::uint64_t(random()) << 32) | random();
    double real;
    float single;
    std::memcpy(&real, &bits, sizeof real);
    std::memcpy(&single, &bits, sizeof single);
    values.push_back(TCIMValue(real));
    values.push_back(TCIMValue(single));
    values.push_back(TCIMValue(static_cast<unsigned long>(bits >> (bits % 64))));
    values.push_back(TCIMValue(static_cast<long>(bits) >> (bits % 64)));
    values.push_back(TCIMValue(static_cast<unsigned int>(bits)));
    values.push_back(TCIMValue(static_cast<unsigned short>(bits)));
  }

  TDisagreements disagreements("printed texts");
  for (const TCIMValue& value : values) {
    const TCIMType::ECIMType type = value.GetType();
    const bool everyRadix = type == TCIMType::kCIMTypeBoolean ||
                            (type <= TCIMType::kCIMTypeUInt64 && type % 2 == 0);
    for (unsigned char radix : {10, 16, 8}) {
      if (radix != 10 && !everyRadix) continue;
      const std::string printed = value.ToString(radix);
      const std::string expected = vyrtest::StreamText(value, radix);
      if (printed != expected)
        disagreements.Add(value.GetType().ToString() + " radix " + std::to_string(radix) +
                          ": " + printed + ", stream " + expected);
    }
  }
}

// The value constructor uses the readers for all eleven types, the 8-bit ones through a full
// int, and keeps 0 or false for what cannot be read.
TEST(NumberTextTest, ValuesFromTextAreTheStreamValues) {
  TDisagreements disagreements("values from text");
  for (std::string text : BoundaryTexts()) {
    for (unsigned int type = TCIMType::kCIMTypeBoolean; type <= TCIMType::kCIMTypeReal64; ++type) {
      const TCIMValue value(TCIMType(type), text, boost::shared_ptr<ICIMNamespace>());
      const TCIMValue expected = vyrtest::StreamValue(TCIMType(type), text);
      if (!(value == expected) || value.ToString(10) != expected.ToString(10))
        disagreements.Add(TCIMType(type).ToString() + " '" + text + "': " + value.ToString(10) +
                          ", stream " + expected.ToString(10));
    }
  }
}

}  // namespace
