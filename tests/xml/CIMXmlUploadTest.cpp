// A saved collection sent to the real FTP server of the transfer tests with TOSSpecific::FTPFile:
// what arrives is the saved file byte for byte, and it loads back into an equal namespace.
#include <vyrcore/vyrmemory.h>

#include "XmlFixture.h"
#include "support/FtpServer.h"
#include "support/NamespaceDump.h"
#include "support/TestSupport.h"

namespace {

using namespace NORXVYR20;

TEST(CIMXmlUploadTest, UploadedCollectionArrivesWholeAndLoads) {
  const vyrtest::ScopedEnv utc("TZ", "UTC");
  vyrtest::FtpServer server;
  ASSERT_TRUE(server.IsRunning()) << "the FTP server did not start (python3-pyftpdlib)";
  TOSSpecific::SetFTPUploadBase(server.Url("up"));
  TOSSpecific::SetFTPDownloadBase(server.Url("up"));
  vyrtest::CoreLog();
  const boost::shared_ptr<ICIMNamespace> source = TMemoryNamespace::Create("root/rich");
  vyrtest::FillXmlNamespace(source);
  vyrtest::ScopedTempDir dir;
  TCIMXml::Save(source, dir / "collection.xml.gz");
  ASSERT_TRUE(TOSSpecific::FTPFile(dir / "collection.xml.gz", "collection1"));
  const std::string remote =
      std::string(vyrtest::kFtpUploadDirectory) + "collection1.xml.gz";
  EXPECT_TRUE(vyrtest::ReadFile(server / ("up/" + remote)) ==
              vyrtest::ReadFile(dir / "collection.xml.gz"));
  // Fetched back over FTP and loaded.
  ASSERT_TRUE(TOSSpecific::FTPFileFromORX(dir / "fetched.xml.gz", remote));
  const boost::shared_ptr<ICIMNamespace> loaded = TMemoryNamespace::Create("root/fetched");
  TCIMXml::Load(dir / "fetched.xml.gz", loaded);
  // Loading creates in the copy's order, so the copy of the source is what it must equal.
  const boost::shared_ptr<ICIMNamespace> copy = TMemoryNamespace::Create("root/copy");
  TCIMCopy::CopyClasses(source, copy);
  EXPECT_TRUE(vyrtest::Dump(loaded) == vyrtest::Dump(copy));
}

}  // namespace
