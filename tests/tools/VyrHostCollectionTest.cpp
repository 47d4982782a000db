// vyr-host saving, loading and uploading collections: a saved collection is valid CIM-XML and
// loads back to the same report; an upload lands on a real FTP server on 127.0.0.1; every failure
// has its exit status and says what went wrong.

#include <string>
#include <vector>

#include "support/FtpServer.h"
#include "support/TestSupport.h"

namespace {

vyrtest::ProgramResult RunHost(const std::vector<std::string>& args) {
  std::vector<std::string> argv = {VYR_HOST_PATH};
  argv.insert(argv.end(), args.begin(), args.end());
  return vyrtest::RunProgram(argv);
}

// The report from its heading line on, without the heading (which names the machine or file).
std::string ReportAfter(const std::string& output, const std::string& heading) {
  const std::size_t start = output.find(heading);
  if (start == std::string::npos) return "(no heading " + heading + ")";
  const std::size_t end = output.find("Saved collection", start);
  return output.substr(start + heading.size(),
                       end == std::string::npos ? std::string::npos : end - start - heading.size());
}

std::string ValidAgainstDtd(const std::string& path) {
  return vyrtest::RunProgram({"xmllint", "--noout", "--nonet", "--dtdvalid", VYR_CIM_DTD, path})
      .output;
}

// A machine with everything the report shows, as a fixture tree.
void MakeMachine(const std::string& root) {
  const std::string dmi = "sys/class/dmi/id/";
  const std::string disk = "sys/devices/pci0000:00/ata1/host0/target0:0:0/0:0:0:0/";
  vyrtest::MakeTree(root, {{dmi + "product_name", "Orx Nimbar n4000 -[7945AC1]-\n"},
                           {dmi + "product_serial", "KQ7X0P2\n"},
                           {"etc/os-release", "NAME=\"Orx Linux\"\nVERSION=\"12 (nimbus)\"\n"},
                           {disk + "type", "0\n"},
                           {disk + "vendor", "ATA     \n"},
                           {disk + "model", "Orx SSD 480 <&>\n"},
                           {disk + "scsi_generic/sg0/", ""},
                           {"sys/bus/scsi/devices/0:0:0:0", "../../../" + disk.substr(4), true}});
}

TEST(VyrHostCollectionTest, SavedCollectionLoadsToTheSameReport) {
  vyrtest::ScopedTempDir dir;
  MakeMachine(dir / "machine");
  for (const std::string file : {"collection.xml.gz", "collection.xml"}) {
    SCOPED_TRACE(file);
    const vyrtest::ProgramResult saved =
        RunHost({"--root", dir / "machine", "--save", dir / file});
    ASSERT_EQ(saved.exitStatus, 0) << saved.output;
    EXPECT_NE(saved.output.find("Saved collection: " + dir / file + "\n"), std::string::npos);
    EXPECT_EQ(ValidAgainstDtd(dir / file), "");
    const vyrtest::ProgramResult loaded = RunHost({"--load", dir / file});
    ASSERT_EQ(loaded.exitStatus, 0) << loaded.output;
    const std::string report =
        ReportAfter(saved.output, "This machine (as read below " + dir / "machine" + "):\n");
    EXPECT_NE(report.find("Serial number:        KQ7X0P2\n"), std::string::npos) << report;
    EXPECT_NE(report.find("ATA Orx SSD 480 <&>\n"), std::string::npos) << report;
    EXPECT_EQ(ReportAfter(loaded.output, "The collection " + dir / file + ":\n"), report);
  }
  // This machine, whatever it holds, saves a valid collection that loads.
  const vyrtest::ProgramResult live = RunHost({"--save", dir / "live.xml.gz"});
  ASSERT_EQ(live.exitStatus, 0) << live.output;
  EXPECT_EQ(ValidAgainstDtd(dir / "live.xml.gz"), "");
  const vyrtest::ProgramResult loaded = RunHost({"--load", dir / "live.xml.gz"});
  EXPECT_EQ(loaded.exitStatus, 0) << loaded.output;
  EXPECT_NE(loaded.output.find("\nOS type:              36 (Linux)\n"), std::string::npos);
}

TEST(VyrHostCollectionTest, UploadLandsOnTheServer) {
  vyrtest::FtpServer server;
  ASSERT_TRUE(server.IsRunning()) << "the FTP server did not start (python3-pyftpdlib)";
  vyrtest::ScopedTempDir dir;
  MakeMachine(dir / "machine");
  // Without a trailing "/": the host adds it.
  std::string base = server.Url("up");
  base.pop_back();
  const vyrtest::ProgramResult uploaded = RunHost(
      {"--root", dir / "machine", "--upload", "collection1", "--upload-base", base, "--save",
       dir / "kept.xml.gz"});
  ASSERT_EQ(uploaded.exitStatus, 0) << uploaded.output;
  EXPECT_NE(uploaded.output.find(
                "Uploaded collection: nimbar/toorx/nimline/zul_upload/collection1.xml.gz\n"),
            std::string::npos);
  const std::string arrived =
      server / (std::string("up/") + vyrtest::kFtpUploadDirectory + "collection1.xml.gz");
  // The same snapshot saved twice gives the same bytes.
  EXPECT_TRUE(vyrtest::ReadFile(arrived) == vyrtest::ReadFile(dir / "kept.xml.gz"));
  const vyrtest::ProgramResult loaded = RunHost({"--load", arrived});
  EXPECT_EQ(loaded.exitStatus, 0) << loaded.output;
  EXPECT_NE(loaded.output.find("Serial number:        KQ7X0P2\n"), std::string::npos);
}

TEST(VyrHostCollectionTest, FailuresSayWhat) {
  vyrtest::ScopedTempDir dir;
  vyrtest::WriteFile(dir / "broken.xml", "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.4\">\n<DECLARATION></CIM>");
  const std::string closed = "ftp://127.0.0.1:" + std::to_string(vyrtest::ClosedLoopbackPort()) + "/";
  const struct {
    std::vector<std::string> args;
    int exitStatus;
    std::vector<std::string> printed;
  } cases[] = {
      {{"--load", dir / "missing.xml"},
       1,
       {"vyr-host: cannot load the collection " + dir / "missing.xml" + ": kVYRStatusFileNotFound",
        "vyr-host:   TCIMXml|Load: cannot open " + dir / "missing.xml" +
            ": No such file or directory"}},
      {{"--load", dir / "broken.xml"},
       1,
       {"vyr-host: cannot load the collection " + dir / "broken.xml" + ": kVYRStatusInvalidFormat",
        "vyr-host:   TCIMXml|Load: line 2: not well-formed XML"}},
      {{"--save", dir / "no/such/dir/c.xml"},
       1,
       {"vyr-host: cannot save the collection to " + dir / "no/such/dir/c.xml" +
            ": kVYRStatusFileSystemError",
        "cannot create " + dir / "no/such/dir/c.xml" + ": No such file or directory"}},
      {{"--upload", "c1", "--upload-base", closed},
       1,
       {"vyr-host: cannot upload the collection as c1: kVYRStatusConnectionFailed",
        "TOSSpecific|FTPFile: Error connecting to ORX Service"}},
      {{"--upload-base", closed}, 2, {"vyr-host: --upload-base needs --upload", "Usage: vyr-host"}},
      {{"--upload", "a/b"}, 2, {"vyr-host: --upload takes a name, not a path: a/b"}},
      {{"--upload", "c1", "--upload-base", "http://127.0.0.1/"},
       2,
       {"vyr-host: --upload-base takes an ftp:// URL: http://127.0.0.1/"}},
      {{"--load", dir / "broken.xml", "--root", dir.Path()},
       2,
       {"vyr-host: --load reports on a saved collection: it cannot go with --root or --media"}},
      {{"--save"}, 2, {"vyr-host: option --save needs a value"}},
      {{"--help"}, 0, {"  --save FILE    save the snapshot", "  --upload-base URL\n"}},
  };
  for (const auto& c : cases) {
    const vyrtest::ProgramResult result = RunHost(c.args);
    std::string command = "vyr-host";
    for (const std::string& arg : c.args) command += " " + arg;
    SCOPED_TRACE(command + "\n" + result.output);
    EXPECT_EQ(result.exitStatus, c.exitStatus);
    for (const std::string& text : c.printed)
      EXPECT_NE(result.output.find(text), std::string::npos) << text;
  }
  EXPECT_FALSE(std::filesystem::exists(dir / "no"));
}

}  // namespace
