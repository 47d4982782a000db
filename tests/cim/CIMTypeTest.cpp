// The type descriptor: reading type names, printing them, and the array bit.
#include <sstream>

#include <vyrcore/CIMValue.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

typedef TCIMValue::TCIMType TCIMType;

TEST(CIMTypeTest, ReadsNamesInAnyCase) {
  const struct {
    const char* name;
    unsigned int type;
  } rows[] = {
      {"boolean", 1},   {"Boolean", 1},   {"uint8", 2},         {"SINT8", 3},     {"uint16", 4},
      {"sInt16", 5},    {"uint32", 6},    {"UiNt32", 6},        {"sint32", 7},    {"uint64", 8},
      {"sint64", 9},    {"real32", 10},   {"Real64", 11},       {"string", 13},   {"DateTime", 14},
      {"reference", 15},
      // Not names: these leave the descriptor null.
      {"char", 0},      {"char16", 0},    {"uint8[]", 0},       {"", 0},          {" uint8", 0},
      {"int", 0},       {"array", 0},
  };
  for (const auto& row : rows)
    EXPECT_EQ(static_cast<unsigned int>(TCIMType(std::string(row.name))), row.type) << row.name;
}

TEST(CIMTypeTest, PrintsTheElementTypeName) {
  const struct {
    unsigned int type;
    const char* name;
  } rows[] = {
      {1, "boolean"},  {2, "uint8"},   {3, "sint8"},   {4, "uint16"},    {5, "sint16"},
      {6, "uint32"},   {7, "sint32"},  {8, "uint64"},  {9, "sint64"},    {10, "real32"},
      {11, "real64"},  {12, "char"},   {13, "string"}, {14, "datetime"}, {15, "reference"},
      {18, "uint8"},   {23, "sint32"}, {31, "reference"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(TCIMType(row.type).ToString(), row.name) << row.type;
    std::ostringstream os;
    os << TCIMType(row.type);
    EXPECT_EQ(os.str(), row.name) << row.type;
  }
  for (unsigned int type : {0u, 16u, 32u, 48u, 0xFFFFFFFFu})
    EXPECT_VYR_STATUS(TCIMType(type).ToString(), kVYRStatusTypeMismatch);
}

}  // namespace
