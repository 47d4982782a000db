// The name rules of plug-in discovery: service names cut from file names and the specification
// document of a plug-in. No file is touched.
#include <string>

#include <vyrcore/OSSpecific.h>

#include "os/PluginNames.h"
#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

TEST(PluginNamesTest, ConstantsAreBuiltAtLoad) {
  EXPECT_EQ(TOSSpecific::kDynamicModuleExtension, ".so");
  EXPECT_EQ(TOSSpecific::kVYRPluginExtension, "pi");
  EXPECT_EQ(TOSSpecific::kPluginExtension, ".pi.so");
  EXPECT_EQ(TOSSpecific::kSpecificationExtension, ".properties.xml");
  EXPECT_EQ(TOSSpecific::kFileSeparator, "/");
  EXPECT_EQ(kNSPExtension, ".nsp.so");
}

TEST(PluginNamesTest, ServiceFilesAreThoseContainingDotAndKind) {
  const struct {
    const char* fileName;
    const char* kind;
    bool isService;
  } rows[] = {
      {"libsmbios.nsp.so", "nsp", true},  {"libxml.nsc.so", "nsc", true},
      {"libxml.nsc.so", "nsp", false},    {"l.nsp", "nsp", true},
      {"libx.nsp.so.bak", "nsp", true},   {"libnsp.so", "nsp", false},
      {"libx.NSP.so", "nsp", false},      {"x.nspy", "nsp", true},
      {"libvyrcore.so.2", "nsp", false},  {"a.", "", true},
  };
  for (const auto& row : rows)
    EXPECT_EQ(detail::IsServiceFileName(row.fileName, row.kind), row.isService)
        << row.fileName << " / " << row.kind;
}

TEST(PluginNamesTest, ServiceNameDropsThreeLeadingAndSevenTrailingCharacters) {
  const struct {
    const char* fileName;
    const char* name;
  } rows[] = {
      {"libsmbios.nsp.so", "smbios"},
      {"libxml.nsc.so", "xml"},
      {"libm.nsp.so", "m"},
      {"lib.nsp.so", ""},
      // The cut is positional: whatever sits there goes.
      {"xyzcpu.nsp.so", "cpu"},
      {"libx.nsp.so.bak", "x.nsp"},
      {"libodd.nsp.so.disabled", "odd.nsp.so.d"},
      // Shorter than ten: everything from the fourth character on.
      {"l.nsp", "sp"},
      {"lib.nsp", ".nsp"},
      {"x.nsp.so", "sp.so"},
      {"abc", ""},
      // Too short to have a fourth character (only with an empty kind word).
      {"a.", ""},
      {"", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(detail::ServiceNameOf(row.fileName), row.name) << row.fileName;
}

TEST(PluginNamesTest, SpecificationPathOfAPlugin) {
  const struct {
    const char* pluginPath;
    const char* extension;
    const char* specification;
  } rows[] = {
      {"/opt/p/cpu/libcpu.pi.so", "pi", "/opt/p/cpu/cpu.properties.xml"},
      {"/opt/p/cim/x.cmpi.so", "cmpi", "/opt/p/cim/x.properties.xml"},
      // The first "lib" of the whole path goes, even in a directory name.
      {"/usr/lib/collect/cpu/libcpu.pi.so", "pi", "/usr//collect/cpu/libcpu.properties.xml"},
      {"/opt/library/libcpu.pi.so", "pi", "/opt/rary/libcpu.properties.xml"},
      // "cmpi" never cuts a "lib".
      {"/usr/lib/cim/libx.cmpi.so", "cmpi", "/usr/lib/cim/libx.properties.xml"},
      // The pattern may sit anywhere; its first occurrence ends the kept part.
      {"/opt/p/cpu/libcpu.pi.so.old", "pi", "/opt/p/cpu/cpu.properties.xml"},
      {"/opt/a.pi.so/libb.pi.so", "pi", "/opt/a.properties.xml"},
      {"libcpu.pi.so", "pi", "cpu.properties.xml"},
      {"/opt/p/libmem.dyn.so", "dyn", "/opt/p/mem.properties.xml"},
      // The only "lib" is inside the pattern itself: nothing in the kept part to cut.
      {"/opt/x.lib.so", "lib", "/opt/x.properties.xml"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(TOSSpecific::BuildSpecificationPath(row.pluginPath, row.extension),
              row.specification)
        << row.pluginPath;
  }
  EXPECT_EQ(TOSSpecific::BuildSpecificationPath("/opt/p/cpu/libcpu.pi.so"),
            "/opt/p/cpu/cpu.properties.xml");
}

TEST(PluginNamesTest, SpecificationPathRejects) {
  const struct {
    const char* pluginPath;
    const char* extension;
  } rejects[] = {
      {"/opt/p/cpu/cpu.pi.so", "pi"},       // no "lib"
      {"/opt/p/cpu/libcpu.so", "pi"},       // no pattern
      {"/opt/p/cpu/libcpu.pi.so", "cmpi"},  // another extension's pattern
      {"/opt/p/cim/x.CMPI.so", "CMPI"},     // only "cmpi" exactly spares the "lib"
      {"/opt/p/cpu/libcpu.pi.s", "pi"},
      {"", "pi"},
  };
  for (const auto& reject : rejects)
    EXPECT_VYR_STATUS(TOSSpecific::BuildSpecificationPath(reject.pluginPath, reject.extension),
                      kVYRStatusFail);
  EXPECT_VYR_STATUS(TOSSpecific::BuildSpecificationPath("/opt/p/cim/libx.cmpi.so"),
                    kVYRStatusFail);
}

}  // namespace
