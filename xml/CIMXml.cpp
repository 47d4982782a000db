// TCIMXml: the public entry points. Files are opened here; the document is written by
// XmlWriter.cpp over XmlStreams.cpp, and read by XmlTree.cpp (libxml2) into XmlLoader.cpp.
#include <vyrcore/CIMXml.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>

#include "core/Fail.h"
#include "xml/XmlLoader.h"
#include "xml/XmlStreams.h"
#include "xml/XmlTree.h"
#include "xml/XmlWriter.h"

namespace NORXVYR20 {

namespace {

bool EndsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

void TCIMXml::Save(boost::shared_ptr<ICIMNamespace> source, std::ostream& out, bool compress) {
  detail::TXmlOutput output(out, compress);
  detail::WriteCIMXml(*source, output);
}

void TCIMXml::Save(boost::shared_ptr<ICIMNamespace> source, const std::string& fileName,
                   bool compress) {
  std::ofstream out(fileName, std::ios::binary | std::ios::trunc);
  if (!out)
    detail::FailWithLog(kVYRStatusFileSystemError,
                        "TCIMXml|Save: cannot create " + fileName + ": " + std::strerror(errno));
  try {
    Save(source, out, compress || EndsWith(fileName, ".gz"));
    out.close();
    if (!out)
      detail::FailWithLog(kVYRStatusFileSystemError,
                          "TCIMXml|Save: cannot write " + fileName + ": " + std::strerror(errno));
  } catch (...) {
    out.close();
    std::remove(fileName.c_str());
    throw;
  }
}

void TCIMXml::Load(std::istream& in, boost::shared_ptr<ICIMNamespace> target) {
  detail::TXmlInput input(in);
  detail::TXmlLoader loader(target);
  detail::ParseCIMXml(input, [&loader](const detail::TXmlNode& object) { loader.Load(object); });
}

void TCIMXml::Load(const std::string& fileName, boost::shared_ptr<ICIMNamespace> target) {
  std::ifstream in(fileName, std::ios::binary);
  if (!in)
    detail::FailWithLog(errno == ENOENT ? kVYRStatusFileNotFound : kVYRStatusFileSystemError,
                        "TCIMXml|Load: cannot open " + fileName + ": " + std::strerror(errno));
  Load(in, target);
}

}  // namespace NORXVYR20
