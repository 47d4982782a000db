// MemoryFixture.h: a fresh in-memory namespace per test, with shorthands to build a schema in it
// and to collect what an enumeration delivers.
#ifndef VYRCORE_TESTS_MEMORY_MEMORYFIXTURE_H
#define VYRCORE_TESTS_MEMORY_MEMORYFIXTURE_H

#include <cstddef>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <vyrcore/vyrcore.h>
#include <vyrcore/vyrmemory.h>

#include "support/TestSupport.h"

namespace vyrtest {

using NORXVYR20::ICIMClass;
using NORXVYR20::ICIMInstance;
using NORXVYR20::ICIMNamespace;
using NORXVYR20::TCIMContext;
using NORXVYR20::TCIMValue;

typedef std::vector<std::pair<std::string, TCIMValue>> Properties;

// Runs an enumeration with a callback that keeps each element and asks to stop once it holds
// `stopAfter` of them.
template <typename X>
std::vector<boost::shared_ptr<X>> Collect(
    const std::function<void(boost::function<bool(boost::shared_ptr<X>)>&)>& enumerate,
    std::size_t stopAfter = std::numeric_limits<std::size_t>::max()) {
  std::vector<boost::shared_ptr<X>> seen;
  boost::function<bool(boost::shared_ptr<X>)> callback = [&seen,
                                                          stopAfter](boost::shared_ptr<X> x) {
    seen.push_back(x);
    return seen.size() < stopAfter;
  };
  enumerate(callback);
  return seen;
}

class MemoryTest : public ::testing::Test {
 protected:
  // A class with property declarations (name and default value), committed unless told not to.
  boost::shared_ptr<ICIMClass> MakeClass(const std::string& name,
                                         boost::shared_ptr<ICIMClass> superclass = {},
                                         const Properties& properties = {}, bool commit = true);
  // An instance with values set, committed unless told not to.
  boost::shared_ptr<ICIMInstance> MakeInstance(const boost::shared_ptr<ICIMClass>& cimClass,
                                               const Properties& values, bool commit = true);
  // Attaches a qualifier, declaring it in the namespace first when needed.
  void Qualify(const boost::shared_ptr<ICIMClass>& cimClass, const std::string& name,
               const TCIMValue& value);

  std::vector<std::string> Names(const std::vector<boost::shared_ptr<ICIMClass>>& classes);
  // The values of one property of each instance, as text.
  std::vector<std::string> Values(const std::vector<boost::shared_ptr<ICIMInstance>>& instances,
                                  const std::string& property);

  boost::shared_ptr<ICIMNamespace> fNamespace = NORXVYR20::TMemoryNamespace::Create("root/test");
  TCIMContext fContext;
};

}  // namespace vyrtest

#endif
