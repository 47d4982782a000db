// XmlStreams.h: the byte streams under the CIM-XML writer and reader, plain or gzip (zlib).
//
// TXmlOutput collects the document in a buffer that the writer appends to, and hands it on to the
// stream in large blocks, deflated when asked (gzip format, zlib's default level). TXmlInput gives
// back the bytes of a stream, inflated when the stream begins with the gzip magic bytes; several
// concatenated gzip members read as one. Both throw TVYRException after logging: a stream that
// fails kVYRStatusFileSystemError; a gzip header that does not read kVYRStatusInvalidGzipFile;
// damaged, truncated or trailing compressed data kVYRStatusCorruptGzipFile. One thread at a time.
#ifndef VYRCORE_XML_XMLSTREAMS_H
#define VYRCORE_XML_XMLSTREAMS_H

#include <cstddef>
#include <istream>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace NORXVYR20 {
namespace detail {

class TXmlOutput {
 public:
  TXmlOutput(std::ostream& out, bool compress);
  ~TXmlOutput();
  TXmlOutput(const TXmlOutput&) = delete;
  TXmlOutput& operator=(const TXmlOutput&) = delete;

  // The writer appends here, then calls Flush now and then.
  std::string& Text() { return fText; }
  // Passes the text on once enough has gathered.
  void Flush() {
    if (fText.size() >= kBlock) Drain(false);
  }
  // Passes everything on, ends the compressed stream, and flushes the stream.
  void Finish();

 private:
  static constexpr std::size_t kBlock = 1 << 18;
  void Drain(bool last);
  void Put(const char* data, std::size_t size);

  struct TDeflater;
  std::ostream& fOut;
  std::unique_ptr<TDeflater> fDeflater;
  std::string fText;
};

class TXmlInput {
 public:
  explicit TXmlInput(std::istream& in);
  ~TXmlInput();
  TXmlInput(const TXmlInput&) = delete;
  TXmlInput& operator=(const TXmlInput&) = delete;

  // Up to size bytes of the document into buffer; 0 at its end.
  std::size_t Read(char* buffer, std::size_t size);

 private:
  std::size_t ReadRaw(char* buffer, std::size_t size);
  std::size_t Inflate(char* buffer, std::size_t size);

  struct TInflater;
  std::istream& fIn;
  std::unique_ptr<TInflater> fInflater;  // null for a plain document
  std::vector<char> fPending;            // raw bytes read ahead (the magic test)
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
