// The name rules of plug-in discovery, tested without files: service names cut from file names
// and the specification document of a plug-in.
#include <string>

#include <vyrcore/OSSpecific.h>

#include "os/PluginNames.h"
#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

TEST(PluginNamesTest, ServicesAreFilesContainingDotAndKindCutByPosition) {
  const struct {
    const char* fileName;
    const char* kind;
    const char* name;  // nullptr: not a service of the kind
  } rows[] = {
      {"libsmbios.nsp.so", "nsp", "smbios"},
      {"libnsp.so", "nsp", nullptr},
      {"libx.NSP.so", "nsp", nullptr},
      // Three leading and seven trailing characters go, whatever they are.
      {"xyzcpu.nsp.so", "nsp", "cpu"},
      {"libx.nsp.so.bak", "nsp", "x.nsp"},
      {"lib.nsp.so", "nsp", ""},
      // Shorter than ten: everything from the fourth character on, or nothing.
      {"l.nsp", "nsp", "sp"},
      {"a.", "", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.fileName) + " / " + row.kind);
    EXPECT_EQ(detail::IsServiceFileName(row.fileName, row.kind), row.name != nullptr);
    if (row.name) {
      EXPECT_EQ(detail::ServiceNameOf(row.fileName), row.name);
    }
  }
}

TEST(PluginNamesTest, SpecificationPathOfAPlugin) {
  const struct {
    const char* pluginPath;
    const char* extension;
    const char* specification;  // nullptr: kVYRStatusFail
  } rows[] = {
      {"/opt/p/cpu/libcpu.pi.so", "pi", "/opt/p/cpu/cpu.properties.xml"},
      {"/opt/p/cim/x.cmpi.so", "cmpi", "/opt/p/cim/x.properties.xml"},
      // The first "lib" of the whole path goes, even in a directory name, except for "cmpi".
      {"/usr/lib/collect/cpu/libcpu.pi.so", "pi", "/usr//collect/cpu/libcpu.properties.xml"},
      {"/usr/lib/cim/libx.cmpi.so", "cmpi", "/usr/lib/cim/libx.properties.xml"},
      // The pattern's first occurrence, anywhere, ends the kept part.
      {"/opt/a.pi.so/libb.pi.so", "pi", "/opt/a.properties.xml"},
      {"libcpu.pi.so", "pi", "cpu.properties.xml"},
      {"/opt/p/cpu/cpu.pi.so", "pi", nullptr},       // no "lib"
      {"/opt/p/cpu/libcpu.so", "pi", nullptr},       // no pattern
      {"/opt/p/cpu/libcpu.pi.so", "cmpi", nullptr},  // another extension's pattern
      {"/opt/p/cim/x.CMPI.so", "CMPI", nullptr},     // only "cmpi" exactly spares the "lib"
      {"", "pi", nullptr},
  };
  for (const auto& row : rows) {
    std::string made;
    const int status = vyrtest::StatusThrownBy(
        [&] { made = TOSSpecific::BuildSpecificationPath(row.pluginPath, row.extension); });
    EXPECT_EQ(status, row.specification ? -1 : kVYRStatusFail) << row.pluginPath;
    EXPECT_EQ(made, row.specification ? row.specification : "") << row.pluginPath;
  }
  // The one-argument form takes "pi".
  EXPECT_EQ(TOSSpecific::BuildSpecificationPath("/opt/p/cpu/libcpu.pi.so"),
            "/opt/p/cpu/cpu.properties.xml");
}

}  // namespace
