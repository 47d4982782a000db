// The assertion hook: every setting of VYR_BOOST_ASSERT, with the logger present and absent.
#include <boost/current_function.hpp>
#include <boost/shared_ptr.hpp>

#include <vyrcore/AssertionHook.h>
#include <vyrcore/Status.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

// A real assertion inside Boost: dereferencing an empty shared pointer.
int DereferenceEmpty() {
  boost::shared_ptr<int> empty;
  return *empty;
}

TEST(AssertionHookTest, ThrowVyrUnsetOrUnknownLogsAnErrorAndThrowsFail) {
  // Settings are case-sensitive: an unknown one is complained about, then acts as "throwvyr".
  for (const char* setting :
       {"throwvyr", static_cast<const char*>(nullptr), "THROWBOOST", "Trap", "exit ", ""}) {
    SCOPED_TRACE(setting ? setting : "unset");
    const bool known = setting == nullptr || std::string(setting) == "throwvyr";
    vyrtest::ScopedEnv env("VYR_BOOST_ASSERT", setting);
    vyrtest::CoreLog();
    vyrtest::StderrCapture capture;
    EXPECT_VYR_STATUS(DereferenceEmpty(), kVYRStatusFail);
    EXPECT_EQ(capture.Finish(), known ? "" : "Invalid setting for VYR_BOOST_ASSERT '" +
        std::string(setting) + "'. Valid values are {throwvyr, throwboost, trap, exit}.\n");
    const auto& log = TLogger::GetInstance()->GetLog();
    ASSERT_EQ(log.size(), 1u);
    EXPECT_EQ(log.front().fSeverity, ILogger::kLogSeverityError);
    EXPECT_NE(log.front().fMessage.find(" [px != 0] func = "), std::string::npos);
  }
}

TEST(AssertionHookTest, ThrowBoostCarriesTheMessageThatWasLogged) {
  vyrtest::ScopedEnv env("VYR_BOOST_ASSERT", "throwboost");
  vyrtest::CoreLog();
  std::string what;
  const std::string expected = std::string("Boost assertion failure! ") + __FILE__ + ":" +
                               std::to_string(__LINE__ + 3) + " [1 + 1 == 3] func = " +
                               BOOST_CURRENT_FUNCTION;
  try {
    BOOST_ASSERT(1 + 1 == 3);
  } catch (const TBoostAssertException& e) {
    what = e.what();
  }
  EXPECT_EQ(what, expected);
  EXPECT_EQ(vyrtest::LoggedMessages(), std::vector<std::string>{expected});
}

TEST(AssertionHookTest, TrapReportsAndLetsTheCallerCarryOn) {
  vyrtest::ScopedEnv env("VYR_BOOST_ASSERT", "trap");
  vyrtest::CoreLog();
  vyrtest::StderrCapture capture;
  EXPECT_NO_THROW(BOOST_ASSERT(1 + 1 == 3));  // execution goes on past the assertion
  const std::string err = capture.Finish();
  ASSERT_EQ(vyrtest::LoggedMessages().size(), 1u);
  EXPECT_EQ(err, "\n" + vyrtest::LoggedMessages()[0] + "\n\nForcing segmentation fault.\n\n");
}

TEST(AssertionHookTest, ExitEndsTheProcessWithStatusOneEvenWithoutALogger) {
  // Re-executed alone: a fresh process where TLogger::Initialize was never called, so the
  // logging step is skipped.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        if (TLogger::GetInstance() != nullptr) std::_Exit(3);
        setenv("VYR_BOOST_ASSERT", "exit", 1);
        DereferenceEmpty();
      },
      ::testing::ExitedWithCode(1), "\nBoost assertion failure! .* \\[px != 0\\] func = ");
}

}  // namespace
