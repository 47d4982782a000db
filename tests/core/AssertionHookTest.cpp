// The assertion hook: every setting of VYR_BOOST_ASSERT, with the logger present and absent.
#include <boost/assert.hpp>
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

// An assertion of our own, for the settings that let execution go on past it.
int AssertThenContinue() {
  int reached = 0;
  BOOST_ASSERT(reached == 1);
  reached = 2;
  return reached;
}

TEST(AssertionHookTest, UnsetThrowsFailAfterLoggingTheMessage) {
  vyrtest::ScopedEnv env("VYR_BOOST_ASSERT", nullptr);
  vyrtest::CoreLog();
  EXPECT_VYR_STATUS(DereferenceEmpty(), kVYRStatusFail);

  const auto messages = vyrtest::LoggedMessages();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].rfind("Boost assertion failure! ", 0), 0u) << messages[0];
  EXPECT_NE(messages[0].find("shared_ptr.hpp:"), std::string::npos) << messages[0];
  EXPECT_NE(messages[0].find(" [px != 0] func = "), std::string::npos) << messages[0];
  EXPECT_EQ(TLogger::GetInstance()->GetLog().front().fSeverity, ILogger::kLogSeverityError);
}

TEST(AssertionHookTest, MessageNamesFileLineExpressionAndFunction) {
  vyrtest::ScopedEnv env("VYR_BOOST_ASSERT", "throwboost");
  vyrtest::CoreLog();
  const long line = __LINE__ + 3;
  std::string what;
  try {
    BOOST_ASSERT(1 + 1 == 3);
  } catch (const TBoostAssertException& e) {
    what = e.what();
  }
  const std::string expected = std::string("Boost assertion failure! ") + __FILE__ + ":" +
                               std::to_string(line) + " [1 + 1 == 3] func = ";
  EXPECT_EQ(what.substr(0, expected.size()), expected);
  EXPECT_NE(what.find("TestBody"), std::string::npos) << what;
  ASSERT_EQ(vyrtest::LoggedMessages().size(), 1u);
  EXPECT_EQ(vyrtest::LoggedMessages()[0], what);
}

TEST(AssertionHookTest, ExplicitThrowVyrThrowsFail) {
  vyrtest::ScopedEnv env("VYR_BOOST_ASSERT", "throwvyr");
  EXPECT_VYR_STATUS(DereferenceEmpty(), kVYRStatusFail);
}

TEST(AssertionHookTest, TrapReportsAndLetsTheCallerCarryOn) {
  vyrtest::ScopedEnv env("VYR_BOOST_ASSERT", "trap");
  vyrtest::StderrCapture capture;
  const int result = AssertThenContinue();
  const std::string err = capture.Finish();
  EXPECT_EQ(result, 2);
  EXPECT_EQ(err.rfind("\nBoost assertion failure! ", 0), 0u) << err;
  EXPECT_NE(err.find(" [reached == 1] func = "), std::string::npos) << err;
  const std::string tail = "\n\nForcing segmentation fault.\n\n";
  ASSERT_GE(err.size(), tail.size());
  EXPECT_EQ(err.substr(err.size() - tail.size()), tail);
}

TEST(AssertionHookTest, SettingsAreCaseSensitiveAndAnUnknownOneActsAsThrowVyr) {
  for (const char* setting : {"THROWBOOST", "Trap", "exit ", ""}) {
    vyrtest::ScopedEnv env("VYR_BOOST_ASSERT", setting);
    vyrtest::StderrCapture capture;
    EXPECT_VYR_STATUS(AssertThenContinue(), kVYRStatusFail);
    EXPECT_EQ(capture.Finish(), std::string("Invalid setting for VYR_BOOST_ASSERT '") + setting +
                                    "'. Valid values are {throwvyr, throwboost, trap, exit}.\n");
  }
}

TEST(AssertionHookTest, ExitEndsTheProcessWithStatusOne) {
  EXPECT_EXIT(
      {
        setenv("VYR_BOOST_ASSERT", "exit", 1);
        AssertThenContinue();
      },
      ::testing::ExitedWithCode(1), "\nBoost assertion failure! .* \\[reached == 1\\] func = ");
}

TEST(AssertionHookTest, WithoutALoggerTheLoggingStepIsSkipped) {
  // The threadsafe style re-executes this test alone: a fresh process where
  // TLogger::Initialize was never called.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        if (TLogger::GetInstance() != nullptr) std::_Exit(3);
        setenv("VYR_BOOST_ASSERT", "throwvyr", 1);
        try {
          DereferenceEmpty();
        } catch (const TVYRException& e) {
          std::_Exit(e.GetStatusCode() == kVYRStatusFail ? 0 : 4);
        }
        std::_Exit(5);
      },
      ::testing::ExitedWithCode(0), "");
}

}  // namespace
