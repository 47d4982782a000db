// The manual page of vyr-host against the program itself: the page and --help name the same
// options and the same exit statuses, both read at test time, and the page is clean roff.
#include <unistd.h>

#include <iterator>
#include <regex>
#include <set>
#include <string>

#include "support/TestSupport.h"

namespace {

const std::string kPage = VYR_HOST_MANUAL_PAGE;

// Every match of the pattern's first group in text.
std::set<std::string> Matches(const std::string& text, const std::regex& pattern) {
  std::set<std::string> found;
  for (auto it = std::sregex_iterator(text.begin(), text.end(), pattern);
       it != std::sregex_iterator(); ++it)
    found.insert((*it)[1]);
  return found;
}

// The page's section of that name, up to the next section; roff's \- read as a plain -.
std::string Section(const std::string& page, const std::string& name) {
  const std::string heading = "\n.SH " + name + "\n";
  const std::size_t start = page.find(heading);
  if (start == std::string::npos) return "";
  const std::size_t end = page.find("\n.SH ", start + heading.size());
  std::string text = page.substr(start, end == std::string::npos ? end : end - start);
  return std::regex_replace(text, std::regex(R"(\\-)"), "-");
}

std::string Describe(const std::set<std::string>& items) {
  std::string text;
  for (const std::string& item : items) text += " " + item;
  return text;
}

TEST(VyrHostManualPageTest, NamesTheOptionsAndExitStatusesOfHelp) {
  const vyrtest::ProgramResult help = vyrtest::RunProgram({VYR_HOST_PATH, "--help"});
  ASSERT_EQ(help.exitStatus, 0) << help.output;
  const std::string page = vyrtest::ReadFile(kPage);

  // --help lists each option at the start of an indented line; the page gives each its tagged
  // paragraph (.TP, then the option on the tag line) under OPTIONS.
  const std::set<std::string> helpOptions =
      Matches(help.output, std::regex(R"((?:^|\n)  (--[a-z][a-z-]*))"));
  const std::set<std::string> pageOptions =
      Matches(Section(page, "OPTIONS"), std::regex(R"(\n\.TP\n\.BI? (--[a-z][a-z-]*))"));
  EXPECT_FALSE(helpOptions.empty()) << help.output;
  EXPECT_EQ(pageOptions, helpOptions) << "--help:" << Describe(helpOptions)
                                      << "\npage:  " << Describe(pageOptions);

  // --help sums the statuses up in one sentence; the page gives each its tagged paragraph.
  std::smatch sentence;
  ASSERT_TRUE(std::regex_search(help.output, sentence, std::regex(R"(Exit status:[^\n]*)")));
  const std::set<std::string> helpStatuses =
      Matches(sentence.str(), std::regex(R"((?:^|\s)(\d+) )"));
  const std::set<std::string> pageStatuses =
      Matches(Section(page, "EXIT STATUS"), std::regex(R"(\n\.TP\n\.B (\d+)\n)"));
  EXPECT_FALSE(helpStatuses.empty()) << sentence.str();
  EXPECT_EQ(pageStatuses, helpStatuses) << "--help:" << Describe(helpStatuses)
                                        << "\npage:  " << Describe(pageStatuses);
}

TEST(VyrHostManualPageTest, IsCleanRoff) {
  if (access("/usr/bin/groff", X_OK) != 0) GTEST_SKIP() << "groff is not installed (groff-base)";
  // All warnings on, output discarded: whatever groff says is a fault of the page.
  const vyrtest::ProgramResult result =
      vyrtest::RunProgram({"/usr/bin/groff", "-man", "-ww", "-z", kPage});
  EXPECT_EQ(result.exitStatus, 0);
  EXPECT_EQ(result.output, "");
}

}  // namespace
